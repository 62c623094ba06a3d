// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/repositorycommands.h"

#include "core/runinbackground.h"
#include "engine/jobs/repositoryremoval.h"
#include "engine/reposhell.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/newreporules.h"
#include "files/pathguard.h"
#include "publication/publicationsettings.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/recentrepositories.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSettings>
#include <QTimer>

#include <memory>
#include <utility>

namespace
{
QString cleaned(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}
} // namespace

RepositoryCommands::RepositoryCommands(const Workbench &bench, RecentRepositories &recent, QObject *parent)
    : QObject(parent)
    , m_bench(bench)
    , m_recent(recent)
{
    connect(&m_recent, &RecentRepositories::chosen, this, &RepositoryCommands::openRecent);
    connect(&m_bench.tabs,
            &RepoTabs::moved,
            this,
            [this](const RepoWidget *, const QString &newPath, const QString &oldPath) {
                m_recent.remove(oldPath);
                m_recent.add(newPath);
            });
    connect(&m_bench.tabs, &RepoTabs::leaving, this, &RepositoryCommands::endReopening);
}

// --- new ---------------------------------------------------------------------------------------------------------

bool RepositoryCommands::createRepo(const Purpose &purpose)
{
    Creation creation;
    creation.mode = NewRepoDialog::Mode::Create;
    creation.failure = tr("Repository is not created.");
    creation.purpose = purpose;
    return create(creation);
}

void RepositoryCommands::createForImport(const QString &source, const QString &folder, const Purpose &purpose)
{
    const QString proposed = NewRepoRules::importName(source);
    QString name = proposed;
    for (int number = 2; QFileInfo::exists(NewRepoRules::fullPath(folder, name)); ++number)
        name = QStringLiteral("%1-%2").arg(proposed).arg(number);
    Creation creation;
    creation.mode = NewRepoDialog::Mode::Import;
    creation.failure = tr("Repository for import is not created");
    creation.source = source;
    creation.purpose = purpose;
    creation.path = NewRepoRules::fullPath(folder, name);
    create(creation);
}

bool RepositoryCommands::create(Creation creation)
{
    NewRepoDialog dialog(creation.mode, m_bench.prompts, m_bench.prompts.window());
    if (creation.isTypedIn) {
        dialog.setEntries(creation.path, creation.info);
    } else {
        if (!creation.path.isEmpty())
            dialog.propose(QFileInfo(creation.path).path(), QFileInfo(creation.path).fileName());
        fillDefaults(&dialog);
    }
    // Creating a repository wipes its directory, which must not be the source.
    if (!creation.source.isEmpty())
        dialog.setPathCheck([source = creation.source](const QString &path) {
            return PathGuard::overlap(path, source)
                       ? tr("The packages are imported from %1, so the repository "
                            "can neither lie in it nor hold it. "
                            "Choose another path or name.")
                             .arg(source)
                       : QString();
        });
    dialog.setPublishedCheck(m_publishing.isPublished);
    dialog.setRemembered(remembered());
    if (m_bench.prompts.run(dialog) != QDialog::Accepted)
        return false;
    const QString path = dialog.repositoryPath();
    for (const QString &removed : std::as_const(m_removing)) {
        if (PathGuard::overlap(path, removed)) {
            m_bench.feedback.error(
                tr("The repository %1 is being deleted.").arg(removed), {}, RepoEnums::WARNING);
            return false;
        }
    }
    creation.path = path;
    creation.info = dialog.repoInfo();
    creation.isTypedIn = true;
    RepoWidget *widget = m_bench.tabs.create(path);
    connect(widget->repoShell(), &RepoShell::repoCreated, this, [this, widget, creation](int result) {
        if (result != RepoShell::SUCCESS) {
            m_bench.feedback.announce(creation.failure);
            if (creation.purpose.failed)
                creation.purpose.failed(widget);
            QTimer::singleShot(0, this, [this, creation] { createAgain(creation); });
            return;
        }
        m_bench.tabs.show(widget);
        m_recent.add(creation.path);
        m_bench.feedback.announce(tr("Repository is created."));
    });
    widget->repoShell()->createRepoAside(path, creation.info);
    if (creation.purpose.made)
        creation.purpose.made(widget);
    return true;
}

