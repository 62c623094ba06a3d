// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/repositorycommands.h"

#include "engine/pathguard.h"
#include "engine/reposhell.h"
#include "server/publicationsettings.h"
#include "ui/jobfeedback.h"
#include "ui/newrepodialog.h"
#include "ui/newreporules.h"
#include "ui/prompts.h"
#include "ui/recentrepositories.h"
#include "ui/repositoryremoval.h"
#include "ui/repotabs.h"
#include "ui/repowidget.h"

#include <QDir>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QPointer>
#include <QSettings>
#include <QtConcurrent>

#include <memory>
#include <utility>

namespace
{
QString cleaned(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

bool isRepository(const QString &path)
{
    return QFileInfo(path + QLatin1String("/conf/distributions")).isFile();
}
} // namespace

RepositoryCommands::RepositoryCommands(
    RepoTabs &tabs, Prompts &prompts, JobFeedback &feedback, RecentRepositories &recent, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_feedback(feedback)
    , m_recent(recent)
{
    connect(&m_recent, &RecentRepositories::chosen, this, &RepositoryCommands::openRecent);
    connect(&m_tabs,
            &RepoTabs::moved,
            this,
            [this](const RepoWidget *, const QString &newPath, const QString &oldPath) {
                m_recent.remove(oldPath);
                m_recent.add(newPath);
            });
}

// --- new ---------------------------------------------------------------------------------------------------------

RepoWidget *RepositoryCommands::createRepo()
{
    NewRepoDialog dialog(NewRepoDialog::Mode::Create, m_prompts, qobject_cast<QWidget *>(m_prompts.parent()));
    return createFrom(&dialog, tr("Repository is not created."));
}

RepoWidget *RepositoryCommands::createForImport(const QString &source, const QString &folder)
{
    NewRepoDialog dialog(NewRepoDialog::Mode::Import, m_prompts, qobject_cast<QWidget *>(m_prompts.parent()));
    const QString proposed = NewRepoRules::importName(source);
    QString name = proposed;
    for (int number = 2; QFileInfo::exists(NewRepoRules::fullPath(folder, name)); ++number)
        name = QStringLiteral("%1-%2").arg(proposed).arg(number);
    dialog.propose(folder, name);
    // Creating wipes what is there.
    dialog.setPlaceCheck([source](const QString &path) {
        return PathGuard::overlap(path, source) ? tr("The packages are imported from %1, so the repository "
                                                     "can neither lie in it nor hold it. "
                                                     "Choose another path or name.")
                                                      .arg(source)
                                                : QString();
    });
    return createFrom(&dialog, tr("Repository for import is not created"));
}

RepoWidget *RepositoryCommands::createFrom(NewRepoDialog *dialog, const QString &failure)
{
    fillDefaults(dialog);
    dialog->setPublishedCheck(m_publishing.isPublished);
    if (m_prompts.run(*dialog) != QDialog::Accepted)
        return nullptr;
    const QString path = dialog->repositoryPath();
    for (const QString &removed : qAsConst(m_removing)) {
        if (PathGuard::overlap(path, removed)) {
            m_feedback.error(tr("The repository %1 is being deleted.").arg(removed), {}, RepoEnums::WARNING);
            return nullptr;
        }
    }
    RepoWidget *widget = m_tabs.create(path);
    connect(widget->repoShell(), &RepoShell::repoCreated, this, [this, widget, path, failure](int result) {
        if (result != RepoShell::SUCCESS) {
            m_feedback.announce(failure);
            return;
        }
        m_tabs.show(widget);
        m_recent.add(path);
        m_feedback.announce(tr("Repository is created."));
    });
    widget->repoShell()->createRepoAside(path, dialog->repoInfo());
    return widget;
}

void RepositoryCommands::fillDefaults(NewRepoDialog *dialog)
{
    // Asking the system runs a program, so the dialog is there first and is filled when the answer comes.
    auto *watcher = new QFutureWatcher<RepoInfo>(dialog);
    connect(watcher, &QFutureWatcher<RepoInfo>::finished, dialog, [watcher, dialog] {
        dialog->setDefaults(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(QtConcurrent::run(&RepoShell::defaultRepoInfo));
}

// --- open --------------------------------------------------------------------------------------------------------

RepoWidget *RepositoryCommands::chooseAndOpen()
{
    const QString path = m_prompts.directory(tr("Select repository directory"), QDir::homePath());
    return path.isEmpty() ? nullptr : openRepo(path);
}

RepoWidget *RepositoryCommands::openRepo(const QString &repoPath)
{
    const QString path = cleaned(repoPath);
    if (RepoWidget *open = m_tabs.find(path)) {
        m_tabs.bringToFront(open);
        return open;
    }
    if (!QFileInfo(path).isDir()) {
        m_feedback.error(tr("The directory %1 does not exist.").arg(path), {}, RepoEnums::WARNING);
        return nullptr;
    }
    if (m_removing.contains(PathGuard::resolved(path))) {
        m_feedback.announce(tr("The repository %1 is being deleted.").arg(path));
        return nullptr;
    }
    RepoWidget *widget = m_tabs.create(path);
    m_tabs.show(widget);
    // What turns out to be no repository is not worth remembering; a repository whose disk is absent just now keeps
    // the place that it has.
    const RepoShell *shell = widget->repoShell();
    const auto once = std::make_shared<QMetaObject::Connection>();
    *once = connect(shell, &RepoShell::pathChanged, this, [this, shell, path, once] {
        disconnect(*once);
        if (shell->path() == path)
            m_recent.add(path);
    });
    widget->openRepo(path);
    return widget;
}

void RepositoryCommands::openRecent(const QString &path)
{
    if (m_tabs.find(path) != nullptr || QFileInfo(path).isDir()) {
        openRepo(path);
        return;
    }
    m_feedback.appendLog(tr("The directory %1 does not exist.").arg(path));
    // It may lie on a disk that is absent just now.
    if (m_prompts.askCarefully(
            tr("Recent repositories"),
            tr("The directory %1 does not exist. Do you want to remove it from the list of "
               "recent repositories?")
                .arg(path))
        == Prompts::Answer::Yes)
        m_recent.remove(path);
}

void RepositoryCommands::reopen(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (isRepository(path))
            openRepo(path);
        else
            m_feedback.appendLog(tr("File %1/conf/distributions not found!").arg(path));
    }
}

// --- change ------------------------------------------------------------------------------------------------------

void RepositoryCommands::changeRepo()
{
    RepoWidget *widget = m_tabs.current();
    if (widget == nullptr || m_tabs.isRunning(widget))
        return;
    const QPointer<RepoWidget> guard(widget);
    NewRepoDialog dialog(NewRepoDialog::Mode::Change, m_prompts, qobject_cast<QWidget *>(m_prompts.parent()));
    dialog.setRepository(m_tabs.pathOf(widget), widget->repoShell()->repoInfo());
    dialog.setPublishedCheck(m_publishing.isPublished);
    if (m_prompts.run(dialog) != QDialog::Accepted || guard.isNull() || m_tabs.isRunning(widget))
        return;
    widget->repoShell()->changeRepo(dialog.repositoryPath(), dialog.repoInfo());
}

// --- remove ------------------------------------------------------------------------------------------------------

void RepositoryCommands::removeRepo()
{
    RepoWidget *widget = m_tabs.current();
    if (widget == nullptr || m_tabs.isRunning(widget))
        return;
    const QPointer<RepoWidget> guard(widget);
    const QString path = m_tabs.pathOf(widget);
    const QString title = tr("Remove confirmation");
    const bool isPublished = m_publishing.isPublished && m_publishing.isPublished(path);
    QStringList about;
    if (isPublished)
        about << tr("It is published, and clients use it.");
    if (m_publishing.isLocalSource && m_publishing.isLocalSource(*widget))
        about << tr(
            "It is in this machine's local sources list, and stays there if you do not remove it first. "
            "apt then reports an error at each update.");
    const auto mayGoOn = [this, guard] { return !guard.isNull() && !m_tabs.isRunning(guard); };
    if (m_prompts.askCarefully(
            title, tr("Do you want to delete a repository %1?").arg(path), about.join(QLatin1Char('\n')))
            != Prompts::Answer::Yes
        || !mayGoOn())
        return;
    if (!isPublished) {
        remove(widget);
        return;
    }
    const Prompts::Answer answer
        = m_prompts.ask(title,
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
    const QString path = m_tabs.pathOf(widget);
    Q_EMIT widget->repoShell()->requestForRemovingStoredInformation();
    // Nothing may use the directory any more when it goes; this also takes the tab away.
    widget->repoShell()->closeRepo();
    startRemoval(path);
}

void RepositoryCommands::startRemoval(const QString &path)
{
    const QString directory = PathGuard::resolved(path);
    m_removing << directory;
    using Outcome = std::pair<RepositoryRemoval::Outcome, QString>;
    auto *watcher = new QFutureWatcher<Outcome>(this);
    connect(watcher, &QFutureWatcher<Outcome>::finished, this, [this, watcher, path, directory] {
        const Outcome outcome = watcher->result();
        watcher->deleteLater();
        m_removing.removeOne(directory);
        if (outcome.first == RepositoryRemoval::Outcome::Deleted) {
            m_recent.remove(path);
            QSettings settings;
            PublicationSettings::release(settings, path);
            m_feedback.announce(tr("Repository is deleted."));
        } else if (outcome.first == RepositoryRemoval::Outcome::Absent) {
            m_recent.remove(path);
            m_feedback.error(tr("The directory %1 does not exist, so there was nothing to delete. The "
                                "repository was closed and is no longer among the recent ones.")
                                 .arg(path),
                             {},
                             RepoEnums::WARNING);
        } else {
            m_feedback.appendLog(tr("Repository is not deleted"));
            m_prompts.showError(tr("Repository is not deleted."), outcome.second);
        }
        if (m_removing.isEmpty())
            Q_EMIT removalsEnded();
    });
    watcher->setFuture(QtConcurrent::run([path, open = m_tabs.paths()] {
        QString reason;
        const RepositoryRemoval::Outcome outcome = RepositoryRemoval::remove(path, open, &reason);
        return Outcome(outcome, reason);
    }));
}
