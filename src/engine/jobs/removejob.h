// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/reprepro/reprolisting.h"

#include <QCoreApplication>
#include <QList>
#include <QVector>

#include <functional>
#include <optional>

struct JobContext;

/** Removes packages from the repository. */
class RemoveJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit RemoveJob(JobContext &context)
        : m_context(context)
    { }

    using Choice = std::function<QList<PackageInfoPtr>(const QList<PackageInfoPtr> &packages)>;
    /** `choice` says, when no other job can change the repository any more, which of the packages really go. */
    int run(const QList<PackageInfoPtr> &wanted, const Choice &choice = {});

private:
    JobContext &m_context;

    /** What the database has of these packages' names, and perhaps more; nothing when it cannot be read. */
    std::optional<QVector<ReproListing::Package>> present(const QList<PackageInfoPtr> &packages);
    /** Tells why present() has found out nothing. */
    void tellUnread();
    /** The packages without those of which the database has another file; an error tells of these. */
    QList<PackageInfoPtr> withoutReplaced(const QList<PackageInfoPtr> &packages,
                                          const QVector<ReproListing::Package> &present);
};
