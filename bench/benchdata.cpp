// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchdata.h"

#include "core/processutils.h"

#include <KTar>

#include <QBuffer>
#include <QDir>
#include <QFile>

#include <random>

#include <sys/resource.h>

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

/** Builds a package by hand, because dpkg-deb would take a minute for five thousand. */
QByteArray package(const QString &name, const QString &section, const QByteArray &data)
{
    // As long as the average record of Debian's main index, because the time depends on the size of the indices.
    const QString description
        = QStringLiteral(" This package holds nothing of use. It is there to be counted and carried.\n")
              .repeated(4);
    const QString control
        = QStringLiteral(
              "Package: %1\nVersion: 1.0\nArchitecture: amd64\nMaintainer: B <b@example.org>\n"
              "Section: %2\nPriority: optional\nInstalled-Size: 120\n"
              "Depends: libc6 (>= 2.34), libgcc-s1 (>= 3.0), libstdc++6 (>= 11), zlib1g (>= 1:1.2.0)\n"
              "Homepage: https://example.org/benchmark\nDescription: package to measure with\n%3")
              .arg(name, section, description);
    return "!<arch>\n" + arMember("debian-binary", "2.0\n")
           + arMember("control.tar", tarball(QStringLiteral("./control"), control.toUtf8()))
           + arMember("data.tar", tarball(QStringLiteral("./usr/share/%1/data").arg(name), data));
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

QStringList BenchData::packages(const QString &prefix, int count, int dataSize)
{
    const QDir dir(folder() + QLatin1Char('/') + prefix);
    QStringList files;
    for (int i = 0; i < count; ++i) {
        const QString name = prefix + QString::number(i);
        files.append(dir.filePath(name + QLatin1String("_1.0_amd64.deb")));
        if (!QFile::exists(files.last()))
            write(files.last(),
                  package(
                      name, i % 3 == 0 ? QStringLiteral("libs") : QStringLiteral("admin"), noise(dataSize)));
    }
    return files;
}

void BenchData::describeRepository(const QString &path)
{
    QDir(path).removeRecursively();
    write(path + QLatin1String("/conf/distributions"),
          "Codename: dogwood\nSuite: stable\nArchitectures: amd64\nComponents: main contrib non-free\n");
}

void BenchData::write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray BenchData::noise(int size)
{
    static std::mt19937 random;
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
