// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QMimeData;

/** Functions for files and folders that are dragged to the program. */
namespace PackageDrop
{
/** Whether a drag contains files. Their type is checked only at the drop. */
bool accepts(const QMimeData *data);
/** The local paths of a drop, each once, in their order. A path without a package name may be a folder. */
QStringList paths(const QMimeData *data);
/** Whether a file of this name is a package (*.deb, *.udeb). */
bool isPackageName(const QString &path);

/** The result of packagesAt(). */
struct Packages
{
    QStringList files;
    QStringList folders; ///< folders that contain some of the files
    int inFolders = 0; ///< number of files that are in these folders
};

/**
 * The packages of a drop: the packages among the paths, and those at any depth in the folders. Other files are left
 * out. Reads the file system: not for the interface thread.
 */
Packages packagesAt(const QStringList &paths);
} // namespace PackageDrop