void RepositoryCommands::createAgain(const Creation &creation)
{
    const bool isClosing = m_bench.prompts.isDismissed();
    if (isClosing || !m_bench.prompts.isOpen()) {
        if ((isClosing || !create(creation)) && creation.purpose.givenUp)
            creation.purpose.givenUp();
        return;
    }
    // The user reads the error first.
    const auto once = std::make_shared<QMetaObject::Connection>();
    const auto again = [this, creation, once] {
        disconnect(*once);
        createAgain(creation);
    };
    *once = connect(&m_bench.prompts, &Prompts::freed, this, again, Qt::QueuedConnection);
}

QStringList RepositoryCommands::remembered() const
{
    return m_recent.paths() + m_bench.tabs.allCanonicalPaths();
}

void RepositoryCommands::fillDefaults(NewRepoDialog *dialog)
{
    // The defaults come from a program. The dialog is shown before that and filled later.
    runInBackground(
        dialog, &RepoShell::defaultRepoInfo, [dialog](const RepoInfo &info) { dialog->setDefaults(info); });
}

// --- open --------------------------------------------------------------------------------------------------------

RepoWidget *RepositoryCommands::chooseAndOpen()
{
    const QString path = m_bench.prompts.directory(tr("Select repository directory"), QDir::homePath());
    return path.isEmpty() ? nullptr : openRepo(path);
}

RepoWidget *RepositoryCommands::openRepo(const QString &repoPath)
{
    return showRepo(repoPath, false);
}

RepositoryCommands::FolderState RepositoryCommands::stateOf(const QString &path)
{
    return {PathGuard::resolved(path),
            QFileInfo(path).isDir(),
            QFileInfo(path + QLatin1String("/conf/distributions")).isFile()};
}

RepoWidget *RepositoryCommands::showRepo(const QString &repoPath, bool again)
{
    const QString path = cleaned(repoPath);
    if (RepoWidget *open = m_bench.tabs.find(path)) {
        m_bench.tabs.bringToFront(open);
        return open;
    }
    RepoWidget *widget = m_bench.tabs.create(path);
    m_bench.tabs.show(widget);
    m_bench.tabs.setWaiting(widget, true);
    if (again)
        m_reopened.insert(widget);
    runInBackground(
        widget,
        [path] { return stateOf(path); },
        [this, widget, path, again](const FolderState &state) {
            if (m_bench.tabs.pathOf(widget).isEmpty() || m_bench.prompts.isDismissed())
                return;
            m_bench.tabs.setWaiting(widget, false);
            openWhatIsThere(widget, path, state, again);
            endReopening(widget);
        });
    return widget;
}

void RepositoryCommands::openWhatIsThere(RepoWidget *widget,
                                         const QString &path,
                                         const FolderState &state,
                                         bool again)
{
    RepoWidget *other = m_bench.tabs.find(state.canonicalPath);
    if (other != nullptr && other != widget) {
        m_bench.tabs.bringToFront(other);
    } else if (again && !state.isRepository) {
        m_bench.feedback.appendLog(tr("File %1/conf/distributions not found!").arg(path));
    } else if (!state.isFolder) {
        m_bench.feedback.error(tr("The directory %1 does not exist.").arg(path), {}, RepoEnums::WARNING);
    } else if (m_removing.contains(state.canonicalPath)) {
        m_bench.feedback.announce(tr("The repository %1 is being deleted.").arg(path));
    } else {
        m_bench.tabs.setCanonicalPath(widget, state.canonicalPath);
        if (!again)
            rememberOnceOpen(*widget->repoShell(), path);
        widget->openRepo(path);
        return;
    }
    m_bench.tabs.discard(widget);
}

void RepositoryCommands::rememberOnceOpen(const RepoShell &shell, const QString &path)
{
    // A folder that holds no repository is not remembered. A repository on an absent disk keeps its place in the
    // list.
    const auto once = std::make_shared<QMetaObject::Connection>();
    *once = connect(&shell, &RepoShell::pathChanged, this, [this, &shell, path, once] {
        disconnect(*once);
        if (shell.path() == path)
            m_recent.add(path);
    });
}

QString RepositoryCommands::canonicalPathOf(const QString &path) const
{
    const RepoWidget *widget = m_bench.tabs.find(path);
    return widget != nullptr ? m_bench.tabs.canonicalPathOf(widget) : PathGuard::resolved(path);
}

