// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"

#include <QCoreApplication>
#include <QList>

struct JobContext;

/** Removes packages from the repository. */
class RemoveJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit RemoveJob(JobContext &context)
        : m_context(context)
    { }

    int run(const QList<PackageInfoPtr> &packages);

private:
    JobContext &m_context;

    QList<PackageInfoPtr> withoutReplaced(const QList<PackageInfoPtr> &packages);
};
