// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QMimeData;

/** Files and folders that are dragged onto the program. */
namespace PackageDrop
{
/** Whether a drag can carry files at all; what they are is only looked at when they are dropped. */
bool accepts(const QMimeData *data);
/** The local paths of a drop, each once, in its order. What is not called a package may be a folder. */
QStringList paths(const QMimeData *data);
/** Whether a file of this name is a package (*.deb, *.udeb). */
bool isPackageName(const QString &path);

struct Packages
{
    QStringList files;
    QStringList folders; ///< from which some of them are
    int inFolders = 0; ///< how many of the files
};

/**
 * The packages of a drop: those among the paths, and those anywhere in the folders among them. Other files are left
 * out. Looks at the file system: not for the interface thread.
 */
Packages packagesAt(const QStringList &paths);
} // namespace PackageDrop
