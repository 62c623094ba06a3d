// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagefeed.h"

#include "engine/reposhell.h"

#include <QMutexLocker>

#include <utility>

PackageFeed::PackageFeed(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PackageFeed::flush);
}

void PackageFeed::watch(const RepoShell &shell)
{
    const auto stored = [this](const PackageInfoPtr &package) { push({ListChange::Stored, package}); };
    const auto removed = [this](const PackageInfoPtr &package) { push({ListChange::Removed, package}); };
    connect(&shell, &RepoShell::packageAdded, this, stored, Qt::DirectConnection);
    connect(&shell, &RepoShell::packageChanged, this, stored, Qt::DirectConnection);
    connect(&shell, &RepoShell::packageRemoved, this, removed, Qt::DirectConnection);
    // In the same queue as the packages: the first package of a new repository can arrive before a queued
    // pathChanged().
    connect(
        &shell,
        &RepoShell::pathChanged,
        this,
        [this] {
            push({ListChange::Cleared, {}});
        },
        Qt::DirectConnection);
    connect(
        &shell, &RepoShell::finished, this, [this] { endBurst(); }, Qt::DirectConnection);
    connect(
        &shell, &RepoShell::repoCreated, this, [this] { endBurst(); }, Qt::DirectConnection);
}

void PackageFeed::push(ListChange change)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (change.kind == ListChange::Cleared)
            m_pending.clear();
        m_pending.append(std::move(change));
        if (m_awake)
            return;
        m_awake = true;
    }
    QMetaObject::invokeMethod(this, &PackageFeed::wake, Qt::QueuedConnection);
}

void PackageFeed::endBurst()
{
    QMetaObject::invokeMethod(this, &PackageFeed::flush, Qt::QueuedConnection);
}

void PackageFeed::wake()
{
    if (m_sinceDelivery.isValid() && !m_sinceDelivery.hasExpired(Interval))
        m_timer.start(Interval - static_cast<int>(m_sinceDelivery.elapsed()));
    else
        flush();
}

void PackageFeed::flush()
{
    ListChanges changes;
    {
        const QMutexLocker lock(&m_mutex);
        changes.swap(m_pending);
        m_awake = false;
    }
    m_timer.stop();
    if (changes.isEmpty())
        return;
    Q_EMIT changesReady(changes);
    m_sinceDelivery.start();
}
