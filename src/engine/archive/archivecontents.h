// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/trustedpath.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

/** Decides which files go into an archive, and which files are read from a folder. */
namespace ArchiveContents
{
/** One file for the archive. */
struct Entry
{
    QString path; ///< the file to read: a regular file, or a link that stays a link
    QString member; ///< name in the archive, relative to the repository
    FileId id; ///< identity of the checked file; the path may name another file when it is read
};

/** The files of a repository. */
struct Listing
{
    QVector<Entry> entries;
    QStringList leftOut; ///< names in the archive of links to outside that are not trusted
    QString error; ///< the folder that could not be read; then the list of entries is incomplete
};

/**
 * All files of a repository, including hidden files. Links within the repository are kept. The target of a link to
 * outside is part of the repository and is stored in place of the link, if the link and its target have the same owner,
 * who is the user or root. Somebody else's link could lead to a file that only the user may read. The lock file of
 * reprepro and the restore points are left out.
 */
Listing ofRepository(const QString &path);

/** One file of the repository, or the target of a link; nothing for a link that ofRepository() leaves out. */
std::optional<Entry> fileOfRepository(const QString &path, const QString &file, const QString &member);

/**
 * The packages below `folder`, sorted, without those of restore points. Links to outside are not followed. File systems
 * of the kernel and the folder `without` are not entered. When `stopped` returns true, it ends early with the packages
 * found so far.
 */
QStringList
packagesBelow(const QString &folder, const QString &without, const std::function<bool()> &stopped);
} // namespace ArchiveContents
