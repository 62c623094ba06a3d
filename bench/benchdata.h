// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Real data to measure on. Everything lies in a folder that is removed when the program ends. */
namespace BenchData
{
/** A folder of this run's own. */
QString folder();

/**
 * Debian's main Packages file of this machine's architecture (some 63,000 records), unpacked from the lists that
 * apt has fetched. Ends the program with a message when there is none.
 */
QString packagesFile();

/** A repository whose index is that file, so that it opens without reprepro ever having run. */
QString largeRepository();

/** Builds `count` small packages called PREFIX0, PREFIX1 and so on, and returns their folder. */
QString smallPackages(const QString &prefix, int count);

/** Peak resident memory of this process so far, in megabytes. */
double peakMegabytes();
} // namespace BenchData
