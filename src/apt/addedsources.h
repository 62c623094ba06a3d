// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptlists.h"
#include "apt/externalrepos.h"
#include "apt/privateapt.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

/**
 * What the sources that the user added offer beyond what apt on this computer knows. An apt with a private state keeps
 * their lists, and shares them with everybody who asks about the same sources for the same architectures. settle()
 * comes first; until then there are no such sources. Every function can run programs: not for the interface thread.
 */
class AddedSources
{
public:
    AddedSources() = default;
    /** For a repository of these architectures. Costs nothing. */
    AddedSources(ExternalRepos repos, QStringList architectures);

    /** Compares with the lists that apt has. */
    void settle(const AptLists &apt);
    /** The same, and asks apt for them; without added sources it does not even ask. */
    void settle(const StopRequest &stopped);

    /** Whether there is nothing that apt does not know. */
    bool isEmpty() const { return m_sources.isEmpty(); }
    /** Each as in a sources list, without what apt knows of it. */
    const QStringList &sources() const { return m_sources; }
    /** The apt of these sources; null when there are none, and when its files could not be written. */
    PrivateApt *apt() const { return m_apt.get(); }
    /** The lists that were fetched. `problem` receives why they could not be found. */
    QVector<AptList> lists(const StopRequest &stopped, QString *problem = nullptr) const;

    /**
     * The environments of apt in which packages of this origin can be fetched, the best one first. An empty one stands
     * for the system's own sources.
     */
    QVector<QStringList> environments(const QString &origin) const;
    /** The environment of apt(), or an empty one without it. */
    QStringList environment() const { return m_apt ? m_apt->environment() : QStringList(); }

private:
    ExternalRepos m_repos;
    QStringList m_architectures;
    QStringList m_known; ///< the lists of the system's apt, as sources
    QStringList m_sources;
    std::shared_ptr<PrivateApt> m_apt;
};
