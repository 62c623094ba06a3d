// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptoutput.h"
#include "core/packageinfo.h"
#include "engine/upgrade/localfiles.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

/** A package of the repository and the newer version that a source offers for it. */
struct UpgradablePackage
{
    QString name;
    QString architecture; ///< of the index that lists the package
    QString component; ///< likewise; the new version goes there too
    QString oldVersion;
    QString newVersion;
    QString source; ///< origin text: URI, suite and architecture
    QString fetchArchitecture; ///< of the question to apt for the file
    QString ownArchitecture = {}; ///< for which the old version was built, "all" for many; for the user

    friend bool operator==(const UpgradablePackage &a, const UpgradablePackage &b)
    {
        return a.name == b.name && a.architecture == b.architecture && a.component == b.component
               && a.oldVersion == b.oldVersion && a.newVersion == b.newVersion && a.source == b.source
               && a.fetchArchitecture == b.fetchArchitecture;
    }
};

/** The questions of an upgrade to apt, and the choice among the versions on offer. */
namespace UpgradeRules
{
/**
 * The packages to ask apt about, as name:architecture, each once. `ownArchitecture` is apt's, under which it files the
 * packages for all architectures. Packages of the installer and names that apt cannot be asked for are left out.
 */
QStringList questions(const QList<PackageInfoPtr> &packages, const QString &ownArchitecture);

/**
 * For each package the greatest version on offer for its architecture, when that is greater than the package's own; in
 * the packages' order. A package for all architectures is on offer for each.
 */
QVector<UpgradablePackage> upgradable(const QList<PackageInfoPtr> &packages,
                                      const QVector<AptPackageRecord> &records);

/** Whether the version that was chosen is among the records. */
bool isOffered(const UpgradablePackage &package, const QVector<AptPackageRecord> &records);

/** The file of the chosen version, when its source is on this computer; else nothing. */
LocalFile localFile(const UpgradablePackage &package, const QVector<AptPackageRecord> &records);

/** Groups what one file serves: the same version of a package, fetched for the same architecture. */
QVector<QVector<UpgradablePackage>> byFile(const QVector<UpgradablePackage> &packages);
} // namespace UpgradeRules

Q_DECLARE_METATYPE(UpgradablePackage)
