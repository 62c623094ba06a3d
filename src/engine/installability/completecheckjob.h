// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "installability/completecheckbase.h"

#include <QCoreApplication>
#include <QList>

struct JobContext;

/**
 * Finds out which packages can really be installed, and why the others cannot. The records with the results go out as
 * changed packages.
 */
class CompleteCheckJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit CompleteCheckJob(JobContext &context)
        : m_context(context)
    { }

    int run(const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base);

private:
    JobContext &m_context;
};
