// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/upgradesources.h"

#include "apt/privateapt.h"

#include <QMutexLocker>

#include <algorithm>

void UpgradeSources::choose(const QStringList &sources)
{
    const QMutexLocker lock(&m_mutex);
    m_found.clear();
    m_sources = sources;
    m_apt.reset();
}

QVector<UpgradablePackage> UpgradeSources::found() const
{
    const QMutexLocker lock(&m_mutex);
    return m_found;
}

void UpgradeSources::setFound(const QVector<UpgradablePackage> &packages)
{
    const QMutexLocker lock(&m_mutex);
    m_found = packages;
}

std::optional<QVector<AptPackageRecord>> UpgradeSources::offered(const QStringList &names,
                                                                 const QByteArray &lists) const
{
    const QMutexLocker lock(&m_mutex);
    const bool areKnown = !lists.isEmpty() && lists == m_lists
                          && std::all_of(names.cbegin(), names.cend(), [this](const QString &name) {
                                 return m_names.contains(name);
                             });
    return areKnown ? std::make_optional(m_records) : std::nullopt;
}

void UpgradeSources::setOffered(const QStringList &names,
                                const QByteArray &lists,
                                const QVector<AptPackageRecord> &records)
{
    const QMutexLocker lock(&m_mutex);
    m_lists = lists;
    m_names = {names.cbegin(), names.cend()};
    m_records = records;
}

std::shared_ptr<PrivateApt> UpgradeSources::apt(const QStringList &architectures)
{
    QStringList sources;
    {
        const QMutexLocker lock(&m_mutex);
        if (m_apt)
            return m_apt;
        sources = m_sources;
    }
    // Outside the lock, because it runs a program.
    auto apt = std::make_shared<PrivateApt>(sources, architectures);
    if (!apt->isValid())
        return {};
    const QMutexLocker lock(&m_mutex);
    m_apt = apt;
    return apt;
}

void UpgradeSources::dropApt()
{
    std::shared_ptr<PrivateApt> apt;
    const QMutexLocker lock(&m_mutex);
    apt.swap(m_apt);
}
