// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reprepro/reprolisting.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>
#include <QVector>

#include <optional>

struct JobContext;

/**
 * What other programs have changed in the database since the running point was made. When the point is put back, these
 * changes are made again. What the job itself has changed is known from its marker.
 */
class ForeignChanges
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Compares the database with the running point. Nothing when the database cannot be read. */
    static std::optional<ForeignChanges> find(JobContext &context, const QStringList &filesOfJob);
    /** What toText() has made of changes. Lines that have no sense are passed over. */
    static ForeignChanges fromText(const QByteArray &text);
    QByteArray toText() const;

    bool isEmpty() const { return m_added.isEmpty() && m_removed.isEmpty(); }
    /**
     * Makes the changes in the database that was put back, as far as it lacks them, without writing indices. Packages
     * whose files are gone cannot be added. What else fails is told.
     */
    void redo(JobContext &context) const;

private:
    QVector<ReproListing::Package> m_added;
    QVector<ReproListing::Package> m_removed;
};
