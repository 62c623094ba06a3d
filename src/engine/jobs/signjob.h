// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"

#include <QCoreApplication>
#include <QList>

struct JobContext;
class PackageAdding;

/** Puts signed copies of packages' files into their places. */
class SignJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit SignJob(JobContext &context)
        : m_context(context)
    { }

    int run(const QList<PackageInfoPtr> &packages, const QString &keyId);

private:
    JobContext &m_context;

    bool signPackage(const PackageInfoPtr &package, PackageAdding *adding) const;
};
