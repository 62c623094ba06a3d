// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/installability/removalimpactsearch.h"

#include "ui/installability/presentrecords.h"

#include <algorithm>

RemovalImpactSearch::RemovalImpactSearch(const CheckScope &scope,
                                         const QList<PackageInfoPtr> &gone,
                                         QObject *parent)
    : QObject(parent)
{
    m_patience.setSingleShot(true);
    m_end.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &RemovalImpactSearch::due);
    connect(&m_end, &QTimer::timeout, this, [this] {
        m_query.stop();
        finish();
    });
    m_patience.start(Patience);
    m_end.start(Longest);
    const auto search = [scope, gone](const StopRequest &stopped) {
        return RemovalImpact(scope).of(presentRecords(scope, gone), stopped);
    };
    m_query.ask(this, search, [this](const QVector<RepositoryImpact> &impact) {
        m_impact = impact;
        finish();
    });
}

bool RemovalImpactSearch::losesSomething() const
{
    return m_impact && std::any_of(m_impact->cbegin(), m_impact->cend(), [](const RepositoryImpact &impact) {
               return !impact.lost.isEmpty();
           });
}

void RemovalImpactSearch::finish()
{
    m_isFinished = true;
    m_end.stop();
    if (m_patience.isActive()) {
        m_patience.stop();
        Q_EMIT due();
    }
    Q_EMIT finished();
}
