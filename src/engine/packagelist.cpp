// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/packagelist.h"

#include <QMutexLocker>

void PackageList::assign(const QList<PackageInfoPtr> &packages)
{
    const QMutexLocker lock(&m_mutex);
    m_packages = packages;
    m_byKey.clear();
    m_indexed = false;
}

void PackageList::append(const PackageInfoPtr &package)
{
    const QMutexLocker lock(&m_mutex);
    m_packages.append(package);
    if (m_indexed)
        m_byKey.insert(PackageKey::of(*package), package);
}

PackageInfoPtr PackageList::take(const PackageKey &key)
{
    const QMutexLocker lock(&m_mutex);
    buildIndex();
    PackageInfoPtr package = m_byKey.take(key);
    if (package)
        m_packages.removeOne(package);
    return package;
}

QList<PackageInfoPtr> PackageList::all() const
{
    const QMutexLocker lock(&m_mutex);
    return m_packages;
}

int PackageList::count() const
{
    const QMutexLocker lock(&m_mutex);
    return m_packages.size();
}

PackageInfoPtr PackageList::at(int index) const
{
    const QMutexLocker lock(&m_mutex);
    return m_packages.value(index);
}

int PackageList::indexOf(const PackageInfoPtr &package) const
{
    const QMutexLocker lock(&m_mutex);
    return m_packages.indexOf(package);
}

PackageInfoPtr PackageList::find(const PackageKey &key) const
{
    const QMutexLocker lock(&m_mutex);
    buildIndex();
    return m_byKey.value(key);
}

void PackageList::buildIndex() const
{
    if (m_indexed)
        return;
    m_byKey.reserve(m_packages.size());
    for (const PackageInfoPtr &package : qAsConst(m_packages))
        m_byKey.insert(PackageKey::of(*package), package);
    m_indexed = true;
}