void RepositoryCommands::openRecent(const QString &path)
{
    if (m_bench.tabs.find(cleaned(path)) != nullptr) {
        openRepo(path);
        return;
    }
    runInBackground(
        this,
        [path] { return stateOf(path); },
        [this, path](const FolderState &state) {
            if (state.isFolder) {
                openRepo(path);
                return;
            }
            m_bench.feedback.appendLog(tr("The directory %1 does not exist.").arg(path));
            // The repository may lie on a disk that is absent now.
            if (m_bench.prompts.askCarefully(
                    tr("Recent repositories"),
                    tr("The directory %1 does not exist. Do you want to remove it from the list of "
                       "recent repositories?")
                        .arg(path))
                == Prompts::Answer::Yes)
                m_recent.remove(path);
        });
}

void RepositoryCommands::reopen(const QStringList &paths)
{
    for (const QString &path : paths)
        showRepo(path, true);
    // A disk that does not answer must not block for ever. In milliseconds:
    constexpr int Patience = 5000;
    QTimer::singleShot(Patience, this, [this] {
        if (!std::exchange(m_reopened, {}).isEmpty())
            Q_EMIT reopeningEnded();
    });
}

void RepositoryCommands::endReopening(const RepoWidget *widget)
{
    if (m_reopened.remove(widget) && m_reopened.isEmpty())
        Q_EMIT reopeningEnded();
}

// --- change ------------------------------------------------------------------------------------------------------

template <typename Work, typename Next>
void RepositoryCommands::lookFirst(const Work &look, const Next &next)
{
    RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr || m_bench.tabs.isRunning(widget))
        return;
    const QString path = m_bench.tabs.pathOf(widget);
    runInBackground(
        widget,
        [look, path] { return look(path); },
        [this, widget, path, next](const auto &found) {
            if (m_bench.tabs.pathOf(widget) == path && !m_bench.tabs.isRunning(widget)
                && !m_bench.prompts.isOpen())
                next(widget, found);
        });
}

void RepositoryCommands::changeRepo()
{
    // Somebody may have edited the description since the repository was opened.
    const auto read = [](const QString &path) { return DistributionsFile(path).readBytes(); };
    lookFirst(read, [this](RepoWidget *widget, const std::optional<QByteArray> &description) {
        if (description)
            change(widget, *description);
        else
            m_bench.feedback.error(
                tr("File %1/conf/distributions not found!").arg(m_bench.tabs.pathOf(widget)));
    });
}

void RepositoryCommands::change(RepoWidget *widget, const QByteArray &description)
{
    const QPointer<RepoWidget> guard(widget);
    const QString path = m_bench.tabs.pathOf(widget);
    NewRepoDialog dialog(NewRepoDialog::Mode::Change, m_bench.prompts, m_bench.prompts.window());
    dialog.setRepository(path, DistributionsFile(path).parsed(description), widget->repoShell()->packages());
    dialog.setPublishedCheck(m_publishing.isPublished);
    dialog.setRemembered(remembered());
    dialog.setPreviewCheck([&](bool isWished, const NewRepoDialog::Answer &answer) {
        if (guard.isNull() || (m_bench.tabs.isRunning(widget) && !m_bench.previews.isDecided(widget))) {
            answer(NewRepoDialog::Previewed::Failed);
            return;
        }
        PreviewCommands::Change change;
        PreviewRequest &request = change.request;
        request.kind = ChangePreview::Describe;
        request.newPath = dialog.repositoryPath();
        request.info = dialog.repoInfo();
        request.given = description;
        change.offersCarrying = request.info.codename != widget->repoShell()->repoInfo().codename
                                && widget->repoShell()->packageCount() > 0;
        request.carriesPackages = change.offersCarrying;
        change.decided = [answer](bool isDue) {
            answer(isDue ? NewRepoDialog::Previewed::Due : NewRepoDialog::Previewed::NotDue);
        };
        change.givenUp = [answer] { answer(NewRepoDialog::Previewed::Failed); };
        change.start = [widget, request, carries = &dialog] {
            widget->repoShell()->changeRepo(
                request.newPath, request.info, request.given, carries->carriesPackages());
        };
        m_bench.previews.run(
            widget, change, isWished ? PreviewCommands::Wish::Now : PreviewCommands::Wish::AsSet);
    });
    const bool isAccepted = m_bench.prompts.run(dialog) == QDialog::Accepted;
    if (guard.isNull())
        return;
    if (isAccepted)
        m_bench.previews.proceed(widget);
    else
        m_bench.previews.giveUp(widget);
}

