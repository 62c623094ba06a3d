// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/packagelist.h"

#include "core/countof.h"

#include <QMutexLocker>

#include <algorithm>

void PackageList::assign(const QList<PackageInfoPtr> &packages)
{
    const QMutexLocker lock(&m_mutex);
    m_packages = packages;
    m_places.clear();
    m_indexed = false;
    m_taken = 0;
}

void PackageList::append(const PackageInfoPtr &package)
{
    const QMutexLocker lock(&m_mutex);
    m_packages.append(package);
    if (m_indexed)
        m_places.insert(PackageKey::of(*package), {package, countOf(m_packages) - 1 + m_taken});
}

PackageInfoPtr PackageList::take(const PackageKey &key)
{
    const QMutexLocker lock(&m_mutex);
    buildIndex();
    const Place place = m_places.take(key);
    if (place.package) {
        m_packages.removeAt(positionOf(place));
        ++m_taken;
    }
    return place.package;
}

bool PackageList::replace(const PackageInfoPtr &package)
{
    const QMutexLocker lock(&m_mutex);
    buildIndex();
    const auto place = m_places.find(PackageKey::of(*package));
    if (place == m_places.end())
        return false;
    m_packages[positionOf(*place)] = package;
    place->package = package;
    return true;
}

QList<PackageInfoPtr> PackageList::all() const
{
    const QMutexLocker lock(&m_mutex);
    return m_packages;
}

int PackageList::count() const
{
    const QMutexLocker lock(&m_mutex);
    return countOf(m_packages);
}

PackageInfoPtr PackageList::at(int index) const
{
    const QMutexLocker lock(&m_mutex);
    return m_packages.value(index);
}

int PackageList::indexOf(const PackageInfoPtr &package) const
{
    const QMutexLocker lock(&m_mutex);
    return static_cast<int>(m_packages.indexOf(package));
}

PackageInfoPtr PackageList::find(const PackageKey &key) const
{
    const QMutexLocker lock(&m_mutex);
    buildIndex();
    return m_places.value(key).package;
}

void PackageList::buildIndex() const
{
    if (m_indexed)
        return;
    m_places.reserve(m_packages.size());
    for (int i = 0; i < m_packages.size(); ++i)
        m_places.insert(PackageKey::of(*m_packages.at(i)), {m_packages.at(i), i + m_taken});
    m_indexed = true;
}

int PackageList::positionOf(const Place &place) const
{
    // Packages before or after this one may have been removed; in most cases none was.
    const auto first = m_packages.cbegin() + std::max(0, place.ordinal - m_taken);
    return static_cast<int>(std::find(first, m_packages.cend(), place.package) - m_packages.cbegin());
}
