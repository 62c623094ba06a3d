// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debfiles.h"

#include "engine/archive/debarchive.h"
#include "engine/archive/memberstream.h"
#include "engine/archive/tarwalk.h"

#include <QCryptographicHash>

#include <utility>
#include <vector>

namespace
{
constexpr int BufferSize = 1 << 16;
constexpr qint64 LargestUnpacked = qint64(8) << 30;
constexpr int MostFiles = 200000;
constexpr qint64 MostPaths = qint64(64) << 20; ///< bytes of all paths
constexpr qint64 MostKept = qint64(32) << 20; ///< bytes of all kept contents

// Where the fields of a tar header lie, see tar(5).
constexpr int ModeOffset = 100;
constexpr int ModeLength = 8;
constexpr int TypeOffset = 156;
constexpr int TargetOffset = 157;
constexpr int TargetLength = 100;

QByteArray field(const char *block, int offset, int length)
{
    return {block + offset, static_cast<int>(qstrnlen(block + offset, static_cast<uint>(length)))};
}

class FileWalk : public TarWalk
{
public:
    explicit FileWalk(DebFiles::Keep keep)
        : m_keep(std::move(keep))
    { }

    QVector<DebFile> files;

    bool isTooLarge() const { return files.size() > MostFiles || m_paths > MostPaths; }

protected:
    void begun(const TarHeader &header, const char *block) override
    {
        DebFile file;
        file.path = header.name.startsWith("./") ? header.name.mid(2) : header.name;
        file.type = block[TypeOffset] == '\0' ? '0' : block[TypeOffset];
        file.mode = field(block, ModeOffset, ModeLength).trimmed();
        file.size = header.size;
        file.target = field(block, TargetOffset, TargetLength);
        m_paths += file.path.size();
        m_isKept = m_keep && file.type == '0' && m_keep(file.path);
        files.append(file);
        m_hash.reset();
    }
    void contents(const char *data, qint64 size) override
    {
        m_hash.addData(QByteArray::fromRawData(data, static_cast<int>(size)));
        if (!m_isKept)
            return;
        QByteArray &kept = files.last().contents;
        const qint64 part = qMin(qMin(size, DebFile::LargestKept - kept.size()), MostKept - m_kept);
        kept.append(data, static_cast<int>(part));
        m_kept += part;
    }
    void ended() override
    {
        if (files.last().type == '0')
            files.last().sha256 = m_hash.result().toHex();
    }

private:
    DebFiles::Keep m_keep;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    qint64 m_paths = 0;
    qint64 m_kept = 0;
    bool m_isKept = false;
};

/** False when the member was not read to its end. */
bool read(const QString &fileName,
          const DebMember &member,
          const std::function<bool()> &stopped,
          const DebFiles::Keep &keep,
          QVector<DebFile> *files,
          bool *isTooLarge)
{
    MemberStream stream(fileName, member);
    if (!stream.isOpen())
        return false;
    std::vector<char> buffer(BufferSize);
    FileWalk walk(keep);
    qint64 size = 0;
    bool isWhole = false;
    while (!stopped()) {
        const qint64 part = stream.read(buffer.data(), BufferSize);
        if (part < 0 || !walk.take(buffer.data(), part))
            break;
        isWhole = part == 0 && walk.isComplete();
        size += part;
        *isTooLarge = size > LargestUnpacked || walk.isTooLarge();
        if (part == 0 || *isTooLarge)
            break;
    }
    *files = walk.files;
    return isWhole;
}
} // namespace

DebFiles DebFiles::of(const QString &fileName, const std::function<bool()> &stopped, const Keep &keep)
{
    DebFiles found;
    DebMember data;
    DebMember control;
    if (debArchiveState(fileName, &data, &control) != DebArchiveState::Whole)
        return found;
    const Keep keepAll = keep ? [](const QByteArray &) { return true; } : Keep();
    const bool hasControl = read(fileName, control, stopped, keepAll, &found.control, &found.isTooLarge);
    found.isWhole = hasControl && !found.isTooLarge
                    && read(fileName, data, stopped, keep, &found.files, &found.isTooLarge);
    return found;
}
