// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptcommands.h"
#include "cli/commands.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/packagejson.h"
#include "core/settingskeys.h"
#include "depends/dependsparser.h"
#include "installability/installabilitytext.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>

namespace
{
DependsRepoType selectionOf(const QString &word)
{
    if (word == QLatin1String("public"))
        return DependsPublic;
    return word == QLatin1String("both") ? DependsEverywhere : DependsLocal;
}

/** The entries that nobody meets, as they stand in the package. */
QStringList missingOf(const PackageInfo &package)
{
    QStringList missing;
    for (const DependencyGroup &group : package.dependsInfo->groups) {
        if (group.status == DependError)
            missing.append(dependencyText(group, package.architecture));
    }
    return missing;
}
} // namespace

// --- the complete check --------------------------------------------------------------------------------------------

namespace
{
CompleteCheckBase baseOf(const Invocation &invocation)
{
    CompleteCheckBase base;
    const QString word = invocation.value("base");
    if (word == QLatin1String("nothing"))
        base.kind = CompleteCheckBase::Nothing;
    else if (word == QLatin1String("essential"))
        base.kind = CompleteCheckBase::Essential;
    else if (!word.isEmpty() && word != QLatin1String("public"))
        base.kind = CompleteCheckBase::Repository;
    if (base.kind == CompleteCheckBase::Repository)
        base.repository = QDir::cleanPath(QDir::current().absoluteFilePath(word));
    base.foreignArchitectures = invocation.values("foreign-architecture");
    return base;
}

const char *wordFor(InstallabilityStep::Kind kind)
{
    switch (kind) {
    case InstallabilityStep::Needs:
        return "needs";
    case InstallabilityStep::Lacks:
        return "lacks";
    case InstallabilityStep::Excludes:
        break;
    }
    return "excludes";
}

QJsonObject named(const NamedPackage &package)
{
    return {{QStringLiteral("package"), package.name},
            {QStringLiteral("version"), package.version},
            {QStringLiteral("architecture"), package.architecture}};
}

QJsonObject stepObject(const InstallabilityStep &step)
{
    QJsonArray targets;
    for (const NamedPackage &target : step.targets)
        targets.append(named(target));
    return {{QStringLiteral("kind"), QLatin1String(wordFor(step.kind))},
            {QStringLiteral("package"), named(step.package)},
            {QStringLiteral("field"), step.field},
            {QStringLiteral("relation"), step.relation},
            {QStringLiteral("targets"), targets},
            {QStringLiteral("text"), InstallabilityText::sentence(step)}};
}

QJsonArray reasonArray(const InstallabilityInfo &info)
{
    QJsonArray steps;
    for (const InstallabilityStep &step : info.reason)
        steps.append(stepObject(step));
    return steps;
}

QJsonObject packageObject(const PackageInfo &package)
{
    return {{QStringLiteral("package"), package.name},
            {QStringLiteral("version"), package.version},
            {QStringLiteral("architecture"), package.architecture}};
}

/** The results for people and for programs. */
class Findings
{
public:
    explicit Findings(Console &console)
        : m_console(console)
    { }

    void add(const PackageInfo &package)
    {
        const InstallabilityInfo &info = *package.installability;
        QJsonObject object = packageObject(package);
        ++m_packages;
        if (info.state == NotInstallable) {
            tell(package, info);
            object.insert(QStringLiteral("reasons"), reasonArray(info));
            m_broken.append(object);
        } else if (info.state == InstallabilityUndecided) {
            tell(package, info);
            object.insert(QStringLiteral("seconds"), info.seconds);
            m_undecided.append(object);
        }
        if (!info.unmetRecommends.isEmpty())
            addRecommends(package, info.unmetRecommends);
    }

    void finish()
    {
        m_console.line(QCoreApplication::translate("cli", "Checked: %1, not installable: %2, undecided: %3")
                           .arg(m_packages)
                           .arg(m_broken.size())
                           .arg(m_undecided.size()));
        QJsonObject result{{QStringLiteral("packages"), m_packages}, {QStringLiteral("broken"), m_broken}};
        if (!m_undecided.isEmpty())
            result.insert(QStringLiteral("undecided"), m_undecided);
        if (!m_recommends.isEmpty())
            result.insert(QStringLiteral("unmetRecommends"), m_recommends);
        m_console.object(result);
    }

    bool isAny() const { return !m_broken.isEmpty() || !m_undecided.isEmpty(); }

private:
    Console &m_console;
    int m_packages = 0;
    QJsonArray m_broken;
    QJsonArray m_undecided;
    QJsonArray m_recommends;

