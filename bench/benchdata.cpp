// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchdata.h"

#include "core/countof.h"
#include "core/processutils.h"

#include <KCompressionDevice>
#include <KTar>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QtConcurrent>

#include <array>
#include <cmath>
#include <numeric>
#include <random>
#include <utility>

#include <sys/resource.h>
#include <unistd.h>

namespace
{
/** A tar archive with one member. */
QByteArray tarball(const QString &member, const QByteArray &contents)
{
    QBuffer buffer;
    KTar tar(&buffer);
    if (!tar.open(QIODevice::WriteOnly) || !tar.writeFile(member, contents) || !tar.close())
        qFatal("cannot make a tar archive");
    return buffer.data() + QByteArray(1024, '\0');
}

/** A member of an ar archive, see ar(5). */
QByteArray arMember(const char *name, const QByteArray &contents)
{
    return QByteArray(name).leftJustified(16) + QByteArray("0").leftJustified(12)
           + QByteArray("0     0     100644  ") + QByteArray::number(contents.size()).leftJustified(10)
           + "`\n" + contents + (contents.size() % 2 != 0 ? "\n" : "");
}

QByteArray gzipped(const QByteArray &bytes)
{
    QBuffer buffer;
    KCompressionDevice device(&buffer, false, KCompressionDevice::GZip);
    if (!device.open(QIODevice::WriteOnly) || device.write(bytes) != bytes.size())
        qFatal("cannot compress");
    device.close();
    return buffer.data();
}

/** The sections of Debian with the most packages. */
constexpr std::array<const char *, 46> Sections = {
    "admin",        "cli-mono",   "comm",        "database",     "debug",    "devel",        "doc",
    "editors",      "education",  "electronics", "fonts",        "games",    "gnome",        "gnu-r",
    "golang",       "graphics",   "hamradio",    "haskell",      "httpd",    "interpreters", "introspection",
    "java",         "javascript", "kde",         "kernel",       "libdevel", "libs",         "lisp",
    "localization", "mail",       "math",        "metapackages", "misc",     "net",          "news",
    "ocaml",        "perl",       "php",         "python",       "ruby",     "rust",         "science",
    "sound",        "text",       "utils",       "web"};

const char *architectureOf(int number)
{
    constexpr std::array<const char *, 4> Architectures = {"all", "amd64", "arm64", "amd64"};
    // Every section gets all of them.
    return Architectures[(number + number / Sections.size()) % Architectures.size()];
}

QString fileName(const BenchData::PackageSet &set, int number)
{
    return QStringLiteral("%1%2_%3_%4.deb")
        .arg(set.name, QString::number(number), set.version, QLatin1String(architectureOf(number)));
}

/** Builds a package by hand, because dpkg-deb would take a minute for five thousand. */
QByteArray package(const BenchData::PackageSet &set, int number)
{
    // As long as the average record of Debian's main index, because the time depends on the size of the indices.
    const QString description
        = QStringLiteral(" This package holds nothing of use. It is there to be counted and carried.\n")
              .repeated(4);
    const QString name = set.name + QString::number(number);
    const QString control
        = QStringLiteral(
              "Package: %1\nVersion: %2\nArchitecture: %3\nMaintainer: B <b@example.org>\n"
              "Section: %4\nPriority: optional\nInstalled-Size: 120\n"
              "Depends: libc6 (>= 2.34), libgcc-s1 (>= 3.0), libstdc++6 (>= 11), zlib1g (>= 1:1.2.0)\n"
              "Homepage: https://example.org/benchmark\nDescription: package to measure with\n%5")
              .arg(name,
                   set.version,
                   QLatin1String(architectureOf(number)),
                   QLatin1String(Sections[number % Sections.size()]),
                   description);
    constexpr int Steps = 100;
    const double place = number * 37 % Steps / double(Steps); // neither by section nor by architecture
    const int size = static_cast<int>(set.smallest * std::pow(double(set.largest) / set.smallest, place));
    const QByteArray data
        = tarball(QStringLiteral("./usr/share/%1/data").arg(name), BenchData::noise(size, number));
    return "!<arch>\n" + arMember("debian-binary", "2.0\n")
           + arMember("control.tar.gz", gzipped(tarball(QStringLiteral("./control"), control.toUtf8())))
           + arMember("data.tar.gz", gzipped(data));
}

double peak(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}
} // namespace

QString BenchData::folder()
{
    static const QString folder = [] {
        QString name = qEnvironmentVariable("VELT_BENCH_DATA");
        if (name.isEmpty() || !QDir(name).exists())
            qFatal("VELT_BENCH_DATA names no folder; bench/run sets it");
        return name;
    }();
    return folder;
}

QString BenchData::packagesFile()
{
    QString path = folder() + QLatin1String("/Packages");
    if (!QFile::exists(path))
        qFatal("there is no %s", qPrintable(path));
    return path;
}

