// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/history/packagechange.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

struct JobContext;

/** Adds an earlier version of a package again, from the file that the history keeps. It replaces any other version. */
class BringBackJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit BringBackJob(JobContext &context)
        : m_context(context)
    { }

    /** Brings back `change.before`, which the repository had in the state before the point with this number. */
    int run(int point, const PackageChange &change);
    /** Absolute paths of the files of `before`; none, after critical(), when one is missing or is another one. */
    QStringList filesOf(int point, const QVector<PackageChange> &changes);

private:
    JobContext &m_context;
};
