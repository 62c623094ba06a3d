// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QHash>
#include <QList>
#include <QMutex>

/** What tells two packages of one repository apart. */
struct PackageKey
{
    QString name;
    QString component; ///< the index's
    QString architecture;
    PackageType type = PackageType::Deb;

    static PackageKey of(const PackageInfo &package)
    {
        return {package.name, package.indexComponent, package.architecture, package.type};
    }
    bool operator==(const PackageKey &other) const
    {
        return name == other.name && architecture == other.architecture && component == other.component
               && type == other.type;
    }
};

inline uint qHash(const PackageKey &key, uint seed = 0)
{
    return ::qHash(key.name, seed) ^ (::qHash(key.architecture, seed) * 31U)
           ^ (static_cast<uint>(key.type) << 7U);
}

/**
 * The packages of the open repository, in the order of their listing. Written by the running job alone, read from
 * any thread; readers get copies.
 */
class PackageList
{
public:
    void assign(const QList<PackageInfoPtr> &packages);
    void clear() { assign({}); }
    void append(const PackageInfoPtr &package);
    /** Takes the package with this key out; null when there is none. */
    PackageInfoPtr take(const PackageKey &key);
    /** Puts the record into the place of the one with the same key; false when there is none. */
    bool replace(const PackageInfoPtr &package);

    QList<PackageInfoPtr> all() const;
    int count() const;
    PackageInfoPtr at(int index) const;
    int indexOf(const PackageInfoPtr &package) const;
    /** The package with this key; null when there is none. */
    PackageInfoPtr find(const PackageKey &key) const;

private:
    /** A package, and its position plus the number of packages that had been taken out when it got that. */
    struct Place
    {
        PackageInfoPtr package;
        int ordinal = 0;
    };

    mutable QMutex m_mutex;
    QList<PackageInfoPtr> m_packages;
    mutable QHash<PackageKey, Place> m_places; ///< made when the first look-up asks for it
    mutable bool m_indexed = false;
    int m_taken = 0; ///< packages taken out since the index was begun

    void buildIndex() const;
    int positionOf(const Place &place) const;
};
