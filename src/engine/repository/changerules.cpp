// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/changerules.h"

#include "apt/versionorder.h"
#include "engine/repository/distributions.h"
#include "engine/repository/packagelist.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
/** The words of the list, separated by any white space, up to a comment. */
QStringList words(const QString &list)
{
    return list.section(QLatin1Char('#'), 0, 0).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList without(const QStringList &list, const QStringList &others)
{
    QStringList left;
    std::copy_if(list.cbegin(), list.cend(), std::back_inserter(left), [&](const QString &entry) {
        return !others.contains(entry);
    });
    return left;
}

QString united(const QString &first, const QString &second)
{
    return (words(first) + without(words(second), words(first))).join(QLatin1Char(' '));
}

bool isForAll(const PackageInfo &package)
{
    return package.ownArchitecture() == QLatin1String("all");
}
} // namespace

bool RepoChange::dropsPlaces() const
{
    return isRenaming() || !without(words(before.architectures), words(after.architectures)).isEmpty()
           || !without(words(before.components), words(after.components)).isEmpty();
}

bool RepoChange::keepsPlace(const PackageInfo &package) const
{
    return (carries || !isRenaming()) && after.componentList().contains(package.indexComponent)
           && after.architectureList().contains(package.architecture);
}

QList<PackageInfoPtr> RepoChange::lost(const QList<PackageInfoPtr> &packages) const
{
    const bool keepsAny = carries || !isRenaming();
    const bool floods = !floodedArchitectures(packages).isEmpty();
    const QStringList components = after.componentList();
    const QStringList architectures = after.architectureList();
    QSet<QString> done;
    for (const PackageInfoPtr &package : packages)
        if (keepsAny && components.contains(package->indexComponent)
            && (architectures.contains(package->architecture) || (floods && isForAll(*package))))
            done.insert(package->filePath());
    QList<PackageInfoPtr> lost;
    for (const PackageInfoPtr &package : packages) {
        if (done.contains(package->filePath()))
            continue;
        done.insert(package->filePath());
        lost.append(package);
    }
    return lost;
}

QStringList RepoChange::floodedArchitectures(const QList<PackageInfoPtr> &packages) const
{
    const bool isWanted
        = (carries || !isRenaming())
          && std::any_of(packages.cbegin(), packages.cend(), [this](const PackageInfoPtr &package) {
                 return isForAll(*package) && after.componentList().contains(package->indexComponent);
             });
    return isWanted ? without(after.binaryArchitectures(), before.binaryArchitectures()) : QStringList();
}

QList<PackageInfoPtr> RepoChange::flooded(const QList<PackageInfoPtr> &packages) const
{
    const QStringList architectures = floodedArchitectures(packages);
    if (architectures.isEmpty())
        return {};
    const QStringList components = after.componentList();
    QHash<PackageKey, PackageInfoPtr> newest;
    QVector<PackageKey> order;
    for (const PackageInfoPtr &package : packages) {
        if (!isForAll(*package) || !components.contains(package->indexComponent))
            continue;
        PackageKey key = PackageKey::of(*package);
        key.architecture.clear();
        const PackageInfoPtr known = newest.value(key);
        if (!known)
            order.append(key);
        if (!known || VersionOrder::compare(package->version, known->version) > 0)
            newest.insert(key, package);
    }
    QList<PackageInfoPtr> copies;
    for (const QString &architecture : architectures)
        for (const PackageKey &key : std::as_const(order)) {
            const auto copy = QSharedPointer<PackageInfo>::create(*newest.value(key));
            copy->architecture = architecture;
            copies.append(copy);
        }
    return copies;
}

QList<PackageInfoPtr> RepoChange::left(const QList<PackageInfoPtr> &packages) const
{
    QList<PackageInfoPtr> left;
    std::copy_if(packages.cbegin(),
                 packages.cend(),
                 std::back_inserter(left),
                 [this](const PackageInfoPtr &package) { return keepsPlace(*package); });
    return left + flooded(packages);
}

QByteArray RepoChange::bridge(const QByteArray &old) const
{
    RepoInfo both = after;
    both.architectures = united(before.architectures, after.architectures);
    both.components = united(before.components, after.components);
    const QByteArray text = Distributions::text(both).toUtf8();
    return isRenaming() ? old + "\n\n" + text : text;
}
