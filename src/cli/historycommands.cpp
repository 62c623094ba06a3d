// SPDX-License-Identifier: GPL-3.0-or-later
// The commands about restore points: what was changed, and the ways back.
#include "cli/commands.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositorysession.h"
#include "cli/terminal/changetext.h"
#include "cli/terminal/console.h"
#include "cli/terminal/stopsignal.h"
#include "engine/history/historydifference.h"
#include "engine/history/repositoryhistory.h"
#include "engine/preview/previewrequest.h"
#include "engine/repository/repositoryaccess.h"
#include "files/pathguard.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <optional>
#include <utility>

namespace
{
std::optional<RepositoryHistory> historyOf(const QString &path, Console &console)
{
    const QString reason = RepositoryAccess::refusal(path);
    if (reason.isEmpty() && PathGuard::isRepository(path))
        return RepositoryHistory::read(path);
    console.error(QStringLiteral("repository"),
                  QCoreApplication::translate("cli", "The repository %1 cannot be read.").arg(path),
                  reason,
                  path);
    return std::nullopt;
}

/** The number of a point that is there; 0 when there is none, which is told. */
int pointOf(const RepositoryHistory &history, const QString &word, Console &console)
{
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    if (isNumber && number > 0 && history.pointOf(number).number == number)
        return number;
    console.error(QStringLiteral("unknown"),
                  QCoreApplication::translate("cli", "The history has no restore point %1.").arg(word));
    return 0;
}

QString unknownText()
{
    return QCoreApplication::translate(
        "cli", "The history has damaged records, so it is not known what has changed since.");
}

std::optional<QVector<PackageChange>>
differenceOf(const RepositoryHistory &history, int from, int to, Console &console)
{
    auto changes = HistoryDifference::between(history.points, from, to);
    if (!changes)
        console.error(QStringLiteral("damaged"), unknownText());
    return changes;
}

QString headingOf(const RestorePoint &point)
{
    QString what = point.summary;
    if (!point.isReadable)
        what = point.reason;
    else if (point.kind == RestorePoint::Outside)
        what = QCoreApplication::translate("cli", "Changed by another program");
    else if (!point.isKept)
        what = QCoreApplication::translate("cli", "%1 (no way back: %2)").arg(what, point.reason);
    return QStringLiteral("%1  %2  %3  %4")
        .arg(QString::number(point.number),
             point.time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
             point.user.isEmpty() ? QStringLiteral("-") : point.user,
             what);
}

void tellPoint(const RestorePoint &point, Console &console)
{
    console.line(headingOf(point));
    if (point.changesDescription)
        console.line(QLatin1String("    ")
                     + QCoreApplication::translate("cli", "The description was changed"));
    for (const PackageChange &change : point.changes)
        console.line(QLatin1String("    ") + shownChange(change));
}

/** Shows what a way back would change, and asks; what --yes agrees to is told when it is done. */
bool agrees(const Invocation &invocation,
            const QVector<PackageChange> &changes,
            bool isDescriptionChanged,
            const QString &question,
            Console &console)
{
    constexpr int MostShown = 40;
    if (!invocation.has("yes")) {
        for (const PackageChange &change : changes.mid(0, MostShown))
            console.remark(shownChange(change));
        if (changes.size() > MostShown)
            console.remark(
                QCoreApplication::translate("cli", "And %1 more changes.").arg(changes.size() - MostShown));
    }
    if (isDescriptionChanged)
        console.remark(QCoreApplication::translate("cli", "The description of the repository changes too."));
    return console.ask({QString(), question}, &StopSignal::isRaised);
}

ExitCode refused(Console &console)
{
    console.error(QStringLiteral("refused"),
                  QCoreApplication::translate("cli", "The repository was not changed."));
    return StopSignal::isRaised() ? ExitCode::Stopped : ExitCode::Failed;
}

/** Goes back to the state before the point that `choose` names in the present history; it tells when there is none. */
ExitCode goBack(const Invocation &invocation,
                RepositorySession *session,
                Console &console,
                const std::function<int(const RepositoryHistory &)> &choose)
{
    RepoShell &shell = session->shell();
    if (invocation.has("dry-run")) {
        const auto history = historyOf(shell.path(), console);
        PreviewRequest request;
        request.kind = ChangePreview::Return;
        request.point = history ? choose(*history) : 0;
        return request.point == 0 ? ExitCode::Failed : DryRun::show(*session, console, request);
    }
    int chosen = 0;
    std::optional<ExitCode> ended;
    session->run([&] {
        // After another job it can be another point, and other packages.
        const auto history = historyOf(shell.path(), console);
        const int point = history ? choose(*history) : 0;
        ended = ExitCode::Failed;
        if (point == 0)
            return;
        chosen = point;
        const auto changes = HistoryDifference::between(history->points, HistoryDifference::Now, point);
        if (!changes)
            console.remark(unknownText());
        const bool isDescribed = std::any_of(
            history->points.cbegin(), history->points.cend(), [point](const RestorePoint &later) {
                return later.number >= point && later.changesDescription;
            });
        const QString time
            = QLocale().toString(history->pointOf(point).time.toLocalTime(), QLocale::ShortFormat);
        ended.reset();
        if (agrees(invocation,
                   changes.value_or(QVector<PackageChange>()),
                   isDescribed,
                   QCoreApplication::translate(
                       "cli", "Do you want to go back to the state before the restore point %1 (%2)?")
                       .arg(QString::number(point), time),
                   console))
            shell.goBack(point);
        else
            ended = refused(console);
    });
    if (ended)
        return *ended;
    const ExitCode code = session->exitCode();
    if (code == ExitCode::Done)
        console.remark(
            QCoreApplication::translate("cli", "The repository is as it was before restore point %1.")
                .arg(chosen));
    session->tellChanges({{QStringLiteral("point"), chosen}});
    return code;
}

ExitCode bringBack(const Invocation &invocation, RepositorySession *session, int point, Console &console)
{
    RepoShell &shell = session->shell();
    const QString name = invocation.value("package");
    const auto history = historyOf(shell.path(), console);
    const auto sinceThen
        = history ? differenceOf(*history, point, HistoryDifference::Now, console) : std::nullopt;
    if (!sinceThen)
        return ExitCode::Failed;
    QVector<PackageChange> rows;
    std::copy_if(sinceThen->cbegin(),
                 sinceThen->cend(),
                 std::back_inserter(rows),
                 [&name](const auto &change) { return change.name == name && !change.before.isNone(); });
    if (rows.isEmpty()) {
        console.error(QStringLiteral("nothing"),
                      QCoreApplication::translate("cli",
                                                  "Before the restore point %1 the repository had no other "
                                                  "version of %2 than now.")
                          .arg(QString::number(point), name));
        return ExitCode::Failed;
    }
    if (invocation.has("dry-run")) {
        PreviewRequest request;
        request.point = point;
        request.back = rows;
        const QString component = rows.first().component;
        const bool isOne = std::all_of(rows.cbegin(), rows.cend(), [&component](const PackageChange &row) {
            return row.component == component;
        });
        request.options.component = isOne ? component : QString();
        return DryRun::show(
            *session, console, request, PackageReplacementRules{PackageReplacementRules::ReplaceAll});
    }
    if (!agrees(invocation,
                HistoryDifference::inverted(rows),
                false,
                QCoreApplication::translate("cli", "Do you want to bring back %1?").arg(name),
                console))
        return refused(console);
    ExitCode worst = ExitCode::Done;
    QSet<QString> files;
    for (const PackageChange &row : std::as_const(rows)) {
        // A file can serve several architectures.
        if (files.contains(row.before.file))
            continue;
        files.insert(row.before.file);
        session->run([&] { shell.bringBack(point, row); });
        worst = std::max(worst, session->exitCode());
        if (worst > ExitCode::Findings)
            break;
    }
    session->tellChanges();
    return worst;
}
} // namespace

