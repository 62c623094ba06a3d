// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QHash>
#include <QString>
#include <QVector>

/**
 * The packages of a repository that keep other packages of it from being installed, by the results of complete checks.
 * A package counts when the reason of another package names it as the contradiction: the two cannot be installed
 * together with something else, or it needs what nobody has. A package that is broken for itself alone does not count.
 */
class BreakingPackages
{
public:
    /** Takes the reason of this package in (1), or out again (-1). */
    void count(const PackageInfo &package, int difference);
    /** Whether the package breaks others. A look-up of its name, as long as it does not. */
    bool contains(const PackageInfo &package) const;
    bool isEmpty() const { return m_named.isEmpty(); }
    /** Changes whenever contains() can have another result. */
    int revision() const { return m_revision; }
    void clear();

private:
    struct Entry
    {
        QString version;
        QString architecture;
        int count = 0; ///< how many reasons name it
    };

    QHash<QString, QVector<Entry>> m_named;
    int m_revision = 0;

    void count(const NamedPackage &package, int difference);
};
