// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/addoptions.h"
#include "engine/upgrade/upgraderules.h"

#include <QCoreApplication>
#include <QVector>

struct JobContext;
class UpgradeSources;

/** Replaces packages with the versions that were found for them. */
class UpgradeJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    UpgradeJob(JobContext &context, UpgradeSources &sources)
        : m_context(context)
        , m_sources(sources)
    { }

    int run(const QVector<UpgradablePackage> &packages, const AddOptions &options);

private:
    struct Run;

    JobContext &m_context;
    UpgradeSources &m_sources;

    QVector<UpgradablePackage> packagesToUpgrade(const QVector<UpgradablePackage> &kept);
    ErrorCode askAgain(const QVector<QVector<UpgradablePackage>> &groups, Run *run);
    bool mustStop();
    void upgradeFrom(const QVector<UpgradablePackage> &group, Run *run);
    PackageFile fetch(const UpgradablePackage &wanted, const Run &run);
    QList<PackageInfoPtr> replacedBy(const PackageFile &file, const QVector<UpgradablePackage> &group) const;
};
