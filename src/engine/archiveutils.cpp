// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archiveutils.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
// Anybody can make folders below /tmp, so the one that is used has to be proved.
constexpr const char *Parent = "/tmp/velt-admin-repo";
constexpr const char *MountFolder = "importTempDir";
constexpr mode_t OwnerOnly = 0700;

/** Opens the folder, which is made when missing; -1 when it is a link or belongs to somebody else. */
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

/** Whether something is mounted there, whatever state it is in; see proc(5). */
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

QString mountFolder()
{
    return QLatin1String(Parent) + QLatin1Char('/') + QLatin1String(MountFolder);
}
} // namespace

ArchiveUtils::~ArchiveUtils()
{
    umount();
}

QString ArchiveUtils::mountPoint()
{
    return mountFolder() + QLatin1Char('/');
}

void ArchiveUtils::removeLeftover()
{
    if (!isMounted(mountFolder()))
        return;
    // What goes wrong here will go wrong for the next import too, which tells.
    ArchiveUtils leftover;
    leftover.m_lock = openOwnFolder(AT_FDCWD, Parent);
    if (leftover.m_lock >= 0 && ::flock(leftover.m_lock, LOCK_EX | LOCK_NB) == 0 && isMounted(mountFolder()))
        leftover.unmountNow();
    leftover.releaseLock();
}

bool ArchiveUtils::mount(const QString &archive)
{
    QString trouble = prepareMountPoint();
    if (trouble.isEmpty()) {
        // The mount outlives the run, and would look for a relative path elsewhere.
        m_mounted
            = run(QStringLiteral("archivemount"), {QFileInfo(archive).absoluteFilePath(), mountPoint()});
        if (m_mounted)
            return true;
        trouble = troubleWith(QStringLiteral("archivemount"), QStringLiteral("archivemount"));
        // A run that was ended from outside may have come as far as to mount.
        if (isMounted(mountFolder()))
            unmountNow();
    }
    releaseLock();
    Q_EMIT error(tr("Can't open archive for import!"), trouble);
    return false;
}

bool ArchiveUtils::umount()
{
    const bool done = !m_mounted || unmountNow();
    m_mounted = false;
    releaseLock();
    if (!done)
        Q_EMIT error(tr("Can't umount archive!"),
                     troubleWith(QStringLiteral("fusermount"), QStringLiteral("fuse3")));
    return done;
}

QString ArchiveUtils::prepareMountPoint()
{
    m_lock = openOwnFolder(AT_FDCWD, Parent);
    if (m_lock < 0)
        return tr("The folder %1 cannot be used: %2").arg(QLatin1String(Parent), qt_error_string(errno));
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0)
        return tr("Another import is reading an archive. Try again when it is done.");
    // A program that was killed leaves its mount behind.
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
    // It must happen even when the job has been stopped.
    setStopRequest({});
    return run(QStringLiteral("fusermount"), {QStringLiteral("-u"), mountPoint()});
}

void ArchiveUtils::releaseLock()
{
    if (m_lock >= 0)
        ::close(m_lock);
    m_lock = -1;
}
