// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>

struct JobContext;

/** Reads the open repository again, and tells what another program has changed in it. */
class ReloadJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit ReloadJob(JobContext &context)
        : m_context(context)
    { }

    int run();

private:
    JobContext &m_context;
};
