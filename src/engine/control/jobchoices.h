// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "core/historylimits.h"
#include "core/settingskeys.h"

#include <QMutex>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>

/** What the user has set for all jobs of an engine. For any thread. */
class JobChoices
{
public:
    /** Whether a job that adds packages checks their dependencies too. */
    bool checksDependsOnAdd() const { return m_checksDependsOnAdd; }
    void setChecksDependsOnAdd(bool check) { m_checksDependsOnAdd = check; }
    /** Whether nothing is noted in the repository either: its history does not learn of changes by others. */
    bool isOnlyLooking() const { return m_isOnlyLooking; }
    void setOnlyLooking(bool isOnlyLooking) { m_isOnlyLooking = isOnlyLooking; }
    /** Where dependencies are looked for: a DependsRepoType. */
    int dependsRepoType() const { return m_dependsRepoType; }
    void setDependsRepoType(int type) { m_dependsRepoType = type; }
    ExternalRepos externalRepos() const;
    void setExternalRepos(const ExternalRepos &repos);
    /** Tells whether packages of an origin that apt names count. One thread may call the function. */
    std::function<bool(const QString &origin)> acceptedOrigins() const;
    /** Directories of the repositories that other engines have open. No job wipes one of them. */
    QStringList openRepositories() const;
    void setOpenRepositories(const QStringList &paths);
    /** How much of the history of a repository the jobs keep. */
    HistoryLimits historyLimits() const;
    void setHistoryLimits(const HistoryLimits &limits);

private:
    std::atomic<bool> m_checksDependsOnAdd{true};
    std::atomic<bool> m_isOnlyLooking{false};
    std::atomic<int> m_dependsRepoType{DependsEverywhere};

    mutable QMutex m_mutex; ///< guards the members below
    ExternalRepos m_externalRepos;
    QStringList m_openRepositories;
    HistoryLimits m_historyLimits;
};
