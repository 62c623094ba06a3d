// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/** Data for the measurements, created on demand. A failure ends the program with a message. */
namespace BenchData
{
/** The folder in VELT_BENCH_DATA, which bench/run creates and deletes. Data in it is created once. */
QString folder();

/** An uncompressed index of about 63,000 records. */
QString packagesFile();

/** A repository with this file as its index. reprepro need not run before it is opened. */
QString largeRepository();

/** `count` small packages named PREFIX0, PREFIX1 and so on. Each contains a file with `dataSize` random bytes. */
QStringList packages(const QString &prefix, int count, int dataSize = 0);

/** Replaces the repository with a new one that has only a description. */
void describeRepository(const QString &path);

void write(const QString &path, const QByteArray &bytes);

/** Bytes that cannot be compressed and are the same in every run. */
QByteArray noise(int size);

/** The output of the script; its arguments are `$1` and so on. */
QString shell(const QString &script, const QStringList &arguments = {}, const QStringList &environment = {});

/** Peak resident memory of this process so far, in megabytes. */
double peakMegabytes();
/** The same for the largest program that this process has run to its end. */
double peakMegabytesOfPrograms();
} // namespace BenchData
