// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/addoptions.h"
#include "engine/upgrade/upgraderules.h"

#include <QCoreApplication>
#include <QVector>

#include <memory>

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
    struct Block;

    JobContext &m_context;
    UpgradeSources &m_sources;
    std::shared_ptr<const DecidedPlaces> m_decided; ///< see AddOptions

    QVector<UpgradablePackage> packagesToUpgrade(const QVector<UpgradablePackage> &kept);
    ErrorCode askAgain(const QVector<QVector<UpgradablePackage>> &groups, Run *run);
    bool mustStop();
    /** Starts to fetch the files of some of the groups. */
    Block begin(const QVector<QVector<UpgradablePackage>> &groups, Run *run);
    /** The files of a block; those that have not come are empty. */
    QVector<PackageFile> filesOf(const Block &block, Run *run);
    void takeFetched(const Block &block, QVector<PackageFile> *taken, Run *run);
    void
    upgradeTogether(const QVector<QVector<UpgradablePackage>> &groups, QVector<PackageFile> files, Run *run);
    /** Files in place that a shared run has not put in become copies of our own. */
    void includeTogether(const QVector<QVector<UpgradablePackage>> &groups,
                         int first,
                         QVector<PackageFile> *files,
                         Run *run);
    void upgradeFrom(const QVector<UpgradablePackage> &group, const PackageFile &fetched, Run *run);
    PackageFile fetch(const UpgradablePackage &wanted, const Run &run);
    /** The file's future records in the repository, one for each package that it replaces. */
    QVector<PackageInfo> recordsOf(const PackageFile &file, const QVector<UpgradablePackage> &group) const;
    QList<PackageInfoPtr> replacedBy(const PackageFile &file, const QVector<UpgradablePackage> &group) const;
};
