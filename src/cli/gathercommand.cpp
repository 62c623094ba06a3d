// SPDX-License-Identifier: GPL-3.0-or-later
// All that the packages of a repository lack, from apt's sources.
#include "cli/commands.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "core/settingskeys.h"
#include "engine/gathering/gathertext.h"
#include "engine/preview/previewrequest.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QLocale>

#include <algorithm>
#include <memory>
#include <optional>

namespace
{
QJsonArray fetchedArray(const GatherPlan &plan)
{
    QJsonArray array;
    for (const GatherPlan::Row &row : plan.rows)
        array.append(QJsonObject{{QStringLiteral("package"), row.package.name},
                                 {QStringLiteral("version"), row.package.version},
                                 {QStringLiteral("architecture"), row.ownArchitecture},
                                 {QStringLiteral("bytes"), row.size},
                                 {QStringLiteral("source"), row.package.repository},
                                 {QStringLiteral("neededBy"), QJsonArray::fromStringList(row.neededBy)}});
    return array;
}

QJsonArray missingArray(const QVector<GatherPlan::Left> &left)
{
    QJsonArray array;
    for (const GatherPlan::Left &entry : left)
        array.append(QJsonObject{{QStringLiteral("package"), entry.owner.name},
                                 {QStringLiteral("version"), entry.owner.version},
                                 {QStringLiteral("architecture"), entry.owner.architecture},
                                 {QStringLiteral("needs"), entry.entry},
                                 {QStringLiteral("reason"), GatherText::reason(entry)}});
    return array;
}

/** The list for people; the preview that follows tells the rest. */
void tellRows(const GatherPlan &plan, Console &console)
{
    const QLocale locale;
    for (const GatherPlan::Row &row : plan.rows)
        console.line(QCoreApplication::translate("cli", "%1 %2 %3, %4, from %5, needed by %6")
                         .arg(row.package.name,
                              row.package.version,
                              row.ownArchitecture,
                              locale.formattedDataSize(row.size, 1),
                              row.package.repository,
                              GatherText::neededBy(row)));
    console.line(QCoreApplication::translate("cli", "To be fetched: %1, %2")
                     .arg(plan.rows.size())
                     .arg(locale.formattedDataSize(plan.size(), 1)));
}

void tellLeft(const QVector<GatherPlan::Left> &left, Console &console)
{
    if (left.isEmpty())
        console.line(GatherText::summary(left));
    else
        console.error(QStringLiteral("missing"),
                      GatherText::summary(left),
                      GatherText::lines(left).join(QLatin1Char('\n')));
}

ExitCode showOnly(const GatherPlan &plan, RepositorySession &session, Console &console)
{
    const auto left = plan.left();
    const ExitCode least = left.isEmpty() ? ExitCode::Done : ExitCode::Findings;
    const QJsonObject more{{QStringLiteral("fetched"), fetchedArray(plan)},
                           {QStringLiteral("missing"), missingArray(left)}};
    tellRows(plan, console);
    tellLeft(left, console);
    if (plan.rows.isEmpty()) {
        console.object(more);
        return least;
    }
    PreviewRequest request;
    request.kind = ChangePreview::Fetch;
    request.options = session.addOptions();
    request.wanted = plan.packages();
    return std::max(least, DryRun::show(session, console, request, {}, more));
}
} // namespace

ExitCode Commands::fetchMissing(const Invocation &invocation, Console &console)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    RepoShell &shell = session.shell();
    // What is to be had elsewhere does not count as met.
    shell.setDependsRepoType(DependsLocal);
    std::optional<GatherPlan> plan;
    QObject::connect(
        &shell, &RepoShell::gatherPlanReady, &session, [&plan](const GatherPlan &found) { plan = found; });
    // The component is that of the packages to add.
    Invocation chosen = invocation;
    chosen.options.remove(QStringLiteral("component"));
    const auto selected = session.runFor(PackageSelection(chosen.others(), PackageSelection::Names, chosen),
                                         [&](const QList<PackageInfoPtr> &packages) {
                                             shell.findMissing(packages, invocation.value("component"));
                                         });
    if (selected.packages.isEmpty() && !selected.unmatched.isEmpty())
        return ExitCode::Failed;
    ExitCode code = session.exitCode(plan.has_value() || selected.packages.isEmpty());
    if (!plan && !selected.packages.isEmpty())
        return code;
    if (!selected.unmatched.isEmpty())
        code = std::max(code, ExitCode::Findings);
    const GatherPlan found = plan.value_or(GatherPlan());
    if (invocation.has("dry-run"))
        return std::max(code, showOnly(found, session, console));
    if (found.rows.isEmpty()) {
        // The job would tell what is left.
        tellLeft(found.left(), console);
    } else if (code <= ExitCode::Findings) {
        const AddOptions options = session.addOptions();
        session.run([&] { shell.gather(found, options); });
        code = std::max(code, session.exitCode());
    }
    const auto left = found.after(shell.packages()).left();
    if (!left.isEmpty())
        code = std::max(code, ExitCode::Findings);
    session.tellChanges({{QStringLiteral("missing"), missingArray(left)}});
    return code;
}
