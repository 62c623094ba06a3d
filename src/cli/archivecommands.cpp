// SPDX-License-Identifier: GPL-3.0-or-later
// Archives out of a repository, and packages out of archives and folders.
#include "cli/commands.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/stopsignal.h"
#include "engine/preview/previewrequest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

/** The values of an option that can be repeated and be a list with commas. */
QStringList listed(const QStringList &values)
{
    return values.join(QLatin1Char(',')).split(QLatin1Char(','), Qt::SkipEmptyParts);
}
} // namespace

ExitCode Commands::exportPackages(const Invocation &invocation, Console &console)
{
    const QString target = absolute(invocation.others().first());
    const QStringList names = listed(invocation.values("packages"));
    if (names.isEmpty() && (invocation.has("packages") || invocation.has("with-depends"))) {
        console.error(QStringLiteral("usage"),
                      QCoreApplication::translate("cli", "--packages names the packages to export."));
        return ExitCode::Usage;
    }
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    const PackageSelection selection(names, PackageSelection::Patterns, invocation);
    if (!names.isEmpty() && selection.of(session.shell().packages()).isEmpty()) {
        selection.tellUnmatched(session.shell().packages(), console);
        return ExitCode::Failed;
    }
    if (QFileInfo(target).isFile()
        && !console.ask(
            {QString(), QCoreApplication::translate("cli", "%1 exists. Is it to be replaced?").arg(target)},
            &StopSignal::isRaised)) {
        console.error(QStringLiteral("exists"),
                      QCoreApplication::translate("cli", "The archive was not written."),
                      {},
                      target);
        return ExitCode::Failed;
    }
    int result = RepoEnums::ERROR;
    QStringList unmatched;
    if (names.isEmpty()) {
        result = session.run([&] { session.shell().exportRepo(target); });
    } else {
        const auto selected = session.runFor(selection, [&](const QList<PackageInfoPtr> &packages) {
            session.shell().exportPackages(packages, target, invocation.has("with-depends"));
        });
        unmatched = selected.unmatched;
        if (selected.packages.isEmpty())
            return ExitCode::Failed;
        result = session.result();
    }
    const bool isWritten = result == RepoEnums::SUCCESS;
    const ExitCode code = session.exitCode(isWritten);
    if (!isWritten)
        return code;
    console.line(QCoreApplication::translate("cli", "Wrote %1.").arg(target));
    console.object({{QStringLiteral("file"), target}, {QStringLiteral("bytes"), QFileInfo(target).size()}});
    return unmatched.isEmpty() ? code : ExitCode::Findings;
}

ExitCode Commands::import(const Invocation &invocation, Console &console)
{
    const QString source = absolute(invocation.others().first());
    if (!QFileInfo::exists(source)) {
        console.error(QStringLiteral("missing"),
                      QCoreApplication::translate("cli", "There is no file or folder %1.").arg(source),
                      {},
                      source);
        return ExitCode::Failed;
    }
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    if (invocation.has("dry-run")) {
        PreviewRequest request;
        request.kind = ChangePreview::Import;
        request.archive = source;
        request.options = session.addOptions();
        return DryRun::show(session, console, request);
    }
    const int result = session.run([&] { session.shell().importRepo(source, session.addOptions()); });
    session.tellChanges();
    const ExitCode code = session.exitCode();
    if (code == ExitCode::Failed && result == RepoEnums::ERROR && session.findings() == 0)
        console.error(QStringLiteral("nothing"),
                      QCoreApplication::translate("cli", "There are no packages in %1.").arg(source),
                      {},
                      source);
    return code;
}
