// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/memberstream.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <mutex>
#include <optional>
#include <thread>

#include <apt-pkg/aptconfiguration.h>
#include <apt-pkg/error.h>
#include <apt-pkg/fileutl.h>
#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

namespace
{
std::optional<FileFd::CompressMode> compressionOf(const QByteArray &member)
{
    const auto tar = member.indexOf(".tar");
    const QByteArray suffix = member.mid(tar + 4);
    if (tar < 0)
        return std::nullopt;
    if (suffix.isEmpty())
        return FileFd::None;
    if (suffix == ".gz")
        return FileFd::Gzip;
    if (suffix == ".xz")
        return FileFd::Xz;
    if (suffix == ".zst")
        return FileFd::Zstd;
    if (suffix == ".bz2")
        return FileFd::Bzip2;
    if (suffix == ".lzma")
        return FileFd::Lzma;
    return std::nullopt;
}

/** The library makes its table of compressions at the first use, without a lock. */
void prepareLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] { APT::Configuration::getCompressors(); });
}
} // namespace

/** A descriptor that ends at the end of a part of a file. Some decompressors would read the following bytes too. */
class MemberStream::FilePart
{
public:
    FilePart(int file, qint64 position, qint64 size)
        : m_file(file)
        , m_position(position)
        , m_left(size)
    {
        std::array<int, 2> ends = {-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return;
        m_end = ends[0];
        // Most members fit into the pipe. Only larger ones need a thread that waits for the reader.
        if (feed(ends[1], SPLICE_F_NONBLOCK))
            ::close(ends[1]);
        else
            m_feeder = std::thread([this, target = ends[1]] {
                // A reader that ends early causes a SIGPIPE, which would end the program. It stays blocked until the
                // thread ends: the signal is still pending then.
                sigset_t pipeSignal;
                sigemptyset(&pipeSignal);
                sigaddset(&pipeSignal, SIGPIPE);
                ::pthread_sigmask(SIG_BLOCK, &pipeSignal, nullptr);
                feed(target, 0);
                ::close(target);
            });
    }
    ~FilePart()
    {
        // The thread that still writes gets an error, because nobody reads.
        if (m_end >= 0)
            ::close(m_end);
        if (m_feeder.joinable())
            m_feeder.join();
    }
    FilePart(const FilePart &) = delete;
    FilePart &operator=(const FilePart &) = delete;

    /** -1 when there is none. */
    int descriptor() const { return m_end; }

private:
    int m_file;
    loff_t m_position;
    qint64 m_left;
    int m_end = -1; ///< to read from
    std::thread m_feeder;

    /** Returns false when the pipe is full before the end of the part. */
    bool feed(int target, unsigned flags)
    {
        bool isFull = false;
        while (m_left > 0 && !isFull) {
            const auto most = static_cast<size_t>(qMin<qint64>(m_left, 1 << 20));
            const ssize_t moved = ::splice(m_file, &m_position, target, nullptr, most, flags);
            if (moved < 0 && errno == EINTR)
                continue;
            isFull = moved < 0 && errno == EAGAIN;
            if (moved <= 0)
                break;
            m_left -= moved;
        }
        return !isFull;
    }
};

struct MemberStream::Stream
{
    FileFd file;
};

MemberStream::MemberStream(const QString &fileName, const DebMember &member)
    : m_file(fileName)
{
    // What the library has to say lies in a list of the thread's own.
    _error->PushToStack();
    const auto compression = compressionOf(member.name);
    if (!compression || !m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return;
    m_part = std::make_unique<FilePart>(m_file.handle(), member.position, member.size);
    if (m_part->descriptor() < 0)
        return;
    prepareLibrary();
    auto stream = std::make_unique<Stream>();
    if (stream->file.OpenDescriptor(m_part->descriptor(), FileFd::ReadOnly, *compression))
        m_stream = std::move(stream);
}

MemberStream::~MemberStream()
{
    m_stream.reset();
    m_part.reset();
    _error->RevertToStack();
}

qint64 MemberStream::read(char *data, qint64 size)
{
    unsigned long long count = 0;
    if (!m_stream->file.Read(data, static_cast<unsigned long long>(size), &count))
        return -1;
    return static_cast<qint64>(count);
}
