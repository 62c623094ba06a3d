// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/depends/packageitem.h"

#include "core/countof.h"
#include "ui/depends/packagedependitem.h"

#include <algorithm>

PackageItem::PackageItem(const PackageInfoPtr &package)
    : DependsItem(package->name)
    , m_package(package)
{ }

void PackageItem::setPackage(const PackageInfoPtr &package)
{
    forgetChildren();
    m_package = package;
    setText(package->name);
}

int PackageItem::entryCount() const
{
    return m_package->dependsInfo ? countOf(m_package->dependsInfo->groups) : 0;
}

int PackageItem::countSatisfiedBy(const QString &source) const
{
    if (entryCount() == 0)
        return 0;
    const auto &groups = m_package->dependsInfo->groups;
    return static_cast<int>(std::count_if(groups.cbegin(), groups.cend(), [&source](const auto &entry) {
        return PackageDependItem::offered(entry, source) == DependSuccess;
    }));
}

std::optional<DependStatus> PackageItem::sourceStatus(const QString &source) const
{
    if (status() != DependSuccess || entryCount() == 0)
        return status();
    // When all entries are satisfied, only the sources that satisfy an entry get a mark.
    const auto &groups = m_package->dependsInfo->groups;
    const bool contributes = std::any_of(groups.cbegin(), groups.cend(), [&source](const auto &entry) {
        return PackageDependItem::offered(entry, source) == DependSuccess;
    });
    return contributes ? std::make_optional(DependSuccess) : std::nullopt;
}

QString PackageItem::explanation() const
{
    QString words = entryCount() == 0 ? tr("Dependencies not checked yet")
                                      : tr("Some dependencies could not be looked for");
    if (status() == DependError)
        words = tr("Some dependencies are not satisfied");
    else if (status() == DependSuccess)
        words = entryCount() == 0 ? tr("Depends on nothing") : tr("All dependencies are satisfied");
    return QStringLiteral("%1 %2 %3\n%4")
        .arg(m_package->name, m_package->version, m_package->architecture, words);
}

QString PackageItem::sourceExplanation(const QString &source, const QString &shownSource) const
{
    if (entryCount() == 0)
        return status() == DependUndefined ? tr("Dependencies not checked yet") : tr("Depends on nothing");
    return tr("%1 satisfies %2 of %n dependency(ies)", nullptr, entryCount())
        .arg(shownSource, QString::number(countSatisfiedBy(source)));
}

void PackageItem::makeChildren()
{
    if (!m_package->dependsInfo)
        return;
    for (const DependencyGroup &entry : m_package->dependsInfo->groups)
        appendChild(std::make_unique<PackageDependItem>(entry, m_package->dependsInfo->selection));
}