// --- remove ------------------------------------------------------------------------------------------------------

void RepositoryCommands::removeRepo()
{
    // Nothing is given up for a deletion that is not possible.
    const RepositoryRemoval::Known known{m_bench.tabs.allCanonicalPaths(m_bench.tabs.current()),
                                         remembered()};
    const auto look = [known](const QString &path) { return RepositoryRemoval::refusal(path, known); };
    lookFirst(look, [this](RepoWidget *widget, const QString &refusal) {
        if (refusal.isEmpty())
            askForRemoval(widget);
        else
            m_bench.feedback.error(tr("Repository is not deleted."), refusal);
    });
}

void RepositoryCommands::askForRemoval(RepoWidget *widget)
{
    const QPointer<RepoWidget> guard(widget);
    const QString path = m_bench.tabs.pathOf(widget);
    const QString title = tr("Remove confirmation");
    const bool isPublished = m_publishing.isPublished && m_publishing.isPublished(path);
    QStringList about{
        tr("The directory %1 is deleted with everything in it, and cannot be brought back.").arg(path)};
    if (isPublished)
        about << tr("It is published, and clients use it.");
    if (m_publishing.isLocalSource && m_publishing.isLocalSource(*widget))
        about << tr(
            "It is in this machine's local sources list, and stays there if you do not remove it first. "
            "apt then reports an error at each update.");
    const auto mayGoOn = [this, guard] { return !guard.isNull() && !m_bench.tabs.isRunning(guard); };
    if (m_bench.prompts.askCarefully(
            title, tr("Do you want to delete a repository %1?").arg(path), about.join(QLatin1Char('\n')))
            != Prompts::Answer::Yes
        || !mayGoOn())
        return;
    if (!isPublished) {
        remove(widget);
        return;
    }
    const Prompts::Answer answer
        = m_bench.prompts.ask(title,
                              tr("Do you want to unpublish the repository first?"),
                              tr("Otherwise a service goes on that has nothing to serve."));
    if (answer == Prompts::Answer::Dismissed || !mayGoOn())
        return;
    if (answer == Prompts::Answer::No) {
        remove(widget);
        return;
    }
    m_publishing.unpublish(path, [this, guard, mayGoOn](bool done) {
        if (done && mayGoOn())
            remove(guard);
    });
}

void RepositoryCommands::remove(RepoWidget *widget)
{
    const QString path = m_bench.tabs.pathOf(widget);
    const QString canonicalPath = m_bench.tabs.canonicalPathOf(widget);
    // Nothing may use the directory any more when it is deleted. This also takes the tab away.
    widget->repoShell()->closeAndForgetRepo();
    startRemoval(path, canonicalPath);
}

void RepositoryCommands::startRemoval(const QString &path, const QString &canonicalPath)
{
    m_removing << canonicalPath;
    using Outcome = std::pair<RepositoryRemoval::Outcome, QString>;
    const auto work
        = [path, known = RepositoryRemoval::Known{m_bench.tabs.allCanonicalPaths(), remembered()}] {
              QString reason;
              const RepositoryRemoval::Outcome outcome = RepositoryRemoval::remove(path, known, &reason);
              return Outcome(outcome, reason);
          };
    runInBackground(this, work, [this, path, canonicalPath](const Outcome &outcome) {
        m_removing.removeOne(canonicalPath);
        if (outcome.first == RepositoryRemoval::Outcome::Deleted) {
            m_recent.remove(path);
            QSettings settings;
            PublicationSettings::release(settings, {path, canonicalPath});
            m_bench.feedback.announce(tr("Repository is deleted."));
        } else if (outcome.first == RepositoryRemoval::Outcome::Absent) {
            m_recent.remove(path);
            m_bench.feedback.error(tr("The directory %1 does not exist, so there was nothing to delete. The "
                                      "repository was closed and is no longer among the recent ones.")
                                       .arg(path),
                                   {},
                                   RepoEnums::WARNING);
        } else {
            m_bench.feedback.appendLog(tr("Repository is not deleted"));
            m_bench.prompts.showError(tr("Repository is not deleted."), outcome.second);
        }
        if (m_removing.isEmpty())
            Q_EMIT removalsEnded();
    });
}
