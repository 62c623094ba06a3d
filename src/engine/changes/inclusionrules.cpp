// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/inclusionrules.h"

#include "apt/versionorder.h"
#include "core/packagenames.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace
{
QString advice()
{
    return QLatin1Char(' ')
           + InclusionRules::tr(
               "Choose another component when you add the package, or change the repository.");
}
} // namespace

InclusionRules::Target
InclusionRules::Target::of(const QString &path, const RepoInfo &info, const QString &component)
{
    const QString text = QString::fromUtf8(DistributionsFile(path).readBytes().value_or(QByteArray()));
    const QString installer
        = Distributions::fieldValue(text.split(QLatin1Char('\n')), QStringLiteral("UDebComponents"));
    return {path,
            info,
            !text.isEmpty() && Distributions::unreadLine(text).isEmpty(),
            installer.split(QLatin1Char(' '), Qt::SkipEmptyParts),
            component};
}

QVector<PackageInfo> InclusionRules::records(const PackageInfo &package, const Target &target)
{
    QStringList architectures = target.info.binaryArchitectures();
    if (package.architecture != QLatin1String("all")) {
        const bool isThere = architectures.contains(package.architecture);
        architectures.clear();
        // reprepro understands descriptions that this program does not read fully.
        if (isThere || !target.isDescriptionRead)
            architectures.append(package.architecture);
    }
    QVector<PackageInfo> records;
    for (const QString &architecture : std::as_const(architectures)) {
        PackageInfo record = package;
        record.architecture = architecture;
        record.root = target.path;
        if (!target.component.isEmpty())
            record.component = target.component;
        record.indexComponent = record.component;
        record.poolFile = PackageNames::poolFile(record, package.architecture);
        records.append(record);
    }
    return records;
}

RepositoryExtension InclusionRules::lacking(const PackageInfo &package, const Target &target)
{
    RepositoryExtension lacking;
    if (!target.isDescriptionRead)
        return lacking;
    const QString &architecture = package.architecture;
    if (architecture != QLatin1String("all") && !target.info.binaryArchitectures().contains(architecture))
        lacking.architectures.append(architecture);
    const QString &component = target.component.isEmpty() ? package.component : target.component;
    if (!target.info.componentList().contains(component))
        lacking.components.append(component);
    if (lacking.isEmpty())
        return lacking;
    const auto can = [](const QStringList &names, bool (*isGood)(const QString &)) {
        return std::all_of(names.cbegin(), names.cend(), isGood);
    };
    if (!can(lacking.architectures, &RepositoryExtension::canBeArchitecture)
        || !can(lacking.components, &RepositoryExtension::canBeComponent))
        return {};
    Target extended = target;
    extended.info = lacking.appliedTo(target.info);
    const auto records = InclusionRules::records(package, extended);
    return !records.isEmpty() && refusal(records.first(), extended).isEmpty() ? lacking
                                                                              : RepositoryExtension();
}

std::optional<RepoEnums::ErrorCode> InclusionRules::collision(const QString &version, const QString &present)
{
    if (VersionOrder::holds(version, QStringLiteral("="), present))
        return RepoEnums::PACKAGE_EXISTS;
    if (VersionOrder::holds(version, QStringLiteral(">>"), present))
        return RepoEnums::PACKAGE_EXISTS_OLD_VERSION;
    if (VersionOrder::holds(version, QStringLiteral("<<"), present))
        return RepoEnums::PACKAGE_EXISTS_NEW_VERSION;
    return std::nullopt;
}

QList<PackageInfoPtr> InclusionRules::inTheWay(const PackageInfo &present,
                                               const PackageInfo &record,
                                               const QStringList &architectures,
                                               const Find &find)
{
    QList<PackageInfoPtr> packages{find(PackageKey::of(present))};
    if (present.filePath() != record.filePath())
        return packages;
    // An architecture-independent package has one file for all architectures. While one of them uses the old file,
    // reprepro accepts no other contents under the name of the file.
    for (const QString &architecture : architectures) {
        PackageKey key = PackageKey::of(present);
        key.architecture = architecture;
        const PackageInfoPtr twin = find(key);
        if (twin && architecture != present.architecture && twin->filePath() == present.filePath())
            packages.append(twin);
    }
    return packages;
}

QString InclusionRules::refusal(const PackageInfo &record, const Target &target)
{
    // Other names of packages and sources are an error for reprepro.
    static const QRegularExpression plainName(QStringLiteral("^[a-z0-9][a-z0-9.+-]*$"));
    const QString source = record.control.field("Source").section(QLatin1Char(' '), 0, 0);
    for (const QString &name : {record.name, source.isEmpty() ? record.name : source})
        if (!plainName.match(name).hasMatch())
            return tr("A repository takes only names of small letters, digits and the characters + - . This "
                      "name has others: %1")
                .arg(name);
    if (!VersionOrder::holds(record.version, QStringLiteral("="), record.version))
        return tr("Its version is no valid one: %1").arg(record.version);
    if (!target.isDescriptionRead)
        return {};
    if (!target.info.componentList().contains(record.indexComponent))
        return componentRefusal(record.indexComponent, target.info);
    if (record.type == PackageType::Udeb && !target.udebComponents.contains(record.indexComponent))
        return installerRefusal(record.indexComponent);
    return {};
}

QString InclusionRules::architectureRefusal(const PackageInfo &package, const RepoInfo &info)
{
    return tr("The package is for the architecture %1, and the repository has these: %2.")
        .arg(package.architecture, info.binaryArchitectures().join(QLatin1String(", ")));
}

QString InclusionRules::componentRefusal(const QString &component, const RepoInfo &info)
{
    return tr("The package is for the component %1, and the repository has these: %2.")
               .arg(component, info.componentList().join(QLatin1String(", ")))
           + advice();
}

QString InclusionRules::installerRefusal(const QString &component)
{
    return tr("The component %1 of the repository takes no packages for the installer (.udeb).")
               .arg(component)
           + advice();
}
