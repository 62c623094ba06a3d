// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/changes/jobframe.h"
#include "engine/installability/baseoffers.h"
#include "installability/completecheckrecord.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>

#include <functional>

class CheckedSystem;
class InstallabilityCheck;

/**
 * Finds out which packages can really be installed, and why the others cannot. Each architecture of the repository is a
 * system of its own. The records with the results go out as changed packages.
 */
class CompleteCheckJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Gets what the check was made of, after the results are in the list of packages. */
    using Keep = std::function<void(const CompleteCheckRecord &record)>;

    /** `previous` is the check whose results the packages have now. */
    CompleteCheckJob(JobContext &context, CompleteCheckRecord previous, Keep keep);

    int run(const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base);

private:
    JobContext &m_context;
    CompleteCheckRecord m_previous;
    Keep m_keep;
    QHash<PackageInfoPtr, QSharedPointer<const InstallabilityInfo>>
        m_results; ///< of the records as they were
    QHash<int, int> m_counts; ///< by Installability
    int m_leftOut = 0; ///< installer packages of which nothing can be said

    void checkSystem(const CheckedSystem &system, const QVector<int> &asked, bool isComplete);
    void takeResults(const CheckedSystem &system,
                     const QVector<int> &asked,
                     bool isComplete,
                     InstallabilityCheck &check);
    void publish(bool keepsOthers);
    void tellUnknownArchitectures(const BaseOffers &offers);
    bool mustStop() const;
};
