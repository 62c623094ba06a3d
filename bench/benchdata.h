// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/** Data for the measurements, created on demand. A failure ends the program with a message. */
namespace BenchData
{
/** The folder in VELT_BENCH_DATA, which bench/run creates and deletes. Data in it is created once. */
QString folder();

/** An uncompressed index of about 63,000 records. */
QString packagesFile();

/** A repository with this file as its index. reprepro need not run before it is opened. */
QString largeRepository();

/** Packages named NAME0, NAME1 and so on. Each contains a file with random bytes. */
struct PackageSet
{
    QString name;
    int count = 0;
    QString version = QStringLiteral("1.0");
    /** Range of the size of this file, in bytes. The logarithms of the sizes have equal distances. */
    int smallest = 1 << 10;
    int largest = 200 << 10;
};
/** Their files, of 46 sections. One of four packages is for all architectures, two are for amd64 and one for arm64. */
QStringList packages(const PackageSet &set);
/** The folder with these files and nothing else. */
QString packagesFolder(const PackageSet &set);

/** Packages in a repository before the measurement, packages to add, and newer versions of the first of these. */
PackageSet oldPackages();
PackageSet newPackages();
PackageSet newerPackages();

/**
 * Moves what is there out of the way. Nothing is deleted: for minutes after that ext4 looks at each deleted file before
 * it makes a new one, and all that makes files takes up to twice as long.
 */
void setAside(const QString &path);
/** Replaces the repository with a new one that has only a description. */
void describeRepository(const QString &path);
/**
 * Replaces `to` with a copy of a repository. The copy has links to the files in the pool, which reprepro never changes,
 * so the disk has nothing left to write when the measurement begins.
 */
void copyRepository(const QString &from, const QString &to);
/** A repository with these packages, created by reprepro. It must be copied before it is changed. */
QString madeRepository(const QVector<PackageSet> &sets);
/** A copy of this repository, always at the same path. */
QString changeableRepository(const QVector<PackageSet> &sets);
/** Number of files in a repository's pool with a matching name. */
int poolFiles(const QString &repository, const QString &pattern);

void write(const QString &path, const QByteArray &bytes);

/** Bytes that cannot be compressed and are the same in every run. Callable from any thread. */
QByteArray noise(int size, int seed = 0);

/** The output of the script; its arguments are `$1` and so on. */
QString shell(const QString &script, const QStringList &arguments = {}, const QStringList &environment = {});

/** Peak resident memory of this process so far, in megabytes. */
double peakMegabytes();
/** The same for the largest program that this process has run to its end. */
double peakMegabytesOfPrograms();
} // namespace BenchData
