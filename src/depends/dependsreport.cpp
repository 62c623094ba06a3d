// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsreport.h"

#include "apt/aptutils.h"
#include "core/settingskeys.h"
#include "depends/dependsparser.h"

#include <QHash>
#include <QJsonArray>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace
{
constexpr int MostWantedNames = 10;
/** Most names in one sentence; some virtual packages have hundreds of providers. */
constexpr int ListedNames = 5;

const QString Separator = QStringLiteral(", ");

QString listed(const QStringList &names)
{
    QString text = names.mid(0, ListedNames).join(Separator);
    if (names.size() > ListedNames)
        text += QStringLiteral(", …");
    return text;
}

QStringList providerNames(const Dependency &dependency, DependStatus status)
{
    QStringList names;
    for (const Dependency &provider : dependency.providers) {
        if (provider.status == status)
            names.append(provider.name);
    }
    return names;
}

/** Whether apt does not know the architecture: the only reason why a check gives no answer. */
bool isUnknownToApt(const Dependency &dependency)
{
    return dependency.status == DependUndefined && !dependency.architecture.isEmpty();
}

void collectUnknownArchitectures(const PackageInfo &package, QStringList &architectures)
{
    if (package.dependStatus() == DependSuccess || !package.dependsInfo)
        return;
    for (const DependencyGroup &group : package.dependsInfo->groups) {
        for (const Dependency &dependency : group.alternatives) {
            if (isUnknownToApt(dependency) && !architectures.contains(dependency.architecture))
                architectures.append(dependency.architecture);
        }
    }
}

QList<PackageInfoPtr> inError(const QList<PackageInfoPtr> &packages)
{
    QList<PackageInfoPtr> result;
    std::copy_if(packages.cbegin(),
                 packages.cend(),
                 std::back_inserter(result),
                 [](const PackageInfoPtr &package) { return package->dependStatus() == DependError; });
    std::stable_sort(result.begin(), result.end(), [](const PackageInfoPtr &a, const PackageInfoPtr &b) {
        return a->name < b->name;
    });
    return result;
}

QVector<DependencyGroup> missingEntries(const PackageInfo &package)
{
    QVector<DependencyGroup> result;
    if (!package.dependsInfo)
        return result;
    for (const DependencyGroup &group : package.dependsInfo->groups) {
        if (group.status == DependError && !group.alternatives.isEmpty())
            result.append(group);
    }
    return result;
}
} // namespace

QString DependsReport::lacked(int selection)
{
    switch (selection) {
    case DependsLocal:
        return tr("the repository does not hold it (public sources were not asked)");
    case DependsPublic:
        return tr("no public source offers it");
    default:
        return tr("no source offers it");
    }
}

QString DependsReport::lackedWithProviders(int selection)
{
    switch (selection) {
    case DependsLocal:
        return tr("the repository does not hold it, nor a suitable version of what provides it: %1");
    case DependsPublic:
        return tr("no public source offers it, nor a suitable version of what provides it: %1");
    default:
        return tr("no source offers it, nor a suitable version of what provides it: %1");
    }
}

QString DependsReport::explanation(const Dependency &dependency, int selection)
{
    if (isUnknownToApt(dependency))
        return tr("not looked for, because apt does not know the architecture %1 (%2)")
            .arg(dependency.architecture, AptUtils::architectureCommands({dependency.architecture}));
    if (dependency.status == DependUndefined)
        return tr("not checked");
    if (dependency.status == DependSuccess) {
        const QString found = offers(dependency, DependSuccess);
        return found.isEmpty() ? tr("provided by %1").arg(listed(providerNames(dependency, DependSuccess)))
                               : found;
    }
    const QString found = offers(dependency, DependError);
    if (!found.isEmpty())
        return tr("needs %1, %2").arg(constraint(dependency), found);
    const QStringList providers = providerNames(dependency, DependError);
    if (!providers.isEmpty())
        return lackedWithProviders(selection).arg(listed(providers));
    return lacked(selection);
}

QString DependsReport::explanation(const DependencyGroup &group, int selection)
{
    QStringList lines;
    for (const Dependency &dependency : group.alternatives)
        lines.append(tr("%1: %2").arg(dependencyText(dependency), explanation(dependency, selection)));
    const QString text = lines.join(QLatin1Char('\n'));
    return group.isPreDepends ? markedPreDepends(text) : text;
}

QString DependsReport::line(const DependencyGroup &group, int selection)
{
    QStringList reasons;
    QStringList named;
    for (const Dependency &dependency : group.alternatives) {
        reasons.append(explanation(dependency, selection));
        named.append(tr("%1: %2").arg(dependency.name, reasons.last()));
    }
    reasons.removeDuplicates();
    const QString text = dependencyText(group);
    return tr("%1: %2").arg(group.isPreDepends ? markedPreDepends(text) : text,
                            reasons.size() == 1 ? reasons.first() : named.join(QLatin1String("; ")));
}

