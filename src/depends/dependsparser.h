// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

/**
 * Reads Depends fields. PackageField::DependencyName and PackageField::DependencyConstraint define what an alternative
 * says; here they are applied by hand, in time linear in the field, because a repository has hundreds of thousands of
 * entries. Equal texts are shared among all that one parser has read. Belongs to one thread.
 */
class DependsParser
{
public:
    /**
     * The entries in the order written, each with its alternatives; those without a readable name are left out.
     * A name is looked up for `architecture` unless it has a qualifier of its own other than ":any".
     */
    QVector<DependencyGroup> entries(std::string_view field, const QString &architecture);

    /**
     * The entries as a package's result holds them: by the name of the first alternative. An entry that only repeats
     * the name of another goes into that one's record as its second constraint; whatever does not fit there stays an
     * entry of its own under its whole text.
     */
    QMap<QString, DependencyGroup> groups(std::string_view field, const QString &architecture);

    /** The entries of Pre-Depends and of Depends, which both must be met. */
    QVector<DependencyGroup> entries(const PackageInfo &package);
    /** The same as a result holds them; an entry of Pre-Depends stays apart from one of Depends of the same name. */
    QMap<QString, DependencyGroup> groups(const PackageInfo &package);

private:
    QString shared(std::string_view text);
    bool readAlternative(std::string_view text, const QString &architecture, Dependency &dependency);

    std::string m_unfolded; ///< the field that is being read, where it was folded
    std::deque<std::string> m_texts; ///< what the keys of m_pool point into
    std::unordered_map<std::string_view, QString> m_pool;
};

/** The text of an entry of Pre-Depends, told apart from the same one of Depends. */
QString markedPreDepends(const QString &text);
/** The dependency as a Depends field writes it; the architecture only where it is not `architecture`. */
QString dependencyText(const Dependency &dependency, const QString &architecture = QString());
/** The alternatives of an entry in the same way, with " | " between them. */
QString dependencyText(const DependencyGroup &group, const QString &architecture = QString());
