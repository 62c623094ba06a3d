// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/depends/packagedependitem.h"

#include "depends/dependsparser.h"
#include "depends/dependsreport.h"

#include <QStringList>

#include <algorithm>

namespace
{
QString constraintText(const Dependency &dependency)
{
    QStringList parts;
    if (!dependency.op.isEmpty())
        parts.append(dependency.op + QLatin1Char(' ') + dependency.version);
    if (!dependency.secondOp.isEmpty())
        parts.append(dependency.secondOp + QLatin1Char(' ') + dependency.secondVersion);
    return parts.join(QLatin1String(" & "));
}

/** The best status that a source offers for a dependency, by the package itself or by a provider. */
std::optional<DependStatus> offeredFor(const Dependency &dependency, const QString &source)
{
    std::optional<DependStatus> best;
    const auto found = dependency.foundVersions.constFind(source);
    if (found != dependency.foundVersions.cend())
        best = found->status;
    for (const Dependency &provider : dependency.providers)
        best = std::max(best, offeredFor(provider, source)); // std::nullopt is less than any status
    return best;
}

QString alternativesText(const DependencyGroup &entry)
{
    if (entry.alternatives.size() == 1) {
        const Dependency &only = entry.alternatives.first();
        const QString text = PackageDependItem::dependencyText(only);
        return only.providers.isEmpty() ? text : PackageDependItem::tr("%1 Provided by ...").arg(text);
    }
    QStringList texts;
    for (const Dependency &alternative : entry.alternatives) {
        QString text = PackageDependItem::dependencyText(alternative);
        if (!alternative.providers.isEmpty())
            text += QLatin1Char(' ') + PackageDependItem::tr("Provided by ... ");
        texts.append(text);
    }
    return texts.join(QLatin1String(" | "));
}

QString entryText(const DependencyGroup &entry)
{
    const QString text = alternativesText(entry);
    return entry.isPreDepends ? markedPreDepends(text) : text;
}

void appendOffers(QStringList &lines,
                  const Dependency &dependency,
                  const QString &source,
                  const QString &shownSource,
                  const QString &prefix)
{
    const auto found = dependency.foundVersions.constFind(source);
    if (found != dependency.foundVersions.cend()) {
        const QString needs = constraintText(dependency);
        if (needs.isEmpty() || found->status == DependSuccess)
            lines.append(prefix + PackageDependItem::tr("%1 offers %2").arg(shownSource, found->version));
        else
            lines.append(
                prefix
                + PackageDependItem::tr("needs %1, %2 offers %3").arg(needs, shownSource, found->version));
    }
    for (const Dependency &provider : dependency.providers)
        appendOffers(lines, provider, source, shownSource, provider.name + QLatin1String(": "));
}
} // namespace

PackageDependItem::PackageDependItem(const DependencyGroup &entry, int selection)
    : DependsItem(entryText(entry))
    , m_selection(selection)
    , m_entry(entry)
{ }

PackageDependItem::PackageDependItem(const Dependency &dependency, int selection)
    : PackageDependItem(DependencyGroup{dependency.status, {dependency}}, selection)
{ }

QString PackageDependItem::dependencyText(const Dependency &dependency)
{
    const QString constraint = constraintText(dependency);
    return constraint.isEmpty() ? dependency.name
                                : QStringLiteral("%1 (%2)").arg(dependency.name, constraint);
}

std::optional<DependStatus> PackageDependItem::offered(const DependencyGroup &entry, const QString &source)
{
    std::optional<DependStatus> best;
    for (const Dependency &alternative : entry.alternatives)
        best = std::max(best, offeredFor(alternative, source));
    return best;
}

std::optional<DependStatus> PackageDependItem::sourceStatus(const QString &source) const
{
    const auto best = offered(m_entry, source);
    if (best.has_value() || status() == DependSuccess)
        return best;
    // No source offers it, or no source was asked.
    return status();
}

QString PackageDependItem::explanation() const
{
    return DependsReport::explanation(m_entry, m_selection);
}

QString PackageDependItem::sourceExplanation(const QString &source, const QString &shownSource) const
{
    if (status() == DependUndefined)
        return explanation();
    QStringList lines;
    const bool several = m_entry.alternatives.size() > 1;
    for (const Dependency &alternative : m_entry.alternatives)
        appendOffers(lines,
                     alternative,
                     source,
                     shownSource,
                     several ? alternative.name + QLatin1String(": ") : QString());
    return lines.isEmpty() ? tr("%1 does not offer it").arg(shownSource) : lines.join(QLatin1Char('\n'));
}

void PackageDependItem::makeChildren()
{
    const bool several = m_entry.alternatives.size() > 1;
    for (const Dependency &alternative : m_entry.alternatives) {
        if (alternative.providers.isEmpty())
            continue;
        if (several) {
            appendChild(std::make_unique<PackageDependItem>(alternative, m_selection));
            continue;
        }
        for (const Dependency &provider : alternative.providers)
            appendChild(std::make_unique<PackageDependItem>(provider, m_selection));
    }
}
