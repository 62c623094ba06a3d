// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debcontents.h"

#include "engine/archive/tarheader.h"
#include "files/regularfile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include <apt-pkg/aptconfiguration.h>
#include <apt-pkg/error.h>
#include <apt-pkg/fileutl.h>
#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

namespace
{
constexpr int BufferSize = 1 << 16;
/** Most bytes of the records that override a header. */
constexpr qint64 LargestExtension = 1 << 20;

std::optional<FileFd::CompressMode> compressionOf(const QByteArray &member)
{
    if (member == "data.tar")
        return FileFd::None;
    if (member == "data.tar.gz")
        return FileFd::Gzip;
    if (member == "data.tar.xz")
        return FileFd::Xz;
    if (member == "data.tar.zst")
        return FileFd::Zstd;
    if (member == "data.tar.bz2")
        return FileFd::Bzip2;
    if (member == "data.tar.lzma")
        return FileFd::Lzma;
    return std::nullopt;
}

/** Reads the members of a tar archive that arrives in pieces. */
class TarWalk
{
public:
    /** False when the data is not a valid archive. */
    bool take(const char *data, qint64 size)
    {
        while (size > 0 && !m_isAtEnd) {
            const qint64 part = m_left > 0 ? qMin(size, m_left) : qMin(size, missing());
            if (m_left > 0) {
                if (m_isExtended)
                    m_records.append(data, static_cast<int>(part));
                m_left -= part;
            } else {
                m_block.append(data, static_cast<int>(part));
                if (missing() == 0 && !begin())
                    return false;
            }
            data += part;
            size -= part;
        }
        return true;
    }
    /** Whether the archive may end here. */
    bool isComplete() const { return m_isAtEnd || (m_left == 0 && m_block.isEmpty()); }

private:
    qint64 missing() const { return TarHeader::BlockSize - m_block.size(); }

    bool begin()
    {
        TarHeader header = TarHeader::parse(m_block.constData());
        m_block.clear();
        m_isAtEnd = header.kind == TarHeader::Kind::End;
        const bool isMember = header.kind == TarHeader::Kind::File || header.kind == TarHeader::Kind::Other;
        if (header.kind == TarHeader::Kind::Invalid
            || (isMember && !header.overrule(m_records.left(m_recordsSize))))
            return false;
        m_isExtended = header.kind == TarHeader::Kind::Extended;
        if (isMember || m_isExtended)
            m_records.clear();
        if (m_isExtended && header.size > LargestExtension)
            return false;
        if (isMember || m_isExtended)
            m_recordsSize = m_isExtended ? static_cast<int>(header.size) : 0;
        constexpr qint64 Block = TarHeader::BlockSize;
        m_left = (header.size + Block - 1) / Block * Block;
        return true;
    }

    QByteArray m_block; ///< the part of a header that has arrived
    QByteArray m_records; ///< records that override the next header
    int m_recordsSize = 0; ///< size of the records in bytes; the rest of m_records is padding
    qint64 m_left = 0; ///< bytes left of a member's contents, including the padding
    bool m_isExtended = false; ///< the contents are records that override a header
    bool m_isAtEnd = false;
};

/** A descriptor that ends at the end of a part of a file. Some decompressors would read the following bytes too. */
class FilePart
{
public:
    FilePart(int file, qint64 position, qint64 size)
    {
        std::array<int, 2> ends = {-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return;
        m_end = ends[0];
        m_feeder
            = std::thread([file, position, size, target = ends[1]] { feed(file, position, size, target); });
    }
    ~FilePart()
    {
        // Closing this end makes the feeder's write fail, so that the thread ends.
        if (m_end >= 0)
            ::close(m_end);
        if (m_feeder.joinable())
            m_feeder.join();
    }
    FilePart(const FilePart &) = delete;
    FilePart &operator=(const FilePart &) = delete;

    /** The end to read from; -1 on failure. */
    int descriptor() const { return m_end; }

private:
    int m_end = -1; ///< read end of the pipe
    std::thread m_feeder;

    static void feed(int file, qint64 position, qint64 size, int target)
    {
        sigset_t pipeSignal;
        sigemptyset(&pipeSignal);
        sigaddset(&pipeSignal, SIGPIPE);
        ::pthread_sigmask(SIG_BLOCK, &pipeSignal, nullptr);
        loff_t from = position;
        while (size > 0) {
            const ssize_t moved
                = ::splice(file, &from, target, nullptr, static_cast<size_t>(qMin<qint64>(size, 1 << 20)), 0);
            if (moved < 0 && errno == EINTR)
                continue;
            if (moved <= 0)
                break;
            size -= moved;
        }
        ::close(target);
    }
};

/** Makes the library create its table of compressions. At the first use it does this without a lock. */
void prepareLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] { APT::Configuration::getCompressors(); });
}

DebContentsState unpack(FileFd *stream, const std::function<bool()> &stopped)
{
    std::vector<char> buffer(BufferSize);
    TarWalk walk;
    for (;;) {
        if (stopped && stopped())
            return DebContentsState::Unknown;
        unsigned long long read = 0;
        if (!stream->Read(buffer.data(), buffer.size(), &read)
            || !walk.take(buffer.data(), static_cast<qint64>(read)))
            return DebContentsState::Damaged;
        if (read == 0)
            return walk.isComplete() ? DebContentsState::Whole : DebContentsState::Damaged;
    }
}
} // namespace

DebContentsState
debContentsState(const QString &fileName, const DebMember &data, const std::function<bool()> &stopped)
{
    const auto compression = compressionOf(data.name);
    RegularFile file(fileName);
    if (!compression || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return DebContentsState::Unknown;
    const FilePart part(file.handle(), data.position, data.size);
    if (part.descriptor() < 0)
        return DebContentsState::Unknown;
    prepareLibrary();
    // The library stores its errors in a list of each thread.
    _error->PushToStack();
    auto state = DebContentsState::Unknown;
    {
        FileFd stream;
        if (stream.OpenDescriptor(part.descriptor(), FileFd::ReadOnly, *compression))
            state = unpack(&stream, stopped);
    }
    _error->RevertToStack();
    return state;
}
