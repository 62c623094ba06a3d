// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilityreport.h"

#include "core/relationtext.h"
#include "installability/installabilitytext.h"

#include <QHash>
#include <QJsonArray>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <array>

namespace
{
constexpr int ObstacleNames = 10;

template <typename Condition>
QList<PackageInfoPtr> sortedOnes(const QList<PackageInfoPtr> &packages, Condition condition)
{
    QList<PackageInfoPtr> result;
    std::copy_if(packages.cbegin(), packages.cend(), std::back_inserter(result), condition);
    std::stable_sort(result.begin(), result.end(), [](const PackageInfoPtr &a, const PackageInfoPtr &b) {
        return a->name < b->name;
    });
    return result;
}

QList<PackageInfoPtr> inState(const QList<PackageInfoPtr> &packages, Installability state)
{
    return sortedOnes(
        packages, [state](const PackageInfoPtr &package) { return package->installabilityState() == state; });
}

QList<PackageInfoPtr> withUnmetRecommends(const QList<PackageInfoPtr> &packages)
{
    return sortedOnes(packages, [](const PackageInfoPtr &package) {
        return package->installability && !package->installability->unmetRecommends.isEmpty();
    });
}

/** The first name of an entry; the others are only instead of it. */
QString firstName(const QString &relation)
{
    const QByteArray bytes = relation.toUtf8();
    std::string_view rest(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    RelationText read;
    if (!readRelation(takePiece(rest, '|'), read))
        return {};
    return QString::fromUtf8(read.name.data(), static_cast<int>(read.name.size()));
}

/** The names at which a reason ends, without that of the package itself. */
QSet<QString> obstacles(const PackageInfo &package)
{
    QSet<QString> names;
    for (const InstallabilityStep &step : package.installability->reason) {
        if (step.kind == InstallabilityStep::Lacks)
            names.insert(firstName(step.relation));
        if (step.kind != InstallabilityStep::Excludes)
            continue;
        names.insert(step.package.name);
        for (const NamedPackage &target : step.targets)
            names.insert(target.name);
    }
    names.remove(package.name);
    return names;
}

QString line(const PackageInfo &package)
{
    return QStringLiteral("%1 %2 (%3, %4)")
        .arg(InstallabilityText::shown(package.name),
             InstallabilityText::shown(package.version),
             InstallabilityText::shown(package.component),
             package.architecture);
}

QJsonObject named(const NamedPackage &package)
{
    return {{QStringLiteral("name"), package.name},
            {QStringLiteral("version"), package.version},
            {QStringLiteral("architecture"), package.architecture},
            {QStringLiteral("local"), package.isLocal}};
}

QJsonObject stepObject(const InstallabilityStep &step)
{
    constexpr std::array<const char *, 3> kinds{"needs", "lacks", "excludes"};
    QJsonArray targets;
    for (const NamedPackage &target : step.targets)
        targets.append(named(target));
    return {{QStringLiteral("kind"), QLatin1String(kinds.at(static_cast<std::size_t>(step.kind)))},
            {QStringLiteral("package"), named(step.package)},
            {QStringLiteral("field"), step.field},
            {QStringLiteral("relation"), step.relation},
            {QStringLiteral("targets"), targets}};
}

QJsonObject packageObject(const PackageInfo &package)
{
    return {{QStringLiteral("name"), package.name},
            {QStringLiteral("version"), package.version},
            {QStringLiteral("architecture"), package.architecture},
            {QStringLiteral("component"), package.component}};
}

/** An object for each package, with what `add` puts into it. */
template <typename Add>
QJsonArray packageObjects(const QList<PackageInfoPtr> &packages, Add add)
{
    QJsonArray result;
    for (const PackageInfoPtr &package : packages) {
        QJsonObject object = packageObject(*package);
        add(*package->installability, object);
        result.append(object);
    }
    return result;
}

QJsonObject baseObject(const CompleteCheckBase &base)
{
    constexpr std::array<const char *, 4> kinds{"nothing", "essential", "public", "repository"};
    QJsonObject object{
        {QStringLiteral("kind"), QLatin1String(kinds.at(static_cast<std::size_t>(base.kind)))},
        {QStringLiteral("words"), InstallabilityText::base(base)},
        {QStringLiteral("foreignArchitectures"), QJsonArray::fromStringList(base.foreignArchitectures)}};
    if (base.kind == CompleteCheckBase::Repository)
        object.insert(QStringLiteral("repository"), base.repository);
    return object;
}
} // namespace

bool InstallabilityReport::hasResults(const QList<PackageInfoPtr> &packages)
{
    return std::any_of(packages.cbegin(), packages.cend(), [](const PackageInfoPtr &package) {
        return package->installabilityState() != InstallabilityUnknown;
    });
}

InstallabilityReport::Summary InstallabilityReport::summary(const QList<PackageInfoPtr> &packages)
{
    Summary result;
    QHash<QString, int> inTheWay;
    for (const PackageInfoPtr &package : packages) {
        const Installability state = package->installabilityState();
        result.installable += static_cast<int>(state == Installable);
        result.notInstallable += static_cast<int>(state == NotInstallable);
        result.undecided += static_cast<int>(state == InstallabilityUndecided);
        result.unchecked += static_cast<int>(state == InstallabilityUnknown);
        if (state != NotInstallable)
            continue;
        for (const QString &name : obstacles(*package))
            ++inTheWay[name];
    }
    for (auto it = inTheWay.cbegin(); it != inTheWay.cend(); ++it)
        result.mostInTheWay.append({it.key(), it.value()});
    std::sort(
        result.mostInTheWay.begin(), result.mostInTheWay.end(), [](const Obstacle &a, const Obstacle &b) {
            return a.packages != b.packages ? a.packages > b.packages : a.name < b.name;
        });
    if (result.mostInTheWay.size() > ObstacleNames)
        result.mostInTheWay.resize(ObstacleNames);
    return result;
}

QString InstallabilityReport::text(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &check)
{
    const QString indent = QStringLiteral("  ");
    QStringList lines{tr("Complete check")};
    if (check.isValid()) {
        lines << tr("Checked against: %1").arg(InstallabilityText::base(check.base))
              << tr("Date: %1").arg(check.time.toLocalTime().toString(Qt::ISODate));
    }
    if (check.isStale)
        lines << tr("The packages, or what they were checked against, have changed since: check again.");
    const Summary counts = summary(packages);
    lines << QString() << tr("Packages that can be installed: %1").arg(counts.installable)
          << tr("Packages that cannot be installed: %1").arg(counts.notInstallable)
          << tr("Packages undecided: %1").arg(counts.undecided)
          << tr("Packages not checked: %1").arg(counts.unchecked);
    if (!counts.mostInTheWay.isEmpty())
        lines << tr("Most often in the way:");
    for (const Obstacle &obstacle : counts.mostInTheWay)
        lines << indent
                     + tr("%1, of %n package(s)", "", obstacle.packages)
                           .arg(InstallabilityText::shown(obstacle.name));
    for (const PackageInfoPtr &package : inState(packages, NotInstallable)) {
        lines << QString() << line(*package);
        for (const QString &sentence : InstallabilityText::sentences(package->installability->reason))
            lines << indent + sentence;
    }
    for (const PackageInfoPtr &package : inState(packages, InstallabilityUndecided))
        lines << QString() << line(*package) << indent + InstallabilityText::state(*package->installability);
    const QList<PackageInfoPtr> recommending = withUnmetRecommends(packages);
    if (!recommending.isEmpty())
        lines << QString() << tr("Recommended, but cannot be installed together with the package:");
    for (const PackageInfoPtr &package : recommending) {
        lines << indent + line(*package);
        for (const QString &entry : package->installability->unmetRecommends)
            lines << indent + indent + InstallabilityText::shown(entry);
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QJsonObject InstallabilityReport::json(const QList<PackageInfoPtr> &packages,
                                       const CompleteCheckRecord &check)
{
    const Summary counts = summary(packages);
    QJsonArray inTheWay;
    for (const Obstacle &obstacle : counts.mostInTheWay)
        inTheWay.append(QJsonObject{{QStringLiteral("name"), obstacle.name},
                                    {QStringLiteral("packages"), obstacle.packages}});
    const auto addReason = [](const InstallabilityInfo &info, QJsonObject &object) {
        QJsonArray steps;
        for (const InstallabilityStep &step : info.reason)
            steps.append(stepObject(step));
        object.insert(QStringLiteral("steps"), steps);
        object.insert(QStringLiteral("reasons"),
                      QJsonArray::fromStringList(InstallabilityText::sentences(info.reason)));
    };
    const auto addSeconds = [](const InstallabilityInfo &info, QJsonObject &object) {
        object.insert(QStringLiteral("seconds"), info.seconds);
    };
    const auto addRecommends = [](const InstallabilityInfo &info, QJsonObject &object) {
        object.insert(QStringLiteral("recommends"), QJsonArray::fromStringList(info.unmetRecommends));
    };
    QJsonObject report{
        {QStringLiteral("installable"), counts.installable},
        {QStringLiteral("notInstallable"), counts.notInstallable},
        {QStringLiteral("undecided"), counts.undecided},
        {QStringLiteral("unchecked"), counts.unchecked},
        {QStringLiteral("mostInTheWay"), inTheWay},
        {QStringLiteral("packages"), packageObjects(inState(packages, NotInstallable), addReason)},
        {QStringLiteral("undecidedPackages"),
         packageObjects(inState(packages, InstallabilityUndecided), addSeconds)},
        {QStringLiteral("unmetRecommends"), packageObjects(withUnmetRecommends(packages), addRecommends)}};
    if (check.isValid()) {
        report.insert(QStringLiteral("base"), baseObject(check.base));
        report.insert(QStringLiteral("date"), check.time.toUTC().toString(Qt::ISODate));
        report.insert(QStringLiteral("stale"), check.isStale);
    }
    return report;
}
