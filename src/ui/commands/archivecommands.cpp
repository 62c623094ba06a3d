// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/archivecommands.h"

#include "engine/reposhell.h"
#include "ui/commands/repositorycommands.h"
#include "ui/dialogs/missingpackage.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include "ui_mainwindow.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

ArchiveCommands::ArchiveCommands(Ui::MainWindow &ui,
                                 const Workbench &bench,
                                 RepositoryCommands &repositories,
                                 QWidget *window)
    : QObject(window)
    , m_ui(ui)
    , m_bench(bench)
    , m_repositories(repositories)
    , m_importFolderAction(new QAction(tr("Import packages from folder"), this))
    , m_lastFolder(QDir::homePath())
{
    m_importFolderAction->setObjectName(QStringLiteral("m_importFolderAction"));
    m_ui.m_importMenu->addAction(m_importFolderAction);
    connectActions();
    connect(&m_bench.tabs, &RepoTabs::created, this, &ArchiveCommands::attach);
    connect(&m_bench.tabs, &RepoTabs::ready, this, &ArchiveCommands::importWaiting);
    connect(&m_bench.tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        const QString source = m_waiting.take(widget);
        if (!source.isEmpty())
            m_bench.feedback.appendLog(tr("Not imported: %1").arg(source));
    });
}

void ArchiveCommands::connectActions()
{
    for (QAction *action : {m_ui.m_exportFullRepoAction, m_ui.m_exportRepoAction}) {
        connect(action, &QAction::triggered, this, [this] {
            exportBy([](RepoShell &engine, const QString &target) { engine.exportRepo(target); });
        });
    }
    connect(m_ui.m_exportAllPackagesAction, &QAction::triggered, this, [this] {
        const RepoWidget *widget = m_bench.tabs.current();
        if (widget != nullptr)
            exportPackages(widget->repoShell()->packages(), false);
    });
    connect(
        m_ui.m_exportSelectedPackagesAction, &QAction::triggered, this, [this] { exportSelected(false); });
    connect(m_ui.m_exportWithDependsAction, &QAction::triggered, this, [this] { exportSelected(true); });
    connect(m_ui.m_importRepoAction, &QAction::triggered, this, &ArchiveCommands::importRepo);
    connect(m_ui.m_importPackagesAction, &QAction::triggered, this, [this] {
        importPackages([this] { return canReadArchives() ? chooseArchive() : QString(); });
    });
    connect(m_importFolderAction, &QAction::triggered, this, [this] {
        importPackages(
            [this] { return m_bench.prompts.directory(tr("Select folder with packages"), m_lastFolder); });
    });
}

void ArchiveCommands::attach(RepoWidget *widget)
{
    connect(widget->repoShell(), &RepoShell::needImportRepo, this, [this, widget] {
        const QString folder = m_bench.tabs.pathOf(widget);
        // Queued: the tab is deleted when its job ends, and the job may end while the dialog is open.
        QMetaObject::invokeMethod(
            this,
            [this, folder] { importIntoNew(folder, QFileInfo(folder).absolutePath()); },
            Qt::QueuedConnection);
    });
}

void ArchiveCommands::updateActions(bool arePackagesSelected)
{
    const RepoWidget *widget = m_bench.tabs.current();
    const bool free = m_bench.tabs.isFree(widget);
    const bool hasPackages = free && widget->repoShell()->packageCount() > 0;
    m_ui.m_exportFullRepoAction->setEnabled(free);
    m_ui.m_exportRepoAction->setEnabled(free);
    m_ui.m_exportAllPackagesAction->setEnabled(hasPackages);
    m_ui.m_exportSelectedPackagesAction->setEnabled(hasPackages && arePackagesSelected);
    m_ui.m_exportWithDependsAction->setEnabled(hasPackages && arePackagesSelected);
    m_ui.m_importPackagesAction->setEnabled(m_bench.tabs.isChangeable(widget));
    m_importFolderAction->setEnabled(m_bench.tabs.isChangeable(widget));
}

// --- export --------------------------------------------------------------------------------------------------------

void ArchiveCommands::exportBy(const std::function<void(RepoShell &, const QString &)> &job)
{
    const QPointer<RepoWidget> source = m_bench.tabs.current();
    if (!m_bench.tabs.isFree(source))
        return;
    const QString proposed
        = QStringLiteral("%1/%2_export.tgz").arg(m_lastFolder, source->repoShell()->repoInfo().name);
    const QString target
        = m_bench.prompts
              .saveFile(
                  tr("Select export archive"), m_lastFolder, proposed, {tr("Archives (*.tgz *.tar.gzip)")})
              .path;
    if (target.isEmpty())
        return;
    m_lastFolder = QFileInfo(target).absolutePath();
    if (m_bench.tabs.isFree(source))
        job(*source->repoShell(), target);
    else
        m_bench.feedback.announce(tr("Not exported: %1").arg(target));
}

