// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagenames.h"

QString PackageNames::suffix(PackageType type)
{
    return type == PackageType::Udeb ? QStringLiteral("udeb") : QStringLiteral("deb");
}

PackageType PackageNames::typeOfSuffix(const QString &suffix)
{
    return suffix == QLatin1String("udeb") ? PackageType::Udeb : PackageType::Deb;
}

PackageType PackageNames::typeOfFile(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".udeb")) ? PackageType::Udeb : PackageType::Deb;
}

bool PackageNames::isPackageFile(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".deb")) || fileName.endsWith(QLatin1String(".udeb"));
}

bool PackageNames::isInRestorePoint(const QString &path)
{
    const QStringList folders = path.split(QLatin1Char('/'));
    for (int i = 1; i < folders.size(); ++i) {
        static const QStringList names{QStringLiteral("velt-admin-repo.history"),
                                       QStringLiteral("velt-admin-repo.before"),
                                       QStringLiteral("velt-admin-repo.kept")};
        if (folders.at(i - 1) == QLatin1String("db") && names.contains(folders.at(i)))
            return true;
    }
    return false;
}

QString PackageNames::poolFile(const PackageInfo &package, const QString &controlArchitecture)
{
    // "Source: name (version)" is present only when the source name or version differs from the package.
    QString source = package.control.field("Source").section(QLatin1Char(' '), 0, 0);
    if (source.isEmpty())
        source = package.name;
    const bool library = source.startsWith(QLatin1String("lib")) && source.size() > 3;
    // The epoch is not part of a file name.
    const QString version = package.version.mid(package.version.indexOf(QLatin1Char(':')) + 1);
    const QString folder
        = QStringLiteral("pool/%1/%2/%3").arg(package.component, source.left(library ? 4 : 1), source);
    return QStringLiteral("%1/%2_%3_%4.%5")
        .arg(folder, package.name, version, controlArchitecture, suffix(package.type));
}
