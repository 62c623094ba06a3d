// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/descriptionrules.h"
#include "cli/dryrun.h"
#include "cli/invocation.h"
#include "cli/repositorysession.h"
#include "cli/terminal/console.h"
#include "cli/terminal/packagejson.h"
#include "cli/terminal/stopsignal.h"
#include "engine/preview/previewrequest.h"
#include "engine/repository/changerules.h"
#include "engine/repository/distributionsfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QtConcurrent>

#include <algorithm>

namespace
{
const QString Path = QStringLiteral("path");

/** The wanted values by their fields. */
struct Wish
{
    QMap<QString, QString> values;
    QString refusal; ///< of a word that is none; else empty

    explicit Wish(const QStringList &words)
    {
        const QStringList known = QStringList{Path} + DescriptionRules::fields();
        for (const QString &word : words) {
            const auto equals = word.indexOf(QLatin1Char('='));
            const QString field = word.left(equals);
            if (equals < 0 || !known.contains(field) || values.contains(field)) {
                refusal = QCoreApplication::translate(
                              "cli", "%1 is not FIELD=VALUE with one of these fields, each once: %2")
                              .arg(word, known.join(QLatin1String(", ")));
                return;
            }
            const QString value = word.mid(equals + 1);
            values.insert(field, value);
            refusal = field == Path && value.isEmpty()
                          ? QCoreApplication::translate("cli", "The path cannot be empty.")
                          : DescriptionRules::refusal(field, value);
            if (!refusal.isEmpty())
                return;
        }
    }

    /** The folder of the repository after the change. */
    QString path(const QString &present) const
    {
        return values.contains(Path) ? QDir::cleanPath(QDir::current().absoluteFilePath(values.value(Path)))
                                     : present;
    }
    RepoInfo applied(RepoInfo info) const
    {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            if (value.key() != Path)
                DescriptionRules::set(&info, value.key(), *value);
        }
        return info;
    }
};

bool isEmptyPlace(const QString &path)
{
    const QFileInfo info(path);
    return (!info.exists() && !info.isSymLink())
           || (info.isDir()
               && QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot));
}

/** Clients of a published repository would be left without it. The service manager may be slow to answer. */
bool isPublished(const RepoShell &shell)
{
    const auto published = QtConcurrent::run([&shell] { return shell.publishedRepos(); }).result();
    return std::any_of(published.cbegin(), published.cend(), [&shell](const PublishedRepo &repo) {
        return QFileInfo(repo.path).canonicalFilePath() == shell.canonicalPath();
    });
}

bool agreesToLosses(const QList<PackageInfoPtr> &lost, Console &console)
{
    constexpr int MostNamed = 10;
    if (lost.isEmpty())
        return true;
    QStringList names;
    for (const PackageInfoPtr &package : lost.mid(0, MostNamed))
        names.append(displayFileName(*package));
    if (lost.size() > MostNamed)
        names.append(QString(QChar(0x2026)));
    return console.ask(
        {QString(),
         QCoreApplication::translate("cli", "The change deletes %1 packages: %2. Is that right?")
             .arg(QString::number(lost.size()), names.join(QLatin1String(", ")))},
        &StopSignal::isRaised);
}
} // namespace

ExitCode Commands::change(const Invocation &invocation, Console &console)
{
    const auto fail
        = [&console](const char *code, const QString &text, ExitCode exitCode, const QString &file = {}) {
              console.error(QLatin1String(code), text, {}, file);
              return exitCode;
          };
    const Wish wish(invocation.others());
    if (!wish.refusal.isEmpty())
        return fail("usage", wish.refusal, ExitCode::Usage);
    RepositorySession session(invocation, console);
    if (!session.open())
        return session.exitCode();
    RepoShell &shell = session.shell();
    const DistributionsFile file(shell.path());
    const auto text = file.readBytes();
    if (!text)
        return fail("repository",
                    QCoreApplication::translate("cli", "The description of the repository cannot be read."),
                    ExitCode::Failed,
                    file.fileName());
    const QString path = wish.path(shell.path());
    RepoChange change{
        file.parsed(*text), wish.applied(file.parsed(*text)), !invocation.has("without-packages")};
    change.after.name = QFileInfo(path).fileName();
    const QString refusal = DescriptionRules::refusal(path, change.after);
    if (!refusal.isEmpty())
        return fail("usage", refusal, ExitCode::Usage);
    if (path != shell.path() && !isEmptyPlace(path))
        return fail(
            "exists",
            QCoreApplication::translate("cli", "%1 is not empty, so the repository was not moved.").arg(path),
            ExitCode::Failed,
            path);
    if (isPublished(shell))
        return fail("published",
                    QCoreApplication::translate("cli", "The repository is published. Unpublish it first."),
                    ExitCode::Failed);
    if (invocation.has("dry-run")) {
        PreviewRequest request;
        request.kind = ChangePreview::Describe;
        request.newPath = path;
        request.info = change.after;
        request.given = *text;
        request.carriesPackages = change.carries;
        return DryRun::show(session, console, request);
    }
    QList<PackageInfoPtr> lost;
    bool isAgreed = false;
    const int result = session.run([&] {
        // After another job it can be other packages that are lost.
        lost = change.lost(shell.packages());
        isAgreed = agreesToLosses(lost, console);
        if (isAgreed)
            shell.changeRepo(path, change.after, *text, change.carries);
    });
    if (!isAgreed)
        return fail("refused",
                    QCoreApplication::translate("cli", "The repository was not changed."),
                    StopSignal::isRaised() ? ExitCode::Stopped : ExitCode::Failed);
    if (result != RepoEnums::SUCCESS)
        return session.exitCode(false);
    console.line(QCoreApplication::translate("cli", "Changed the repository %1.").arg(shell.path()));
    console.object({{QStringLiteral("path"), shell.path()},
                    {QStringLiteral("codename"), shell.repoInfo().codename},
                    {QStringLiteral("removed"), PackageJson::array(lost)}});
    return session.exitCode(true);
}
