// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>

struct JobContext;

/** Deletes the restore points that are more than the user's limits allow. */
class PruneJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit PruneJob(JobContext &context)
        : m_context(context)
    { }

    int run();

private:
    JobContext &m_context;
};