void ArchiveCommands::exportPackages(const QList<PackageInfoPtr> &packages, bool withDepends)
{
    if (packages.isEmpty())
        return;
    exportBy([packages, withDepends](RepoShell &engine, const QString &target) {
        engine.exportPackages(packages, target, withDepends);
    });
}

void ArchiveCommands::exportSelected(bool withDepends)
{
    const RepoWidget *widget = m_bench.tabs.current();
    if (widget != nullptr)
        exportPackages(widget->selectedPackages(), withDepends);
}

// --- import --------------------------------------------------------------------------------------------------------

bool ArchiveCommands::canReadArchives()
{
    const auto isThere = [this](const QString &program, const QString &package) {
        const bool found = !QStandardPaths::findExecutable(program).isEmpty();
        if (!found)
            offerMissingPackage(m_bench.prompts, package);
        return found;
    };
    return isThere(QStringLiteral("archivemount"), QStringLiteral("archivemount"))
           && isThere(QStringLiteral("fusermount"), QStringLiteral("fuse3"));
}

QString ArchiveCommands::chooseArchive()
{
    QString archive = m_bench.prompts.openFile(tr("Select archive with packages"),
                                               m_lastFolder,
                                               tr("Archives (*.tgz *.tar.gzip)") + QLatin1String(";;")
                                                   + tr("All files (*)"));
    if (!archive.isEmpty())
        m_lastFolder = QFileInfo(archive).absolutePath();
    return archive;
}

void ArchiveCommands::importRepo()
{
    if (!canReadArchives())
        return;
    const QString folder = m_bench.prompts.directory(tr("Select directory"), m_lastFolder);
    if (folder.isEmpty())
        return;
    const QString archive = chooseArchive();
    if (!archive.isEmpty())
        importIntoNew(archive, folder);
}

void ArchiveCommands::importIntoNew(const QString &source, const QString &folder)
{
    // The key is chosen first: without a key the new repository would stay empty.
    if (!m_bench.settings.hasKeyToAdd()) {
        m_bench.feedback.announce(tr("Not imported: %1").arg(source));
        return;
    }
    m_repositories.createForImport(
        source,
        folder,
        {[this, source](const RepoWidget *widget) { m_waiting.insert(widget, source); },
         [this](const RepoWidget *failed) { m_waiting.remove(failed); },
         [this, source] { m_bench.feedback.announce(tr("Not imported: %1").arg(source)); }});
}

void ArchiveCommands::importWaiting(RepoWidget *widget)
{
    // Files that were dropped on the new tab may be added at this moment.
    if (!m_waiting.contains(widget) || m_bench.tabs.isRunning(widget))
        return;
    // Each package keeps its component: the chosen component belongs to another repository.
    const QString source = m_waiting.take(widget);
    const AddOptions options = m_bench.settings.addOptions({});
    // Nobody uses a new repository yet, so nothing can break in it.
    if (m_bench.previews.when() == PreviewAlways)
        import(widget, source, options, PreviewCommands::Wish::Now);
    else
        widget->repoShell()->importRepo(source, options);
}

void ArchiveCommands::importPackages(const std::function<QString()> &chooseSource)
{
    const QPointer<RepoWidget> target = m_bench.tabs.current();
    if (!m_bench.tabs.isFree(target))
        return;
    const QString source = chooseSource();
    if (source.isEmpty() || target.isNull())
        return;
    const QStringList components = target->repoShell()->repoInfo().componentList();
    const SettingsCommands::Confirmed confirmed
        = m_bench.settings.confirmAddSettings(components, SettingsCommands::AddedFrom::Archive);
    if (confirmed != SettingsCommands::Confirmed::No && m_bench.tabs.isFree(target))
        import(target, source, m_bench.settings.addOptions(components), PreviewCommands::wishOf(confirmed));
    else
        m_bench.feedback.announce(tr("Not imported: %1").arg(source));
}

void ArchiveCommands::import(RepoWidget *widget,
                             const QString &source,
                             const AddOptions &options,
                             PreviewCommands::Wish wish)
{
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Import;
    change.request.archive = source;
    change.request.options = options;
    change.start = [widget, source, options] { widget->repoShell()->importRepo(source, options); };
    change.givenUp = [this, source] { m_bench.feedback.announce(tr("Not imported: %1").arg(source)); };
    m_bench.previews.run(widget, change, wish);
}
