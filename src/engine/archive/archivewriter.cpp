// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archivewriter.h"

#include <KTar>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr int CopySize = 1 << 20;
constexpr mode_t ModeBits = 07777;
/** An archive ends with two empty blocks. By convention it is filled to a record of twenty blocks. */
constexpr int BlockSize = 512;
constexpr int RecordSize = 20 * BlockSize;
/** A file of this size takes so long that the user may stop its copy. */
constexpr qint64 LargeFile = 8 << 20;

/** Whether the file is compressed already: compressing it again would take time and save nothing. */
bool isCompressed(const QString &name)
{
    static const QSet<QString> suffixes{QStringLiteral("7z"),
                                        QStringLiteral("asc"),
                                        QStringLiteral("bz2"),
                                        QStringLiteral("deb"),
                                        QStringLiteral("gpg"),
                                        QStringLiteral("gz"),
                                        QStringLiteral("jpg"),
                                        QStringLiteral("lz"),
                                        QStringLiteral("lz4"),
                                        QStringLiteral("lzma"),
                                        QStringLiteral("png"),
                                        QStringLiteral("tgz"),
                                        QStringLiteral("txz"),
                                        QStringLiteral("udeb"),
                                        QStringLiteral("xz"),
                                        QStringLiteral("zip"),
                                        QStringLiteral("zst")};
    return suffixes.contains(name.mid(name.lastIndexOf(QLatin1Char('.')) + 1));
}

QDateTime time(const timespec &value)
{
    return QDateTime::fromSecsSinceEpoch(value.tv_sec).toUTC();
}

/** The name from getpwuid_r(3) or getgrgid_r(3); empty when there is none. */
template <typename Entry, typename Lookup>
QString ownerName(Lookup lookup, unsigned id, char *Entry::*name)
{
    std::array<char, 16384> text = {};
    Entry entry = {};
    Entry *found = nullptr;
    lookup(id, &entry, text.data(), text.size(), &found);
    return found != nullptr ? QFile::decodeName(found->*name) : QString();
}

bool isSame(const struct stat &a, const struct stat &b)
{
    return a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec
           && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}
} // namespace

/** A file that is being added. */
struct ArchiveWriter::Source
{
    QString path;
    Descriptor file = Descriptor();
    struct stat status = {};
};

ArchiveWriter::ArchiveWriter(const QString &target, StopRequest stopped)
    : m_stopped(std::move(stopped))
    , m_target(target)
    , m_file(target)
{ }

ArchiveWriter::~ArchiveWriter() = default;

bool ArchiveWriter::open()
{
    if (!m_file.open()) {
        m_error = m_target + QLatin1String(": ") + m_file.errorString();
        return false;
    }
    m_device = std::make_unique<GzipDevice>(m_file.device());
    m_tar = std::make_unique<KTar>(m_device.get());
    m_buffer.resize(CopySize);
    return m_tar->open(QIODevice::WriteOnly);
}

