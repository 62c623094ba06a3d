// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchdata.h"

#include "core/processutils.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/resource.h>

namespace
{
void write(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

QString run(const QString &program, const QStringList &arguments)
{
    const ProcessResult result = runProcess({program, arguments, {}, {}, -1});
    if (!result.succeeded())
        qFatal("%s: %s", qPrintable(program), qPrintable(result.errorOutput));
    return result.output;
}
} // namespace

QString BenchData::folder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

QString BenchData::packagesFile()
{
    static const QString file = [] {
        const QDir lists(QStringLiteral("/var/lib/apt/lists"));
        const QStringList found = lists.entryList(
            {QStringLiteral("*_debian_dists_*_main_binary-*_Packages*")}, QDir::Files, QDir::Size);
        if (found.isEmpty())
            qFatal("apt has no lists here; run apt-get update first");
        // The lists may be compressed in any of apt's ways; its helper reads them all.
        const QString text = run(QStringLiteral("/usr/lib/apt/apt-helper"),
                                 {QStringLiteral("cat-file"), lists.filePath(found.first())});
        const QString path = folder() + QLatin1String("/Packages");
        write(path, text.toLocal8Bit());
        return path;
    }();
    return file;
}

QString BenchData::largeRepository()
{
    static const QString path = [] {
        const QString repository = folder() + QLatin1String("/large");
        write(repository + QLatin1String("/conf/distributions"),
              "Origin: Debian\nCodename: bookworm\nSuite: stable\nVersion: \nArchitectures: amd64\n"
              "Components: main\nUDebComponents: main\n");
        QDir().mkpath(repository + QLatin1String("/dists/bookworm/main/binary-amd64"));
        if (!QFile::copy(packagesFile(),
                         repository + QLatin1String("/dists/bookworm/main/binary-amd64/Packages")))
            qFatal("cannot copy the index");
        return repository;
    }();
    return path;
}

QString BenchData::smallPackages(const QString &prefix, int count)
{
    const QString target = folder() + QLatin1Char('/') + prefix;
    QDir().mkpath(target);
    const QString tree = folder() + QLatin1String("/tree");
    // As long as the average record of Debian's main index, since it is the indices' size that takes time.
    const QString description
        = QStringLiteral(" This package holds nothing of use. It is there to be counted and carried.\n")
              .repeated(4);
    for (int i = 0; i < count; ++i) {
        const QString name = prefix + QString::number(i);
        write(tree + QLatin1String("/DEBIAN/control"),
              QStringLiteral(
                  "Package: %1\nVersion: 1.0\nArchitecture: amd64\nMaintainer: B <b@example.org>\n"
                  "Section: %2\nPriority: optional\nInstalled-Size: 120\n"
                  "Depends: libc6 (>= 2.34), libgcc-s1 (>= 3.0), libstdc++6 (>= 11), zlib1g (>= 1:1.2.0)\n"
                  "Homepage: https://example.org/benchmark\nDescription: package to measure with\n%3")
                  .arg(name, i % 3 == 0 ? QStringLiteral("libs") : QStringLiteral("admin"), description)
                  .toLatin1());
        run(QStringLiteral("dpkg-deb"),
            {QStringLiteral("--root-owner-group"),
             QStringLiteral("-Znone"),
             QStringLiteral("-b"),
             tree,
             QStringLiteral("%1/%2_1.0_amd64.deb").arg(target, name)});
    }
    QDir(tree).removeRecursively();
    return target;
}

double BenchData::peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}
