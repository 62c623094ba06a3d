// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/upgraderules.h"

#include "apt/aptcommands.h"
#include "apt/versionorder.h"
#include "core/countof.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace
{
/** apt does not show a package's own architecture, but the file's name does. */
bool isForAll(const AptPackageRecord &record)
{
    return record.file.endsWith(QLatin1String("_all.deb"));
}

bool isNewer(const QString &version, const QString &than)
{
    return VersionOrder::holds(version, QStringLiteral(">>"), than);
}

/** The greatest version that is newer than the package and can take its place; null when there is none. */
const AptPackageRecord *successor(const PackageInfo &package,
                                  const QVector<const AptPackageRecord *> &records)
{
    const AptPackageRecord *best = nullptr;
    for (const AptPackageRecord *record : records) {
        if ((record->architecture == package.architecture || isForAll(*record))
            && isNewer(record->version, best == nullptr ? package.version : best->version))
            best = record;
    }
    return best;
}

bool isRecordOf(const AptPackageRecord &record, const UpgradablePackage &package)
{
    return record.name == package.name && record.version == package.newVersion
           && record.architecture == package.fetchArchitecture
           && (isForAll(record) || record.architecture == package.architecture);
}
} // namespace

namespace UpgradeRules
{
QStringList questions(const QList<PackageInfoPtr> &packages, const QString &ownArchitecture)
{
    QStringList words;
    QSet<QString> known;
    for (const PackageInfoPtr &package : packages) {
        if (package->type != PackageType::Deb || !AptCommands::isPackageName(package->name))
            continue;
        for (const QString &architecture : {ownArchitecture, package->architecture}) {
            const QString word = package->name + QLatin1Char(':') + architecture;
            if (!AptCommands::isArchitecture(architecture) || known.contains(word))
                continue;
            known.insert(word);
            words.append(word);
        }
    }
    return words;
}

QVector<UpgradablePackage> upgradable(const QList<PackageInfoPtr> &packages,
                                      const QVector<AptPackageRecord> &records)
{
    QHash<QString, QVector<const AptPackageRecord *>> byName;
    for (const AptPackageRecord &record : records)
        byName[record.name].append(&record);
    QVector<UpgradablePackage> result;
    for (const PackageInfoPtr &package : packages) {
        if (package->type != PackageType::Deb)
            continue;
        const AptPackageRecord *record = successor(*package, byName.value(package->name));
        if (record != nullptr)
            result.append({package->name,
                           package->architecture,
                           package->indexComponent,
                           package->version,
                           record->version,
                           record->repository,
                           record->architecture,
                           package->ownArchitecture()});
    }
    return result;
}

bool isOffered(const UpgradablePackage &package, const QVector<AptPackageRecord> &records)
{
    return std::any_of(records.cbegin(), records.cend(), [&package](const AptPackageRecord &record) {
        return isRecordOf(record, package);
    });
}

LocalFile localFile(const UpgradablePackage &package, const QVector<AptPackageRecord> &records)
{
    const QLatin1String scheme("file:");
    for (const AptPackageRecord &record : records) {
        const QString folder = record.repository.section(QLatin1Char(' '), 0, 0);
        // Such an address stands for another path.
        const bool isPlain = folder.startsWith(scheme) && !folder.contains(QLatin1Char('%'));
        if (isPlain && isRecordOf(record, package)
            && !record.file.split(QLatin1Char('/')).contains(QLatin1String("..")))
            return {folder.mid(scheme.size()) + QLatin1Char('/') + record.file, record.sha256.toLatin1()};
    }
    return {};
}

QVector<QVector<UpgradablePackage>> byFile(const QVector<UpgradablePackage> &packages)
{
    QVector<QVector<UpgradablePackage>> groups;
    QHash<QString, int> places;
    for (const UpgradablePackage &package : packages) {
        const QString key = package.name + QLatin1Char(' ') + package.newVersion + QLatin1Char(' ')
                            + package.fetchArchitecture;
        const auto place = places.constFind(key);
        if (place != places.cend()) {
            groups[*place].append(package);
            continue;
        }
        places.insert(key, countOf(groups));
        groups.append({package});
    }
    return groups;
}
} // namespace UpgradeRules