ExitCode Commands::history(const Invocation &invocation, Console &console)
{
    bool isNumber = true;
    const int limit = invocation.has("limit") ? invocation.value("limit").toInt(&isNumber) : 0;
    if (!isNumber || limit < 0 || (limit == 0 && invocation.has("limit"))) {
        console.error(QStringLiteral("usage"),
                      QCoreApplication::translate("cli", "--limit needs a number greater than 0, and not %1")
                          .arg(invocation.value("limit")));
        return ExitCode::Usage;
    }
    auto history = historyOf(invocation.repository(), console);
    if (!history)
        return ExitCode::Failed;
    qint64 freed = 0;
    if (invocation.has("prune")) {
        RepositorySession session(invocation, console);
        if (!session.open())
            return session.exitCode();
        const qint64 before = history->size;
        if (session.run([&] { session.shell().pruneHistory(); }) != RepoEnums::SUCCESS)
            return session.exitCode(false);
        history = RepositoryHistory::read(invocation.repository());
        freed = before - history->size;
    }
    auto points = HistoryDifference::ofPackage(history->points, invocation.others().value(0));
    if (limit > 0 && limit < points.size())
        points.resize(limit);
    QJsonArray shown;
    for (const RestorePoint &point : std::as_const(points)) {
        tellPoint(point, console);
        if (console.isJson())
            shown.append(ChangeJson::object(point));
    }
    const QLocale locale;
    if (!history->unavailable.isEmpty())
        console.remark(
            QCoreApplication::translate("cli", "No states are kept: %1").arg(history->unavailable));
    console.remark(QCoreApplication::translate("cli", "The history takes %1.")
                       .arg(locale.formattedDataSize(history->size)));
    if (invocation.has("prune"))
        console.remark(QCoreApplication::translate("cli", "Freed: %1").arg(locale.formattedDataSize(freed)));
    console.object({{QStringLiteral("points"), shown},
                    {QStringLiteral("size"), history->size},
                    {QStringLiteral("freed"), freed},
                    {QStringLiteral("unavailable"), history->unavailable}});
    return ExitCode::Done;
}

