// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/batch/batchcommands.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "files/wholefile.h"
#include "ui/batch/batchdialog.h"
#include "ui/commands/publicationcommands.h"
#include "ui/commands/repositorycommands.h"
#include "ui/commands/settingscommands.h"
#include "ui/commands/upgradecommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include "ui_mainwindow.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QMenu>

#include <algorithm>

namespace
{
bool isRepository(const QString &path)
{
    return QFileInfo(path + QLatin1String("/conf/distributions")).isFile();
}

/** The folder itself, and the repositories in it and in the folders directly below it; links are not followed. */
QStringList repositoriesBelow(const QString &folder)
{
    if (isRepository(folder))
        return {folder};
    QStringList found;
    const auto foldersIn = [](const QString &path) {
        QStringList paths;
        const QFileInfoList entries
            = QDir(path).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
        for (const QFileInfo &entry : entries)
            paths.append(entry.filePath());
        return paths;
    };
    for (const QString &path : foldersIn(folder)) {
        if (isRepository(path)) {
            found.append(path);
            continue;
        }
        for (const QString &below : foldersIn(path))
            if (isRepository(below))
                found.append(below);
    }
    return found;
}

/** For each repository a file of its own in the folder, also when two have the same name. */
QStringList archivesOf(const QVector<BatchRun::Item> &items, const QString &folder)
{
    QStringList archives;
    for (const BatchRun::Item &item : items) {
        const QString name = QStringLiteral("%1/%2_export").arg(folder, QFileInfo(item.path).fileName());
        QString archive = name + QLatin1String(".tgz");
        for (int number = 2; archives.contains(archive); ++number)
            archive = QStringLiteral("%1_%2.tgz").arg(name).arg(number);
        archives.append(archive);
    }
    return archives;
}
} // namespace

