// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/storedcompletecheck.h"

#include "installability/packagesdigest.h"

#include <algorithm>

StoredCompleteCheck StoredCompleteCheck::of(const QList<PackageInfoPtr> &packages,
                                            const CompleteCheckRecord &record)
{
    StoredCompleteCheck check;
    check.record = record;
    for (const PackageInfoPtr &package : packages) {
        if (package->installabilityState() == InstallabilityUnknown)
            continue;
        const quint64 number = PackagesDigest::of(*package);
        const InstallabilityInfo &info = *package->installability;
        check.checked.push_back(number);
        if (info.state != Installable || !info.unmetRecommends.isEmpty())
            check.findings.insert(number, package->installability);
    }
    std::sort(check.checked.begin(), check.checked.end());
    return check;
}

QList<PackageInfoPtr> StoredCompleteCheck::merged(const QList<PackageInfoPtr> &packages) const
{
    if (isEmpty())
        return packages;
    QList<PackageInfoPtr> result;
    result.reserve(packages.size());
    for (const PackageInfoPtr &package : packages) {
        const auto info = find(*package);
        if (!info || info == package->installability) {
            result.append(package);
            continue;
        }
        const auto changed = QSharedPointer<PackageInfo>::create(*package);
        changed->installability = info;
        result.append(changed);
    }
    return result;
}

QSharedPointer<const InstallabilityInfo> StoredCompleteCheck::find(const PackageInfo &package) const
{
    // One for all that can be installed.
    static const auto installable = [] {
        const auto info = QSharedPointer<InstallabilityInfo>::create();
        info->state = Installable;
        return QSharedPointer<const InstallabilityInfo>(info);
    }();
    const quint64 number = PackagesDigest::of(package);
    if (!std::binary_search(checked.cbegin(), checked.cend(), number))
        return {};
    const auto finding = findings.constFind(number);
    if (finding == findings.cend())
        return installable;
    // A finding that could not be read says nothing.
    return (*finding)->state == InstallabilityUnknown ? QSharedPointer<const InstallabilityInfo>() : *finding;
}
