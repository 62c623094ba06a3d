// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QStringList>

struct JobContext;

/** Adds package files to the repository. */
class AddJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit AddJob(JobContext &context)
        : m_context(context)
    { }

    int run(const QStringList &files, const AddOptions &options);

private:
    JobContext &m_context;
};