    void tell(const PackageInfo &package, const InstallabilityInfo &info)
    {
        m_console.line(QStringLiteral("%1: %2").arg(shownPackage(package), InstallabilityText::state(info)));
        const QStringList sentences = InstallabilityText::sentences(info.reason);
        for (const QString &sentence : sentences)
            m_console.line(QLatin1String("  ") + sentence);
    }

    void addRecommends(const PackageInfo &package, const QStringList &entries)
    {
        QJsonObject object = packageObject(package);
        object.insert(QStringLiteral("recommends"), QJsonArray::fromStringList(entries));
        m_recommends.append(object);
        m_console.line(
            QCoreApplication::translate("cli", "%1 recommends what cannot be installed with it: %2")
                .arg(shownPackage(package), entries.join(QLatin1String(", "))));
    }
};

/** Why these options cannot stand together; empty when they can. */
QString refusalOf(const Invocation &invocation)
{
    if (!invocation.has("complete")) {
        for (const char *option : {"base", "foreign-architecture"}) {
            if (invocation.has(option))
                return QCoreApplication::translate("cli", "--%1 is an option of --complete.")
                    .arg(QLatin1String(option));
        }
        return {};
    }
    if (invocation.has("against"))
        return QCoreApplication::translate("cli",
                                           "--against is for the check of names; --complete has --base.");
    const QStringList architectures = invocation.values("foreign-architecture");
    for (const QString &architecture : architectures) {
        if (!AptCommands::isArchitecture(architecture) || architecture == QLatin1String("all"))
            return QCoreApplication::translate("cli", "\"%1\" is not an architecture.").arg(architecture);
    }
    return {};
}

ExitCode checkCompletely(const Invocation &invocation, Console &console)
{
    const CompleteCheckBase base = baseOf(invocation);
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    const auto selected = session.runFor(
        PackageSelection(invocation.others(), PackageSelection::Patterns, invocation),
        [&](const QList<PackageInfoPtr> &packages) { session.shell().checkCompletely(packages, base); });
    if (selected.packages.isEmpty() && !selected.unmatched.isEmpty())
        return ExitCode::Failed;
    const auto checked = session.completelyChecked();
    const ExitCode code = session.exitCode(!checked.isEmpty());
    if (code == ExitCode::Failed)
        return code;
    Findings findings(console);
    for (const PackageInfoPtr &package : checked)
        findings.add(*package);
    findings.finish();
    return code == ExitCode::Done && (findings.isAny() || !selected.unmatched.isEmpty()) ? ExitCode::Findings
                                                                                         : code;
}
} // namespace

// --- the command ---------------------------------------------------------------------------------------------------

ExitCode Commands::check(const Invocation &invocation, Console &console)
{
    const QString refusal = refusalOf(invocation);
    if (!refusal.isEmpty()) {
        console.error(QStringLiteral("usage"), refusal);
        return ExitCode::Usage;
    }
    if (invocation.has("complete"))
        return checkCompletely(invocation, console);
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    RepoShell &shell = session.shell();
    shell.setDependsRepoType(selectionOf(invocation.value("against")));
    const auto selected
        = session.runFor(PackageSelection(invocation.others(), PackageSelection::Patterns, invocation),
                         [&](const QList<PackageInfoPtr> &packages) { shell.checkDepends(packages); });
    if (selected.packages.isEmpty() && !selected.unmatched.isEmpty())
        return ExitCode::Failed;
    const ExitCode code = session.exitCode(true);
    const auto checked = session.checked();
    QJsonArray broken;
    for (const PackageInfoPtr &package : checked) {
        if (package->dependStatus() != DependError)
            continue;
        const QStringList missing = missingOf(*package);
        console.line(QCoreApplication::translate("cli", "%1 lacks: %2")
                         .arg(shownPackage(*package), missing.join(QLatin1String(", "))));
        broken.append(QJsonObject{{QStringLiteral("package"), package->name},
                                  {QStringLiteral("version"), package->version},
                                  {QStringLiteral("architecture"), package->architecture},
                                  {QStringLiteral("missing"), QJsonArray::fromStringList(missing)}});
    }
    console.line(
        QCoreApplication::translate("cli", "Checked: %1, broken: %2").arg(checked.size()).arg(broken.size()));
    console.object({{QStringLiteral("checked"), checked.size()}, {QStringLiteral("broken"), broken}});
    return code == ExitCode::Done && !(broken.isEmpty() && selected.unmatched.isEmpty()) ? ExitCode::Findings
                                                                                         : code;
}
