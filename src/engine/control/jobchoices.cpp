// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/control/jobchoices.h"

#include <QHash>
#include <QMutexLocker>

ExternalRepos JobChoices::externalRepos() const
{
    const QMutexLocker lock(&m_mutex);
    return m_externalRepos;
}

void JobChoices::setExternalRepos(const ExternalRepos &repos)
{
    const QMutexLocker lock(&m_mutex);
    m_externalRepos = repos;
}

std::function<bool(const QString &origin)> JobChoices::acceptedOrigins() const
{
    const QMutexLocker lock(&m_mutex);
    return [repos = m_externalRepos, known = QHash<QString, bool>()](const QString &origin) mutable {
        auto it = known.find(origin);
        if (it == known.end())
            it = known.insert(origin, repos.isOriginAsked(origin));
        return *it;
    };
}

QStringList JobChoices::openRepositories() const
{
    const QMutexLocker lock(&m_mutex);
    return m_openRepositories;
}

void JobChoices::setOpenRepositories(const QStringList &paths)
{
    const QMutexLocker lock(&m_mutex);
    m_openRepositories = paths;
}

HistoryLimits JobChoices::historyLimits() const
{
    const QMutexLocker lock(&m_mutex);
    return m_historyLimits;
}

void JobChoices::setHistoryLimits(const HistoryLimits &limits)
{
    const QMutexLocker lock(&m_mutex);
    m_historyLimits = limits;
}
