// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/changes/addoptions.h"
#include "engine/gathering/gatherplan.h"

#include <QCoreApplication>

#include <functional>

struct JobContext;

/** Fetches all that packages of the repository lack: the search for it, and the fetching. */
class GatherJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(GatherJob)
public:
    explicit GatherJob(JobContext &context)
        : m_context(context)
    { }

    /** Finds out what the packages lack, in the sources that count. Nothing is published after a stop or an error. */
    int find(const QList<PackageInfoPtr> &packages,
             const QString &component,
             const std::function<void(const GatherPlan &plan)> &publish);
    /**
     * Fetches and adds these packages of the plan, checks the dependencies anew of those that were asked about and that
     * are not known to have all, and tells what is left.
     */
    int fetch(const GatherPlan &plan, const QList<PackageInfo> &packages, const AddOptions &options);

private:
    JobContext &m_context;

    QList<PackageInfoPtr> unsettled(const GatherPlan &plan) const;
    /** Tells what is left, and returns the short form of it. */
    QString tellLeft(const GatherPlan &plan);
};
