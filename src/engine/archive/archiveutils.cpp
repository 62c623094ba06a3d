// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archiveutils.h"

#include "files/openfolder.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr const char *MountFolder = "importTempDir";
constexpr mode_t OwnerOnly = 0700;

/** Opens the folder and creates it when it is missing; -1 when it is a link or belongs to another user. */
int openOwnFolder(int parent, const char *name)
{
    if (::mkdirat(parent, name, OwnerOnly) != 0 && errno != EEXIST)
        return -1;
    const int folder = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return -1;
    struct stat status = {};
    const bool isOurs = ::fstat(folder, &status) == 0 && status.st_uid == ::geteuid();
    if (isOurs && ((status.st_mode & 07777) == OwnerOnly || ::fchmod(folder, OwnerOnly) == 0))
        return folder;
    ::close(folder);
    errno = EPERM;
    return -1;
}

/** Whether the folder is a mount point, even of a broken mount; see proc(5). */
bool isMounted(const QString &folder)
{
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    constexpr int MountPointField = 4;
    if (table.open(QIODevice::ReadOnly)) {
        const QByteArrayList lines = table.readAll().split('\n');
        for (const QByteArray &line : lines)
            if (line.split(' ').value(MountPointField) == QFile::encodeName(folder))
                return true;
    }
    return false;
}

/** A folder that no other user can create; empty when there is none. */
QString privateParent()
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return runtime.isEmpty() ? QString() : runtime + QLatin1String("/velt-admin-repo");
}
} // namespace

ArchiveUtils::~ArchiveUtils()
{
    umount();
}

QString ArchiveUtils::usualParent()
{
    return QStringLiteral("/tmp/velt-admin-repo");
}

QString ArchiveUtils::mountFolder() const
{
    return m_parent + QLatin1Char('/') + QLatin1String(MountFolder);
}

QString ArchiveUtils::mountPoint() const
{
    return mountFolder() + QLatin1Char('/');
}

void ArchiveUtils::removeLeftover()
{
    for (const QString &parent : {usualParent(), privateParent()}) {
        // An error here is not reported, because the next import will meet and report it.
        ArchiveUtils leftover;
        leftover.m_parent = parent;
        if (!isMounted(leftover.mountFolder()))
            continue;
        if (leftover.lockParent() == 0 && isMounted(leftover.mountFolder()) && leftover.unmountNow())
            leftover.removeMountPoint();
        leftover.releaseLock();
    }
}

bool ArchiveUtils::mount(const QString &archive)
{
    QString trouble = prepareMountPoint();
    if (trouble.isEmpty()) {
        // The path must be absolute: the mount outlives this process and its working directory.
        m_mounted
            = run(QStringLiteral("archivemount"), {QFileInfo(archive).absoluteFilePath(), mountPoint()});
        if (m_mounted)
            return true;
        trouble = troubleWith(QStringLiteral("archivemount"), QStringLiteral("archivemount"));
        // A process that was killed may already have mounted the archive.
        if (isMounted(mountFolder()))
            unmountNow();
        removeMountPoint();
    }
    releaseLock();
    tellError(tr("Can't open archive for import!"), trouble);
    return false;
}

bool ArchiveUtils::umount()
{
    const bool done = !m_mounted || unmountNow();
    if (m_mounted && done)
        removeMountPoint();
    m_mounted = false;
    releaseLock();
    if (!done)
        tellError(tr("Can't umount archive!"),
                  troubleWith(QStringLiteral("fusermount"), QStringLiteral("fuse3")));
    return done;
}

int ArchiveUtils::lockParent()
{
    // The end of another import deletes the folder, perhaps between open() and flock().
    constexpr int Attempts = 5;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        m_lock = openOwnFolder(AT_FDCWD, QFile::encodeName(m_parent).constData());
        if (m_lock < 0)
            return errno;
        if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0)
            return EWOULDBLOCK;
        if (isFolderAt(m_lock, m_parent))
            return 0;
        releaseLock();
    }
    return ENOENT;
}

void ArchiveUtils::removeMountPoint()
{
    if (::unlinkat(m_lock, MountFolder, AT_REMOVEDIR) == 0)
        ::rmdir(QFile::encodeName(m_parent).constData());
}

QString ArchiveUtils::prepareMountPoint()
{
    int reason = 0;
    // Any user can create folders below /tmp, and another user's folder cannot be used.
    for (const QString &parent : {usualParent(), privateParent()}) {
        m_parent = parent;
        reason = lockParent();
        if (reason == 0 || reason == EWOULDBLOCK || privateParent().isEmpty())
            break;
    }
    if (reason != 0 && reason != EWOULDBLOCK)
        return tr("The folder %1 cannot be used: %2").arg(m_parent, qt_error_string(reason));
    if (reason == EWOULDBLOCK)
        return tr("Another import is reading an archive. Try again when it is done.");
    // A killed program leaves its mount behind.
    if (isMounted(mountFolder()) && !unmountNow())
        return tr("The archive of an earlier import is still mounted.") + QLatin1Char('\n')
               + troubleWith(QStringLiteral("fusermount"), QStringLiteral("fuse3"));
    const int folder = openOwnFolder(m_lock, MountFolder);
    if (folder < 0)
        return tr("The folder %1 cannot be used: %2").arg(mountPoint(), qt_error_string(errno));
    ::close(folder);
    return {};
}

QString ArchiveUtils::troubleWith(const QString &program, const QString &package) const
{
    if (result().started)
        return errorOutput();
    return tr("The program %1 could not be started. Install the package %2.").arg(program, package)
           + QLatin1Char('\n') + errorOutput();
}

bool ArchiveUtils::unmountNow()
{
    // The archive must be unmounted even when the job was stopped.
    setStopRequest({});
    return run(QStringLiteral("fusermount"), {QStringLiteral("-u"), mountPoint()});
}

void ArchiveUtils::releaseLock()
{
    if (m_lock >= 0)
        ::close(m_lock);
    m_lock = -1;
}
