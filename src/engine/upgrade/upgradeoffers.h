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

    /** False, after critical(), when nothing can be asked. */
    bool isValid() const { return m_apt != nullptr; }
    /** Makes apt's lists those of now; false when that was stopped, or after critical() when it failed. */
    bool fetchLists();
    /** What is on offer under these names; false like fetchLists(). */
    bool askRecords(const QStringList &names, QVector<AptPackageRecord> *records);
    /** For further questions about the same lists. */
    QStringList environment() const;

private:
    JobContext &m_context;
    std::shared_ptr<PrivateApt> m_apt;
};
