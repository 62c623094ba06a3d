// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/** Data to measure on, made when it is first asked for. What cannot be made ends the program with a message. */
namespace BenchData
{
/** The folder named by VELT_BENCH_DATA, which bench/run makes and removes. What lies there is made once. */
QString folder();

/** An index of some 63,000 records, unpacked. */
QString packagesFile();

/** A repository whose index is that file, so that it opens without reprepro ever having run. */
QString largeRepository();

/** `count` small packages called PREFIX0, PREFIX1 and so on, each with a file of so many random bytes in it. */
QStringList packages(const QString &prefix, int count, int dataSize = 0);

/** Makes a new repository with nothing in it but its description, in place of what is there. */
void describeRepository(const QString &path);

void write(const QString &path, const QByteArray &bytes);

/** Bytes that no compressor makes smaller, the same in every run. */
QByteArray noise(int size);

/** What the script prints; `$1` and so on are the arguments. */
QString shell(const QString &script, const QStringList &arguments = {}, const QStringList &environment = {});

/** Peak resident memory of this process so far, in megabytes. */
double peakMegabytes();
/** The same of the largest program that it has run and seen end. */
double peakMegabytesOfPrograms();
} // namespace BenchData
