// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/qtversions.h"

#include <QHash>
#include <QList>
#include <QMutex>

/** Identifies a package within one repository. */
struct PackageKey
{
    QString name;
    QString component; ///< component of the index
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

inline QtVersions::HashValue qHash(const PackageKey &key, QtVersions::HashValue seed = 0)
{
    return ::qHash(key.name, seed) ^ (::qHash(key.architecture, seed) * 31U)
           ^ (static_cast<uint>(key.type) << 7U);
}

/**
 * The packages of the open repository, in the order of their listing. Only the running job may change it; any thread
 * may read it and gets copies.
 */
class PackageList
{
public:
    void assign(const QList<PackageInfoPtr> &packages);
    void clear() { assign({}); }
    void append(const PackageInfoPtr &package);
    /** Removes the package with this key and returns it; null when there is none. */
    PackageInfoPtr take(const PackageKey &key);
    /** Replaces the record with the same key; false when there is none. */
    bool replace(const PackageInfoPtr &package);

    QList<PackageInfoPtr> all() const;
    int count() const;
    PackageInfoPtr at(int index) const;
    int indexOf(const PackageInfoPtr &package) const;
    /** The package with this key; null when there is none. */
    PackageInfoPtr find(const PackageKey &key) const;

private:
    /** A package, and its position plus the number of packages that were removed before it was stored here. */
    struct Place
    {
        PackageInfoPtr package;
        int ordinal = 0;
    };

    mutable QMutex m_mutex;
    QList<PackageInfoPtr> m_packages;
    mutable QHash<PackageKey, Place> m_places; ///< created at the first look-up
    mutable bool m_indexed = false;
    int m_taken = 0; ///< number of packages removed since the index was created

    void buildIndex() const;
    int positionOf(const Place &place) const;
};
