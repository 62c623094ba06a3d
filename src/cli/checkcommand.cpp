// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/completecheck.h"
#include "cli/console.h"
#include "cli/invocation.h"
#include "cli/packagejson.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "core/settingskeys.h"
#include "depends/dependsparser.h"

#include <QCoreApplication>
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

ExitCode Commands::check(const Invocation &invocation, Console &console)
{
    const QString refusal = CompleteCheck::refusal(invocation);
    if (!refusal.isEmpty()) {
        console.error(QStringLiteral("usage"), refusal);
        return ExitCode::Usage;
    }
    if (invocation.has("complete"))
        return CompleteCheck::run(invocation, console);
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
