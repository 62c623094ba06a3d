// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/removalimpact.h"
#include "ui/installability/backgroundquery.h"

#include <QObject>
#include <QTimer>
#include <QVector>

#include <optional>

/** Finds out in the background what would be lost without some packages, for the question before they are removed. */
class RemovalImpactSearch : public QObject
{
    Q_OBJECT
public:
    /** How long the question waits for the answer, in milliseconds. Nobody takes this time for a fault. */
    static constexpr int Patience = 1000;
    /** After this time in milliseconds the search is given up. */
    static constexpr int Longest = 30000;

    RemovalImpactSearch(const CheckScope &scope, const QList<PackageInfoPtr> &gone, QObject *parent);

    bool isFinished() const { return m_isFinished; }
    /** Of each repository that loses something. Nothing when the search was given up, or is not finished. */
    const std::optional<QVector<RepositoryImpact>> &impact() const { return m_impact; }
    /** Whether it is known by now that something is lost. */
    bool losesSomething() const;

Q_SIGNALS:
    /** The question can be asked: the search is finished or takes longer than the patience. Emitted once. */
    void due();
    void finished();

private:
    BackgroundQuery m_query;
    QTimer m_patience;
    QTimer m_end;
    std::optional<QVector<RepositoryImpact>> m_impact;
    bool m_isFinished = false;

    void finish();
};