ExitCode Commands::diff(const Invocation &invocation, Console &console)
{
    const auto history = historyOf(invocation.repository(), console);
    if (!history)
        return ExitCode::Failed;
    const QStringList words = invocation.others();
    const int from = pointOf(*history, words.value(0), console);
    const int to = words.size() > 1 ? pointOf(*history, words.at(1), console) : HistoryDifference::Now;
    const auto changes = from == 0 || to == 0 ? std::nullopt : differenceOf(*history, from, to, console);
    if (!changes)
        return ExitCode::Failed;
    for (const PackageChange &change : *changes)
        console.line(shownChange(change));
    if (changes->isEmpty())
        console.remark(QCoreApplication::translate("cli", "No packages differ."));
    console.object({{QStringLiteral("from"), from},
                    {QStringLiteral("to"), words.size() > 1 ? QJsonValue(to) : QJsonValue()},
                    {QStringLiteral("changes"), ChangeJson::array(*changes)}});
    return ExitCode::Done;
}

ExitCode Commands::undo(const Invocation &invocation, Console &console)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    return goBack(invocation, &session, console, [&console, &invocation](const RepositoryHistory &history) {
        const auto kept = std::find_if(
            history.points.cbegin(), history.points.cend(), [](const auto &point) { return point.isKept; });
        if (kept != history.points.cend()) {
            // Without a question nobody could say no to what else is undone.
            if (kept != history.points.cbegin() && invocation.has("yes")) {
                console.error(
                    QStringLiteral("nothing"),
                    QCoreApplication::translate(
                        "cli",
                        "The state before the newest change is not kept. Name a point to go back further."),
                    history.points.first().reason);
                return 0;
            }
            if (kept != history.points.cbegin())
                console.remark(QCoreApplication::translate(
                    "cli", "The state before the newest change is not kept, so this goes back further."));
            return kept->number;
        }
        console.error(QStringLiteral("nothing"),
                      QCoreApplication::translate("cli", "The history has no state to go back to."),
                      history.unavailable);
        return 0;
    });
}

ExitCode Commands::restore(const Invocation &invocation, Console &console)
{
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    const QString word = invocation.others().value(0);
    if (!invocation.has("package"))
        return goBack(invocation, &session, console, [&](const RepositoryHistory &history) {
            return pointOf(history, word, console);
        });
    const auto history = historyOf(session.shell().path(), console);
    const int point = history ? pointOf(*history, word, console) : 0;
    return point == 0 ? ExitCode::Failed : bringBack(invocation, &session, point, console);
}