DependsReport::Summary DependsReport::summary(const QList<PackageInfoPtr> &packages)
{
    Summary result;
    QHash<QString, int> wanted;
    for (const PackageInfoPtr &package : packages) {
        const DependStatus status = package->dependStatus();
        result.satisfied += static_cast<int>(status == DependSuccess);
        result.errors += static_cast<int>(status == DependError);
        result.unchecked += static_cast<int>(status == DependUndefined);
        collectUnknownArchitectures(*package, result.unknownArchitectures);
        QStringList names;
        for (const DependencyGroup &group : missingEntries(*package))
            names.append(group.alternatives.first().name);
        // Several entries of one package can need the same name.
        names.removeDuplicates();
        for (const QString &name : std::as_const(names))
            ++wanted[name];
    }
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it)
        result.mostWanted.append({it.key(), it.value()});
    std::sort(
        result.mostWanted.begin(), result.mostWanted.end(), [](const WantedName &a, const WantedName &b) {
            return a.packages != b.packages ? a.packages > b.packages : a.name < b.name;
        });
    if (result.mostWanted.size() > MostWantedNames)
        result.mostWanted.resize(MostWantedNames);
    return result;
}

QStringList DependsReport::summaryLines(const QList<PackageInfoPtr> &packages)
{
    const Summary counts = summary(packages);
    QStringList lines{tr("Packages with satisfied dependencies: %1").arg(counts.satisfied),
                      tr("Packages with missing dependencies: %1").arg(counts.errors),
                      tr("Packages not checked: %1").arg(counts.unchecked)};
    if (!counts.unknownArchitectures.isEmpty())
        lines.append(AptUtils::unknownArchitecturesText(counts.unknownArchitectures));
    if (!counts.mostWanted.isEmpty())
        lines.append(tr("Most wanted:"));
    for (const WantedName &name : counts.mostWanted)
        lines.append(QStringLiteral("  ") + tr("%1, by %n package(s)", "", name.packages).arg(name.name));
    return lines;
}

QString DependsReport::text(const QList<PackageInfoPtr> &packages, const Heading &heading)
{
    QStringList lines{tr("Repository: %1").arg(heading.repository)};
    if (!heading.mode.isEmpty())
        lines << tr("Mode: %1").arg(heading.mode);
    if (heading.time.isValid())
        lines << tr("Date: %1").arg(heading.time.toString(Qt::ISODate));
    lines << QString() << summaryLines(packages);
    for (const PackageInfoPtr &package : inError(packages)) {
        lines << QString()
              << QStringLiteral("%1 %2 (%3, %4)")
                     .arg(package->name, package->version, package->component, package->architecture);
        for (const DependencyGroup &group : missingEntries(*package))
            lines.append(QStringLiteral("  ") + line(group, package->dependsInfo->selection));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QJsonObject DependsReport::json(const QList<PackageInfoPtr> &packages, const Heading &heading)
{
    const Summary counts = summary(packages);
    QJsonArray wanted;
    for (const WantedName &name : counts.mostWanted)
        wanted.append(
            QJsonObject{{QStringLiteral("name"), name.name}, {QStringLiteral("packages"), name.packages}});
    QJsonArray errors;
    for (const PackageInfoPtr &package : inError(packages)) {
        QJsonArray entries;
        for (const DependencyGroup &group : missingEntries(*package))
            entries.append(QJsonObject{
                {QStringLiteral("entry"), dependencyText(group)},
                {QStringLiteral("preDepends"), group.isPreDepends},
                {QStringLiteral("explanation"), explanation(group, package->dependsInfo->selection)}});
        errors.append(QJsonObject{{QStringLiteral("name"), package->name},
                                  {QStringLiteral("version"), package->version},
                                  {QStringLiteral("architecture"), package->architecture},
                                  {QStringLiteral("component"), package->component},
                                  {QStringLiteral("missing"), entries}});
    }
    QJsonObject report{
        {QStringLiteral("repository"), heading.repository},
        {QStringLiteral("satisfied"), counts.satisfied},
        {QStringLiteral("errors"), counts.errors},
        {QStringLiteral("unchecked"), counts.unchecked},
        {QStringLiteral("unknownArchitectures"), QJsonArray::fromStringList(counts.unknownArchitectures)},
        {QStringLiteral("mostWanted"), wanted},
        {QStringLiteral("packages"), errors}};
    if (!heading.mode.isEmpty())
        report.insert(QStringLiteral("mode"), heading.mode);
    if (heading.time.isValid())
        report.insert(QStringLiteral("date"), heading.time.toString(Qt::ISODate));
    return report;
}

QString DependsReport::offers(const Dependency &dependency, DependStatus status)
{
    QStringList texts;
    for (auto found = dependency.foundVersions.cbegin(); found != dependency.foundVersions.cend(); ++found) {
        if (found->status == status)
            texts.append(tr("%1 offers %2").arg(found.key(), found->version));
    }
    return texts.join(Separator);
}

QString DependsReport::constraint(const Dependency &dependency)
{
    QStringList parts{dependency.op + QLatin1Char(' ') + dependency.version};
    if (!dependency.secondOp.isEmpty())
        parts.append(dependency.secondOp + QLatin1Char(' ') + dependency.secondVersion);
    return parts.join(Separator);
}
