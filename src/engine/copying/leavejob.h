// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

struct JobContext;

/** The second half of a move: removes packages from this repository that are in another one now. */
class LeaveJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit LeaveJob(JobContext &context)
        : m_context(context)
    { }

    /**
     * Removes those of the packages of which the repository `target` lists the same version with the same file, byte
     * for byte. The others stay, and an error names them.
     */
    int run(const QList<PackageInfoPtr> &packages, const QString &target);

private:
    JobContext &m_context;

    QList<PackageInfoPtr> arrived(const QList<PackageInfoPtr> &packages, const QString &target);
};
