// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/reprolisting.h"

#include "core/packagenames.h"
#include "core/textviews.h"

PackageType ReproListing::Package::type() const
{
    return PackageNames::typeOfFile(file);
}

QtVersions::HashValue ReproListing::qHash(const Package &package, QtVersions::HashValue seed)
{
    return ::qHash(package.file, seed) ^ (::qHash(package.architecture, seed) * 31U);
}

QVector<ReproListing::Package> ReproListing::packages(const QString &output)
{
    QVector<Package> packages;
    const auto lines = splitView(output, QLatin1Char('\n'), Qt::SkipEmptyParts);
    packages.reserve(lines.size());
    for (const QStringView line : lines) {
        // A blank can stand in the name of the file, and in none of the words before it.
        const auto component = line.indexOf(QLatin1Char(' '));
        const auto architecture = component < 0 ? -1 : line.indexOf(QLatin1Char(' '), component + 1);
        const auto name = architecture < 0 ? -1 : line.indexOf(QLatin1Char(' '), architecture + 1);
        if (name < 0)
            continue;
        packages.append({line.left(component).toString(),
                         line.mid(component + 1, architecture - component - 1).toString(),
                         line.mid(architecture + 1, name - architecture - 1).toString(),
                         line.mid(name + 1).toString()});
    }
    return packages;
}

QStringList ReproListing::files(const QString &output)
{
    return output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QHash<QString, QByteArray> ReproListing::checksums(const QString &output)
{
    // FILE :1:SHA1 :2:SHA256 MD5 SIZE, with more or fewer of the marked words
    const QLatin1String mark(" :2:");
    QHash<QString, QByteArray> checksums;
    const auto lines = splitView(output, QLatin1Char('\n'), Qt::SkipEmptyParts);
    checksums.reserve(lines.size());
    for (const QStringView line : lines) {
        QByteArray sum;
        if (const auto begin = line.indexOf(mark); begin >= 0)
            sum = line.mid(begin + mark.size()).toLatin1();
        sum.truncate(sum.contains(' ') ? sum.indexOf(' ') : sum.size());
        checksums.insert(line.left(line.indexOf(QLatin1Char(' '))).toString(), sum);
    }
    return checksums;
}

QString ReproListing::reference(const QString &codename, const Package &package)
{
    const QString kind = package.type() == PackageType::Udeb ? QStringLiteral("u|") : QString();
    return QStringLiteral("%1%2|%3|%4 %5")
        .arg(kind, codename, package.component, package.architecture, package.file);
}
