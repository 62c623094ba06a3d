// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>
#include <QStringList>

struct JobContext;
class UpgradeSources;

/** Looks for newer versions of the repository's packages. */
class PrepareUpgradeJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    PrepareUpgradeJob(JobContext &context, UpgradeSources &sources)
        : m_context(context)
        , m_sources(sources)
    { }

    int run(const QStringList &sources);

private:
    JobContext &m_context;
    UpgradeSources &m_sources;
};
