// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositoryreading.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/packagejson.h"
#include "engine/preview/previewrequest.h"
#include "engine/repository/repositoryaccess.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>

namespace
{
/** The call as one that is about the packages of the first repository. */
Invocation aboutSource(const Invocation &invocation)
{
    Invocation source = invocation;
    source.operands.removeAt(1);
    // It is that of the target.
    source.options.remove(QStringLiteral("component"));
    return source;
}

/** The call as one that is about the second repository. */
Invocation aboutTarget(const Invocation &invocation)
{
    Invocation target = invocation;
    target.operands.removeAt(0);
    return target;
}

QString resolved(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

ExitCode refusal(Console &console, const char *code, const QString &text)
{
    console.error(QLatin1String(code), text);
    return qstrcmp(code, "usage") == 0 ? ExitCode::Usage : ExitCode::Failed;
}

ExitCode dryRun(RepositorySession &session, Console &console, const CopySource &source, bool leaves)
{
    PreviewRequest request;
    request.copy = source;
    request.options = session.addOptions();
    QJsonObject more;
    if (leaves) {
        const auto leaving = source.leaving();
        more.insert(QStringLiteral("leaving"), PackageJson::array(leaving));
        for (const PackageInfoPtr &package : leaving)
            console.line(QCoreApplication::translate("cli", "Would be removed from %1: %2")
                             .arg(source.path, shownPackage(*package)));
    }
    return DryRun::show(session, console, request, {}, more);
}

bool hasChanges(const QJsonObject &result)
{
    return std::any_of(result.begin(), result.end(), [](const QJsonValue &packages) {
        return !packages.toArray().isEmpty();
    });
}

/** The second half of a move: what has arrived leaves the source. */
ExitCode leave(const Invocation &invocation,
               Console &console,
               const CopySource &source,
               const QString &target,
               QJsonObject *result)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    session.run([&] { session.shell().removeMoved(source.leaving(), target); });
    const auto removed = session.removed();
    for (const PackageInfoPtr &package : removed)
        console.line(QCoreApplication::translate("cli", "Removed from %1: %2")
                         .arg(source.path, shownPackage(*package)));
    result->insert(QStringLiteral("moved"), PackageJson::array(removed));
    return session.exitCode();
}
} // namespace

ExitCode Commands::copy(const Invocation &invocation, Console &console)
{
    const Invocation from = aboutSource(invocation);
    const Invocation to = aboutTarget(invocation);
    const QString component = invocation.value("component");
    const bool isWithin = resolved(from.repository()) == resolved(to.repository());
    const bool leaves = invocation.has("move") && !isWithin;
    if (isWithin && component.isEmpty())
        return refusal(console,
                       "usage",
                       QCoreApplication::translate(
                           "cli", "Within one repository, --component must name another component."));
    const auto reading = RepositoryReading::of(from.repository(), console);
    if (!reading)
        return ExitCode::Failed;
    if (leaves && !RepositoryAccess::mayWrite(reading->path))
        return refusal(
            console,
            "repository",
            QCoreApplication::translate("cli", "You cannot change the repository %1.").arg(reading->path));
    const PackageSelection selection(from.others(), PackageSelection::Names, from);
    const QStringList unmatched = selection.tellUnmatched(reading->packages, console);
    CopySource source{reading->path,
                      selection.of(reading->packages),
                      reading->packages,
                      invocation.has("with-depends"),
                      invocation.has("move") && isWithin};
    if (isWithin)
        source.packages.erase(
            std::remove_if(source.packages.begin(),
                           source.packages.end(),
                           [&](const auto &package) { return package->indexComponent == component; }),
            source.packages.end());
    if (source.packages.isEmpty())
        return unmatched.isEmpty() ? refusal(
                   console,
                   "nothing",
                   QCoreApplication::translate("cli", "The packages are in this component already."))
                                   : ExitCode::Failed;
    QJsonObject result;
    ExitCode code = ExitCode::Done;
    {
        RepositorySession session(to, console);
        if (!session.open())
            return session.exitCode();
        if (invocation.has("dry-run")) {
            code = dryRun(session, console, source, leaves);
            return code == ExitCode::Done && !unmatched.isEmpty() ? ExitCode::Findings : code;
        }
        session.run([&] { session.shell().copyPackages(source, session.addOptions()); });
        result = session.changes();
        code = session.exitCode();
    }
    // What could not be copied stays, and what was there already leaves.
    if (leaves && code < ExitCode::Locked)
        code = std::max(code, leave(from, console, source, to.repository(), &result));
    if (code == ExitCode::Failed && hasChanges(result))
        code = ExitCode::Findings;
    console.object(result);
    return code == ExitCode::Done && !unmatched.isEmpty() ? ExitCode::Findings : code;
}
