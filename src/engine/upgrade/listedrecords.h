// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptlists.h"
#include "apt/aptoutput.h"

#include <QStringList>
#include <QVector>

/** What apt's lists offer of packages: the records that "apt show -a" prints, without its cache of all packages. */
namespace ListedRecords
{
/**
 * The records of the packages in the order of the lists. `words` are names with architectures, "NAME:ARCHITECTURE". A
 * list for all architectures, or of none, answers for each of them. Sets `problem` when a list cannot be read; after a
 * stop some records are missing. Reads files: not for the interface thread.
 */
QVector<AptPackageRecord>
find(const QVector<AptList> &lists, const QStringList &words, const StopRequest &stopped, QString *problem);
} // namespace ListedRecords
