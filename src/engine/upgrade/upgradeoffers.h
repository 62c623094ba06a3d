// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptoutput.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

#include <memory>

struct JobContext;
class PrivateApt;
class UpgradeSources;

/** Asks the chosen sources what they offer, with words and progress for the user. */
class UpgradeOffers
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    UpgradeOffers(JobContext &context, UpgradeSources &sources);

    /** False, after an error, when the sources cannot be asked. */
    bool isValid() const { return m_apt != nullptr; }
    /** Fetches apt's lists. False after a stop, or after an error. */
    bool fetchLists();
    /** The offers for these names, and maybe for others. False like fetchLists(). */
    bool askRecords(const QStringList &names, QVector<AptPackageRecord> *records);
    /** The environment for further questions about the same lists. */
    QStringList environment() const;

private:
    JobContext &m_context;
    UpgradeSources &m_sources;
    QByteArray m_lists; ///< see PrivateApt::Outcome
    std::shared_ptr<PrivateApt> m_apt;
};
