// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/aptaccess.h"

#include "server/publicationpath.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <filesystem>
#include <optional>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;
using Status = struct stat;

std::optional<Status> statusOf(const fs::path &path)
{
    Status status = {};
    return ::lstat(path.c_str(), &status) == 0 ? std::optional<Status>(status) : std::nullopt;
}

bool isGuarded(const Status &status)
{
    // Debian gives each user a private group with the user's number.
    const bool isOwnGroup = status.st_gid == 0 || status.st_gid == ::getuid();
    const bool isOwn = status.st_uid == 0 || status.st_uid == ::getuid();
    // The system ignores the rights of a link. The group's rights are the upper limit of an access list.
    return isOwn
           && (S_ISLNK(status.st_mode)
               || ((status.st_mode & S_IWOTH) == 0 && ((status.st_mode & S_IWGRP) == 0 || isOwnGroup)));
}

bool isOpen(const Status &status)
{
    const mode_t needed = S_ISDIR(status.st_mode) ? S_IROTH | S_IXOTH : S_IROTH;
    return S_ISLNK(status.st_mode) || (status.st_mode & needed) == needed;
}

struct Finding
{
    bool isOpen = true;
    bool isGuarded = true;

    void take(const std::optional<Status> &status, bool mustBeOpen = true)
    {
        isOpen = isOpen && (!mustBeOpen || (status && ::isOpen(*status)));
        isGuarded = isGuarded && status && ::isGuarded(*status);
    }
};

/** Looks at the folder and everything in it. */
void visit(const fs::path &folder, bool mustBeOpen, Finding &finding)
{
    const std::optional<Status> top = statusOf(folder);
    finding.take(top, mustBeOpen);
    // A link can lead to a folder in which others may write.
    if (!top || !S_ISDIR(top->st_mode)) {
        finding.isGuarded = false;
        return;
    }
    std::error_code error;
    fs::recursive_directory_iterator files(folder, error);
    for (; !error && files != fs::recursive_directory_iterator(); files.increment(error))
        finding.take(statusOf(files->path()), mustBeOpen);
    if (error)
        finding = {false, false};
}

/** Whether the file system may refuse root, too. */
bool isForeign(const QString &directory)
{
    const QByteArray type = QStorageInfo(directory).fileSystemType();
    return type == "fuse" || type.startsWith("fuse.") || type.startsWith("nfs") || type == "cifs"
           || type == "smb3" || type == "9p" || type == "afs";
}
} // namespace

AptAccess AptAccess::examine(const QString &directory)
{
    if (!PublicationPath::isWellFormed(directory))
        return {};
    const fs::path repository(QFile::encodeName(directory).toStdString());
    Finding finding;
    bool isReached = true;
    for (fs::path above = repository; above.has_relative_path(); above = above.parent_path()) {
        const std::optional<Status> status = statusOf(above);
        finding.take(status, false);
        isReached = isReached && status && (status->st_mode & S_IXOTH) != 0;
    }
    visit(repository / "dists", true, finding);
    // Root opens the packages, so they need not be open to others.
    if (QFileInfo::exists(directory + QLatin1String("/pool")))
        visit(repository / "pool", false, finding);
    if (isReached && finding.isOpen)
        return {ByAnybody, finding.isGuarded};
    return {isForeign(directory) ? NoWay : ByRoot, finding.isGuarded};
}

bool AptAccess::hasFtp()
{
    return QFileInfo::exists(QStringLiteral("/usr/lib/apt/methods/ftp"));
}
