// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/control/listsfetch.h"

#include <QCoreApplication>
#include <QList>

#include <functional>

class PublicCandidates;
struct JobContext;

/** Checks whether the dependencies of packages can be met; the records with the results go out as changed packages. */
class CheckJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit CheckJob(JobContext &context)
        : m_context(context)
    { }

    int run(const QList<PackageInfoPtr> &packages);
    /** Checks those of the packages that are in the repository, as a step of another job. */
    void checkPresent(const QList<PackageInfoPtr> &packages);
    /** The sources that the user added, with lists as new as wanted, as far as the sources can be reached. */
    AddedSources addedSources(ListsFetch::When when);
    /** Tells that apt could not be asked, or has no sources. */
    void tellAptFailure(PublicCandidates *sources);
    /** Tells that apt could not be asked about these architectures, if there are any. */
    void tellUnknownArchitectures(const QStringList &architectures);

private:
    JobContext &m_context;

    /** When lists are fetched for a check against what the user has chosen. */
    ListsFetch::When ifPublic(ListsFetch::When when) const;
    int checkRecords(const QList<PackageInfoPtr> &records,
                     const AddedSources &added,
                     const std::function<void()> &itemDone = {});
    bool mustStop() const;
};