ArchiveWriter::Result
ArchiveWriter::add(const QString &file, const QString &member, const std::optional<FileId> &judged)
{
    const QByteArray name = QFile::encodeName(file);
    Source source{file};
    // O_NONBLOCK: opening a pipe would otherwise wait for a writer.
    source.file = Descriptor(::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const bool isLink = !source.file.isOpen() && errno == ELOOP;
    if (isLink)
        source.file = Descriptor(::open(name.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!source.file.isOpen() || ::fstat(source.file.number(), &source.status) != 0)
        return failed(file, qt_error_string(errno));
    if (!S_ISREG(source.status.st_mode) && !(isLink && S_ISLNK(source.status.st_mode)))
        return failed(file, tr("It is no file."));
    // Some file systems give a file a new number each time. Then the path must be the file's own path, without links.
    if (judged && *judged != FileId{source.status.st_dev, source.status.st_ino}
        && TrustedPath::pathOf(source.file) != name)
        return failed(file, changed());
    if (source.status.st_size > LargestMember)
        return failed(file, tr("It is larger than the 8 GiB that an archive can hold of a file."));
    m_device->setStored(isCompressed(member));
    return isLink ? addLink(source, member) : addFile(&source, member);
}

ArchiveWriter::Result ArchiveWriter::addLink(const Source &source, const QString &member)
{
    std::array<char, PATH_MAX> target = {};
    if (::readlinkat(source.file.number(), "", target.data(), target.size() - 1) < 0)
        return failed(source.path, qt_error_string(errno));
    const bool added = m_tar->writeSymLink(member,
                                           QFile::decodeName(target.data()),
                                           userName(source.status.st_uid),
                                           groupName(source.status.st_gid),
                                           source.status.st_mode & ModeBits,
                                           time(source.status.st_atim),
                                           time(source.status.st_mtim),
                                           time(source.status.st_ctim));
    return added ? Result::Added : failed(m_target, m_device->failure());
}

ArchiveWriter::Result ArchiveWriter::addFile(Source *opened, const QString &member)
{
    const Source &source = *opened;
    QFile file;
    file.open(
        opened->file.release(), QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);

    const bool isLarge = source.status.st_size >= LargeFile;
    if (isLarge)
        m_device->checkpoint();
    if (!m_tar->prepareWriting(member,
                               userName(source.status.st_uid),
                               groupName(source.status.st_gid),
                               source.status.st_size,
                               source.status.st_mode & ModeBits,
                               time(source.status.st_atim),
                               time(source.status.st_mtim),
                               time(source.status.st_ctim)))
        return failed(m_target, m_device->failure());
    qint64 left = source.status.st_size;
    while (left > 0) {
        if (isLarge && m_stopped && m_stopped()) {
            m_device->rollback();
            return Result::Stopped;
        }
        const qint64 size = file.read(m_buffer.data(), qMin<qint64>(left, m_buffer.size()));
        if (size < 0)
            return failed(source.path, file.errorString());
        if (size == 0)
            break;
        if (!m_tar->writeData(m_buffer.constData(), size))
            return failed(m_target, m_device->failure());
        left -= size;
    }
    struct stat now = {};
    if (left > 0 || ::fstat(file.handle(), &now) != 0 || !isSame(now, source.status))
        return failed(source.path, changed());
    if (!m_tar->finishWriting(source.status.st_size))
        return failed(m_target, m_device->failure());
    return Result::Added;
}

ArchiveWriter::Result ArchiveWriter::addText(const QByteArray &text, const QString &member)
{
    constexpr mode_t Mode = 0644;
    m_device->setStored(isCompressed(member));
    return m_tar->writeFile(member,
                            text,
                            Mode,
                            userName(::geteuid()),
                            groupName(::getegid()),
                            {},
                            QDateTime::currentDateTimeUtc())
               ? Result::Added
               : failed(m_target, m_device->failure());
}

QString ArchiveWriter::changed()
{
    return tr("It was changed by another program while it was read.");
}

bool ArchiveWriter::commit()
{
    // Even an empty archive consists of blocks of zeros.
    const bool ended = m_device->write(QByteArray(RecordSize, '\0')) == RecordSize;
    m_tar->close();
    if (!m_device->finish() || !ended) {
        if (m_error.isEmpty())
            failed(m_target, m_device->failure());
        return false;
    }
    if (m_file.commit())
        return true;
    if (m_error.isEmpty())
        failed(m_target, m_file.errorString());
    return false;
}

ArchiveWriter::Result ArchiveWriter::failed(const QString &file, const QString &reason)
{
    m_error = file + QLatin1String(": ") + reason;
    return Result::Failed;
}

// Cached, because a look-up reads files or asks a server; a repository has few owners and many files.
QString ArchiveWriter::userName(uid_t id)
{
    const auto known = m_users.constFind(id);
    if (known != m_users.constEnd())
        return *known;
    return *m_users.insert(id, ownerName<passwd>(&::getpwuid_r, id, &passwd::pw_name));
}

QString ArchiveWriter::groupName(gid_t id)
{
    const auto known = m_groups.constFind(id);
    if (known != m_groups.constEnd())
        return *known;
    return *m_groups.insert(id, ownerName<group>(&::getgrgid_r, id, &group::gr_name));
}
