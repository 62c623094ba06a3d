// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/storedchecks.h"

void StoredChecks::load(const QString &repoPath)
{
    if (repoPath.isEmpty())
        return;
    m_repoPath = repoPath;
    QString keptAs;
    m_loaded = m_store.load(repoPath, &keptAs);
    tell(keptAs);
}

QList<PackageInfoPtr> StoredChecks::merged(const QList<PackageInfoPtr> &packages)
{
    const QList<PackageInfoPtr> result = m_loaded.merged(packages);
    m_loaded = {m_loaded.record, {}, {}};
    return result;
}

void StoredChecks::changePath(const QString &newPath)
{
    if (m_repoPath.isEmpty() || newPath.isEmpty())
        return;
    m_store.move(m_repoPath, newPath);
    m_repoPath = newPath;
}

void StoredChecks::remove()
{
    if (!m_repoPath.isEmpty())
        m_store.remove(m_repoPath);
    m_loaded = {};
}

void StoredChecks::save(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &record)
{
    if (m_repoPath.isEmpty())
        return;
    QString keptAs;
    m_store.save(m_repoPath, StoredCompleteCheck::of(packages, record), &keptAs);
    tell(keptAs);
}

void StoredChecks::tell(const QString &keptAs)
{
    if (!keptAs.isEmpty())
        Q_EMIT fileBroken(keptAs);
}