QString BenchData::largeRepository()
{
    QString repository = folder() + QLatin1String("/large");
    const QString index = repository + QLatin1String("/dists/bookworm/main/binary-amd64/Packages");
    if (!QFile::exists(index)) {
        write(repository + QLatin1String("/conf/distributions"),
              "Origin: Debian\nCodename: bookworm\nSuite: stable\nVersion: \nArchitectures: amd64\n"
              "Components: main\nUDebComponents: main\n");
        QDir().mkpath(QFileInfo(index).path());
        if (!QFile::copy(packagesFile(), index))
            qFatal("cannot copy the index");
    }
    return repository;
}

QString BenchData::packagesFolder(const PackageSet &set)
{
    return folder() + QLatin1String("/packages-") + set.name + set.version;
}

QStringList BenchData::packages(const PackageSet &set)
{
    const QDir dir(packagesFolder(set));
    QVector<int> numbers(set.count);
    std::iota(numbers.begin(), numbers.end(), 0);
    if (!dir.exists()) {
        QtConcurrent::blockingMap(
            numbers, [&](int number) { write(dir.filePath(fileName(set, number)), package(set, number)); });
        // The disk must have nothing left to write when the measurement begins.
        ::sync();
    }
    QStringList files;
    for (const int number : std::as_const(numbers))
        files.append(dir.filePath(fileName(set, number)));
    return files;
}

void BenchData::setAside(const QString &path)
{
    shell(QStringLiteral("[ ! -e \"$1\" ] || { mkdir -p \"$2\"; mv \"$1\" \"$2/$(date +%s%N)\"; }"),
          {path, folder() + QLatin1String("/aside")});
}

void BenchData::describeRepository(const QString &path)
{
    setAside(path);
    write(
        path + QLatin1String("/conf/distributions"),
        "Codename: dogwood\nSuite: stable\nArchitectures: amd64 arm64\nComponents: main contrib non-free\n");
}

void BenchData::copyRepository(const QString &from, const QString &to)
{
    setAside(to);
    shell(QStringLiteral("mkdir \"$2\"; cd \"$1\"\n"
                         "cp -a conf db dists \"$2\"; [ ! -e pool ] || cp -al pool \"$2\"; sync -f \"$2\""),
          {from, to});
}

BenchData::PackageSet BenchData::oldPackages()
{
    return {QStringLiteral("old"), 5000};
}

BenchData::PackageSet BenchData::newPackages()
{
    return {QStringLiteral("new"), 1000};
}

BenchData::PackageSet BenchData::newerPackages()
{
    return {QStringLiteral("new"), 500, QStringLiteral("2.0")};
}

QString BenchData::madeRepository(const QVector<PackageSet> &sets)
{
    QString path = folder() + QLatin1String("/made");
    for (const PackageSet &set : sets)
        path += QLatin1Char('-') + set.name + set.version;
    if (QDir(path).exists())
        return path;
    const QString made = path + QLatin1String(".new");
    describeRepository(made);
    for (const PackageSet &set : sets) {
        packages(set);
        // Not all of them fit into one list of arguments.
        shell(QStringLiteral(
                  "cd \"$2\"; printf '%s\\0' *.deb |\n"
                  "    xargs -0 -s 1000000 reprepro -s --export=silent-never -b \"$1\" includedeb dogwood"),
              {made, packagesFolder(set)});
    }
    shell(QStringLiteral("reprepro -s -b \"$1\" export; mv \"$1\" \"$2\""), {made, path});
    return path;
}

QString BenchData::changeableRepository(const QVector<PackageSet> &sets)
{
    QString path = folder() + QLatin1String("/changed");
    copyRepository(madeRepository(sets), path);
    return path;
}

int BenchData::poolFiles(const QString &repository, const QString &pattern)
{
    const QString found = shell(QStringLiteral("find \"$1/pool\" -name \"$2\""), {repository, pattern});
    return countOf(found.split(QLatin1Char('\n'), Qt::SkipEmptyParts));
}

void BenchData::write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray BenchData::noise(int size, int seed)
{
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

QString BenchData::shell(const QString &script, const QStringList &arguments, const QStringList &environment)
{
    const ProcessResult result
        = runProcess({QStringLiteral("bash"),
                      QStringList{QStringLiteral("-euc"), script, QStringLiteral("bash")} + arguments,
                      {},
                      environment,
                      -1});
    if (!result.succeeded())
        qFatal("%s: %s", qPrintable(script), qPrintable(result.errorOutput));
    return result.output;
}

double BenchData::peakMegabytes()
{
    return peak(RUSAGE_SELF);
}

double BenchData::peakMegabytesOfPrograms()
{
    return peak(RUSAGE_CHILDREN);
}
