// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/stringpool.h"

#include <string>
#include <string_view>

/**
 * Parses Depends fields. PackageField::DependencyName and PackageField::DependencyConstraint define the parts of an
 * alternative. This class implements them by hand, in time linear in the length of the field, because a repository has
 * hundreds of thousands of entries. Equal texts that one parser has read share their memory. Use an object in one
 * thread only.
 */
class DependsParser
{
public:
    /**
     * The entries in the written order, each with its alternatives. Alternatives without a readable name are left out.
     * A name is looked up for `architecture`, unless it has a qualifier other than ":any".
     */
    QVector<DependencyGroup> entries(std::string_view field, const QString &architecture);

    /**
     * The entries in the form of a package's result: the key is the name of the first alternative. An entry that only
     * repeats the name of another entry becomes the second constraint of that entry. If this is not possible, it stays
     * an entry of its own with its whole text as the key.
     */
    QVector<DependencyGroup> groups(std::string_view field, const QString &architecture);

    /** The entries of Pre-Depends and of Depends. Both must be met. */
    QVector<DependencyGroup> entries(const PackageInfo &package);
    /** The same in the form of a result. Entries of Pre-Depends and Depends with the same name stay separate. */
    QVector<DependencyGroup> groups(const PackageInfo &package);

private:
    QMap<QString, DependencyGroup> groupsByKey(std::string_view field, const QString &architecture);
    bool readAlternative(std::string_view text, const QString &architecture, Dependency &dependency);

    std::string m_unfolded; ///< the unfolded field that is being read, if it was folded
    StringPool m_pool;
};

/** Marks the text of an entry as one of Pre-Depends. */
QString markedPreDepends(const QString &text);
/**
 * The dependency in the form of a Depends field. The architecture is added only when it differs from `architecture`.
 */
QString dependencyText(const Dependency &dependency, const QString &architecture = QString());
/** The alternatives of an entry in the same form, joined with " | ". */
QString dependencyText(const DependencyGroup &group, const QString &architecture = QString());
