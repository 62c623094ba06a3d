// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/depends/dependsitem.h"

#include <QCoreApplication>

/** A package of the repository in the dependency tree. Its children are the entries of Depends and Pre-Depends. */
class PackageItem : public DependsItem
{
    Q_DECLARE_TR_FUNCTIONS(PackageItem)
public:
    explicit PackageItem(const PackageInfoPtr &package);

    PackageInfoPtr package() const { return m_package; }
    /** Sets another record of the same package. All child items are deleted. */
    void setPackage(const PackageInfoPtr &package);
    /** The number of children, without making them. */
    int entryCount() const;

    DependStatus status() const override { return m_package->dependStatus(); }
    std::optional<DependStatus> sourceStatus(const QString &source) const override;
    QString explanation() const override;
    QString sourceExplanation(const QString &source, const QString &shownSource) const override;

protected:
    void makeChildren() override;

private:
    int countSatisfiedBy(const QString &source) const;

    PackageInfoPtr m_package;
};
