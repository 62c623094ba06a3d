// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/trustedpath.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

/** Which files go into an archive, and which ones are taken out of a folder. */
namespace ArchiveContents
{
struct Entry
{
    QString path; ///< what is read: a regular file, or a link that is kept as such
    QString member; ///< its name in the archive, relative to the repository
    FileId id; ///< the file that was judged; by the time that it is read, the path may name another one
};

struct Listing
{
    QVector<Entry> entries;
    QStringList leftOut; ///< links of others to elsewhere, by their names in the archive
    QString error; ///< the folder that could not be read; the entries are not all then
};

/**
 * All files of a repository, hidden ones too. Links within it are kept; what a link to elsewhere stands for is part of
 * the repository and is taken in its place, if the user or root has made the link and owns that too: a link of somebody
 * else could lead to what only the user may read. Left out is also what only a running reprepro has a use for.
 */
Listing ofRepository(const QString &path);

/** A file of the repository; through a link what it leads to, or nothing where ofRepository() leaves it out. */
std::optional<Entry> fileOfRepository(const QString &path, const QString &file, const QString &member);

/** Whether a file of this name is a package. */
bool isPackageName(const QString &name);

/**
 * The packages below `folder`, sorted. No link is followed to anything outside of it, nor are the kernel's file systems
 * entered, nor the folder `without`. Ends early, with what was found so far, when `stopped` answers true.
 */
QStringList
packagesBelow(const QString &folder, const QString &without, const std::function<bool()> &stopped);
} // namespace ArchiveContents
