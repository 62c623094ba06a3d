// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/addedsources.h"

#include <algorithm>
#include <utility>

namespace
{
bool isOfAny(const QStringList &sources, const QString &origin)
{
    return std::any_of(sources.cbegin(), sources.cend(), [&origin](const QString &source) {
        return ExternalRepos::isOf(source, origin);
    });
}
} // namespace

AddedSources::AddedSources(ExternalRepos repos, QStringList architectures)
    : m_repos(std::move(repos))
    , m_architectures(std::move(architectures))
{
    m_architectures.removeDuplicates();
}

void AddedSources::settle(const AptLists &apt)
{
    m_known.clear();
    for (const AptList &list : apt.lists())
        m_known.append(list.source);
    const QStringList sources = m_repos.beyond(m_known, m_architectures);
    if (sources == m_sources && (m_apt || sources.isEmpty()))
        return;
    m_sources = sources;
    m_apt.reset();
    if (m_sources.isEmpty())
        return;
    m_apt = std::make_shared<PrivateApt>(m_sources, m_architectures);
    if (!m_apt->isValid())
        m_apt.reset();
}

void AddedSources::settle(const StopRequest &stopped)
{
    if (!m_repos.isAnyAdded())
        return;
    AptLists apt;
    // An apt that cannot be asked would seem to know nothing.
    if (apt.find(stopped))
        settle(apt);
}

QVector<AptList> AddedSources::lists(const StopRequest &stopped, QString *problem) const
{
    return m_apt ? m_apt->lists(stopped, problem).value_or(QVector<AptList>()) : QVector<AptList>();
}

QVector<QStringList> AddedSources::environments(const QString &origin) const
{
    const QStringList system;
    if (!m_apt || !isOfAny(m_sources, origin))
        return {system};
    // Two components of a source have one origin, and apt can know one of them.
    if (isOfAny(m_known, origin))
        return {system, m_apt->environment()};
    return {m_apt->environment()};
}
