// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

/** Finds a few files in indices of any size, without reading the records of all others. */
namespace IndexedFiles
{
/** What an index says of the file of a package. */
struct Entry
{
    QString sha256;
    qint64 size = 0; ///< bytes
};
/**
 * The entries of these files, by their paths in the pool, in the files Packages below the folder `dists`. Files that no
 * index names are left out.
 */
QHash<QString, Entry> find(const QString &dists, const QSet<QString> &files);
} // namespace IndexedFiles
