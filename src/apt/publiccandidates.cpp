// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/publiccandidates.h"

#include <algorithm>

PublicCandidates::PublicCandidates(const AptCandidates::OriginFilter &accepts,
                                   const QStringList &addedEnvironment)
    : m_apt(QString(), accepts)
{
    if (!addedEnvironment.isEmpty())
        m_added = std::make_unique<AptCandidates>(QString(), accepts, addedEnvironment);
}

bool PublicCandidates::prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped)
{
    return m_apt.prefetch(questions, stopped) && (!m_added || m_added->prefetch(questions, stopped));
}

bool PublicCandidates::canAnswer(const PackageQuestion &question) const
{
    return m_apt.canAnswer(question) || (m_added && !m_added->candidates(question).isEmpty());
}

QVector<Candidate> PublicCandidates::candidates(const PackageQuestion &question) const
{
    auto found = m_apt.candidates(question);
    if (m_added)
        found += m_added->candidates(question);
    return found;
}

void PublicCandidates::getReady(const StopRequest &stopped)
{
    m_apt.getReady(stopped);
    if (m_added)
        m_added->getReady(stopped);
}

bool PublicCandidates::prefetchProviders(const QVector<PackageQuestion> &questions,
                                         const StopRequest &stopped)
{
    return m_apt.prefetchProviders(questions, stopped)
           && (!m_added || m_added->prefetchProviders(questions, stopped));
}

QVector<Provider> PublicCandidates::providers(const PackageQuestion &question) const
{
    auto found = m_apt.providers(question);
    if (!m_added)
        return found;
    const auto further = m_added->providers(question);
    for (const Provider &provider : further) {
        const bool isKnown = std::any_of(found.cbegin(), found.cend(), [&provider](const Provider &other) {
            return other.name == provider.name && other.version == provider.version
                   && other.providedVersion == provider.providedVersion;
        });
        if (!isKnown)
            found.append(provider);
    }
    return found;
}

QString PublicCandidates::errorText() const
{
    return m_apt.failed() || !m_added ? m_apt.errorText() : m_added->errorText();
}

QString PublicCandidates::errorDetail() const
{
    return m_apt.failed() || !m_added ? m_apt.errorDetail() : m_added->errorDetail();
}

bool PublicCandidates::lacksSources()
{
    return m_apt.lacksSources() && (!m_added || m_added->lacksSources());
}
