// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/**
 * The pool files that the running job takes out or replaces, as hard links in a folder beside the running point, by
 * their paths below the repository ("pool/..."). They serve to put back a package whose replacement is refused, to
 * undo the whole job, and at its end they become files of the restore point.
 */
namespace KeptFiles
{
/** The folder that has the paths below the repository. */
QString folder(const QString &repoPath);
/** Makes the folder where it is missing. False when that fails, or when what is there is not ours. */
bool makeFolder(const QString &repoPath);
/** The paths of all kept files, below the repository. Names that do not stay in the pool are left out. */
QStringList list(const QString &repoPath);
/** Whether pool and database are on one file system that has hard links. Tries it with a file of the pool. */
bool areLinksPossible(const QString &repoPath);

/**
 * Keeps a pool file before it is deleted or replaced. The first file of a path is the one of the time before the job,
 * so a later one of the same name is kept apart from it. Without links the file is copied. Returns the absolute path of
 * the kept file; empty when it could not be kept. `isOwn`: the file came with the job.
 */
QString keep(const QString &repoPath, const QString &poolFile, bool isOwn);
/** The same for a file that has a link already or gets one; never copies. */
bool link(const QString &repoPath, const QString &poolFile);
/** Forgets those kept files that are still, or again, in the pool as the same file. */
void releaseThosePresent(const QString &repoPath);
/** Deletes what a killed putIntoPool() of these files has left. */
void removePartial(const QString &repoPath, const QStringList &poolFiles);
/**
 * Puts a kept file into its place in the pool, where another file is replaced, and leaves the kept one. `source` is a
 * kept file or a file of a restore point. By hard link, or a copy without links, and never half a file.
 */
bool putIntoPool(const QString &repoPath, const QString &source, const QString &poolFile);
/** Deletes the folder with all files in it. */
bool drop(const QString &repoPath);
} // namespace KeptFiles
