// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/depends/dependsitem.h"

#include <QCoreApplication>
#include <QVector>

/**
 * One entry with all its alternatives, or one package that provides a name. The children of an entry are its providers.
 * If the entry has several alternatives, the providers of each are in a group, which is such an item too.
 */
class PackageDependItem : public DependsItem
{
    Q_DECLARE_TR_FUNCTIONS(PackageDependItem)
public:
    /** `selection` is the DependsRepoType of the check. */
    PackageDependItem(const DependencyGroup &entry, int selection);
    /** A provider, or the group of providers of one name. */
    PackageDependItem(const Dependency &dependency, int selection);

    DependStatus status() const override { return m_entry.status; }
    std::optional<DependStatus> sourceStatus(const QString &source) const override;
    QString explanation() const override;
    QString sourceExplanation(const QString &source, const QString &shownSource) const override;
    QVector<Dependency> alternatives() const override { return m_entry.alternatives; }

    /** Name and constraints for display, without providers. */
    static QString dependencyText(const Dependency &dependency);
    /** The best status that a source offers for an entry, also through a provider; none when it offers nothing. */
    static std::optional<DependStatus> offered(const DependencyGroup &entry, const QString &source);

protected:
    void makeChildren() override;

private:
    int m_selection;
    DependencyGroup m_entry; ///< shares the alternatives with the record from which it was made
};