BatchCommands::BatchCommands(Ui::MainWindow &ui,
                             const Workbench &bench,
                             RepositoryCommands &repositories,
                             UpgradeCommands &upgrades,
                             PublicationCommands &publications,
                             QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_repositories(repositories)
    , m_upgrades(upgrades)
    , m_publications(publications)
    , m_window(window)
    , m_menu(new QMenu(tr("All open repositories"), window))
{
    m_menu->setObjectName(QStringLiteral("m_batchMenu"));
    add(m_menu, tr("Check depends"), "view-refresh", &BatchCommands::check)
        ->setObjectName(QStringLiteral("m_batchCheckAction"));
    add(m_menu, tr("Complete check"), "system-search", &BatchCommands::checkCompletely)
        ->setObjectName(QStringLiteral("m_batchCompleteCheckAction"));
    m_menu->addSeparator();
    add(m_menu, tr("Export..."), "utilities-file-archiver", &BatchCommands::exportAll)
        ->setObjectName(QStringLiteral("m_batchExportAction"));
    add(m_menu, tr("Upgrade..."), "download", &BatchCommands::upgrade)
        ->setObjectName(QStringLiteral("m_batchUpgradeAction"));
    add(m_menu, tr("Publish"), "media-playback-start", &BatchCommands::publish)
        ->setObjectName(QStringLiteral("m_batchPublishAction"));
    m_openAction
        = add(ui.menu, tr("Open repositories below a folder..."), "folder-open", &BatchCommands::openBelow);
    m_openAction->setObjectName(QStringLiteral("m_openBelowAction"));
    ui.menu->removeAction(m_openAction);
    ui.menu->insertAction(ui.m_removeRepoAction, m_openAction);
    ui.menu->insertMenu(ui.m_exportRepoMenu->menuAction(), m_menu);
}

QAction *
BatchCommands::add(QMenu *menu, const QString &text, const char *icon, void (BatchCommands::*command)())
{
    QAction *action = menu->addAction(QIcon::fromTheme(QLatin1String(icon)), text);
    connect(action, &QAction::triggered, this, [this, command] { (this->*command)(); });
    return action;
}

QString BatchCommands::emptyText()
{
    return tr("The repository is empty.");
}

void BatchCommands::updateActions()
{
    const bool isFree = m_run == nullptr || m_run->isOver();
    m_openAction->setEnabled(isFree);
    m_menu->menuAction()->setEnabled(isFree && m_bench.tabs.current() != nullptr);
}

void BatchCommands::stop()
{
    if (m_run != nullptr)
        m_run->stop();
}

// --- the commands --------------------------------------------------------------------------------------------------

void BatchCommands::openBelow()
{
    const QString folder = m_bench.prompts.directory(tr("Folder with repositories"), m_lastFolder);
    if (folder.isEmpty())
        return;
    m_lastFolder = folder;
    const auto look = [folder] { return repositoriesBelow(folder); };
    runInBackground(this, look, [this, folder](const QStringList &paths) {
        if (paths.isEmpty()) {
            m_bench.prompts.inform(
                tr("Open repositories"),
                tr("There is no repository in %1 and in the folders directly below it.").arg(folder));
            return;
        }
        QVector<BatchRun::Item> items;
        for (const QString &path : paths)
            items.append({path, [this, path] { return m_repositories.openRepo(path); }});
        run(tr("Open repositories"), items, {});
    });
}

void BatchCommands::check()
{
    if (m_bench.settings.choices().dependsRepoType == DependsNowhere) {
        m_bench.prompts.warn(tr("Warning!"), tr("Dependences checking is disabled."));
        return;
    }
    const auto start = [](RepoWidget *widget) {
        widget->repoShell()->checkDepends(widget->repoShell()->packages());
        return widget->repoShell()->packageCount() == 0 ? emptyText() : QString();
    };
    const auto tell = [](const RepoWidget *widget) {
        const QList<PackageInfoPtr> packages = widget->repoShell()->packages();
        const auto count = [&packages](DependStatus status) {
            return std::count_if(packages.cbegin(), packages.cend(), [status](const PackageInfoPtr &package) {
                return package->dependStatus() == status;
            });
        };
        return tr("Packages with missing dependencies: %1, not checked: %2")
            .arg(count(DependError))
            .arg(count(DependUndefined));
    };
    run(tr("Checking the dependences of all open repositories"), openRepositories(), {start, tell});
}

void BatchCommands::checkCompletely()
{
    const auto start = [base = m_bench.settings.checkBase()](RepoWidget *widget) {
        widget->repoShell()->checkCompletely(widget->repoShell()->packages(), base);
        return widget->repoShell()->packageCount() == 0 ? emptyText() : QString();
    };
    const auto tell = [](const RepoWidget *widget) {
        const QList<PackageInfoPtr> packages = widget->repoShell()->packages();
        const auto count = [&packages](Installability state) {
            return std::count_if(packages.cbegin(), packages.cend(), [state](const PackageInfoPtr &package) {
                return package->installabilityState() == state;
            });
        };
        return tr("Packages that cannot be installed: %1, not known: %2")
            .arg(count(NotInstallable))
            .arg(count(InstallabilityUnknown) + count(InstallabilityUndecided));
    };
    run(tr("Complete check of all open repositories"), openRepositories(), {start, tell});
}

void BatchCommands::exportAll()
{
    const QString folder = m_bench.prompts.directory(tr("Folder for the archives"), m_lastFolder);
    if (folder.isEmpty())
        return;
    m_lastFolder = folder;
    const QVector<BatchRun::Item> items = openRepositories();
    const QStringList archives = archivesOf(items, folder);
    QStringList present;
    for (const QString &archive : archives)
        if (QFileInfo::exists(archive))
            present.append(QFileInfo(archive).fileName());
    if (!present.isEmpty()
        && m_bench.prompts.askCarefully(tr("Export"),
                                        tr("Do you want to replace the archives that are there?"),
                                        present.join(QLatin1Char('\n')))
               != Prompts::Answer::Yes)
        return;
    QHash<QString, QString> targets;
    for (int i = 0; i < items.size(); ++i)
        targets.insert(items.at(i).path, archives.at(i));
    const auto start = [targets](RepoWidget *widget) {
        const QString target = targets.value(widget->repoPath());
        if (target.isEmpty())
            return tr("The repository has moved.");
        widget->repoShell()->exportRepo(target);
        return QString();
    };
    run(tr("Export of all open repositories"), items, {start});
}

void BatchCommands::upgrade()
{
    if (!m_bench.settings.hasKeyToAdd())
        return;
    const QStringList sources = m_upgrades.chooseSources();
    if (sources.isEmpty())
        return;
    const auto search = [this, sources](RepoWidget *widget) {
        if (!m_bench.tabs.isChangeable(widget))
            return tr("You may not write to this repository.");
        if (widget->repoShell()->packageCount() == 0)
            return emptyText();
        m_upgrades.search(widget, sources);
        return QString();
    };
    const auto replace = [this](RepoWidget *widget) {
        if (m_upgrades.upgradeAll(widget))
            return QString();
        return widget->repoShell()->result() == RepoEnums::SUCCESS ? tr("There are no newer packages.")
                                                                   : tr("It is not known what is newer.");
    };
    run(tr("Upgrade of all open repositories"), openRepositories(), {search, replace});
}

void BatchCommands::publish()
{
    const auto start = [this](RepoWidget *widget) { return m_publications.publishUnlessRefused(widget); };
    run(tr("Publication of all open repositories"), openRepositories(), {start});
}

// --- the run -------------------------------------------------------------------------------------------------------

QVector<BatchRun::Item> BatchCommands::openRepositories() const
{
    QVector<BatchRun::Item> items;
    const QList<RepoWidget *> widgets = m_bench.tabs.shown();
    for (RepoWidget *widget : widgets)
        items.append(
            {m_bench.tabs.pathOf(widget), [guard = QPointer<RepoWidget>(widget)] { return guard.data(); }});
    return items;
}

void BatchCommands::run(const QString &title, const QVector<BatchRun::Item> &items, const Stages &stages)
{
    // While a dialog was open, another one could begin.
    if (items.isEmpty() || (m_run != nullptr && !m_run->isOver()))
        return;
    delete m_run;
    m_run = new BatchRun(m_bench.tabs, m_bench.feedback, title, items, stages, this);
    delete m_dialog;
    m_dialog = new BatchDialog(m_run->report(), m_window);
    m_bench.prompts.offerHelp(*m_dialog);
    connect(m_dialog, &BatchDialog::stopWanted, m_run, &BatchRun::stop);
    connect(m_dialog, &BatchDialog::savingWanted, this, &BatchCommands::save);
    connect(m_dialog, &BatchDialog::repositoryWanted, this, [this](const QString &path) {
        if (RepoWidget *widget = m_bench.tabs.find(path))
            m_bench.tabs.bringToFront(widget);
    });
    connect(m_run, &BatchRun::changed, this, [this](int index) {
        if (!m_dialog.isNull())
            m_dialog->setEntry(index, m_run->report().entries.at(index));
    });
    connect(m_run, &BatchRun::finished, this, &BatchCommands::runOver);
    m_dialog->show();
    m_run->start();
    updateActions();
}

void BatchCommands::runOver()
{
    m_upgrades.forgetSearches();
    const BatchReport &report = m_run->report();
    m_bench.feedback.announce(tr("%1: %2").arg(report.title, report.summary()));
    if (!m_dialog.isNull()) {
        m_dialog->setOver(report);
        // Errors stand nowhere else.
        m_dialog->show();
    }
    updateActions();
}

void BatchCommands::save()
{
    const QString filter = tr("Text (*.txt)");
    const QString path
        = m_bench.prompts.saveFile(tr("Save report"), m_lastFolder, QStringLiteral("report.txt"), {filter})
              .path;
    if (path.isEmpty() || m_run == nullptr)
        return;
    const auto write
        = [path, text = m_run->report().toText().toUtf8()] { return WholeFile::replace(path, text); };
    runInBackground(this, write, [this, path](const QString &failure) {
        if (failure.isEmpty())
            m_bench.feedback.announce(tr("The report is saved in %1.").arg(path));
        else
            m_bench.feedback.error(tr("The report cannot be saved in %1.").arg(path), failure);
    });
}
