// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/mainwindow.h"

#include "core/qtversions.h"
#include "engine/reposhell.h"
#include "platform/ui/help.h"
#include "platform/ui/veltaboutdialog.h"
#include "platform/ui/windowgeometry.h"
#include "ui/batch/batchcommands.h"
#include "ui/commands/archivecommands.h"
#include "ui/commands/copycommands.h"
#include "ui/commands/dependscommands.h"
#include "ui/commands/dependsreportcommands.h"
#include "ui/commands/gathering/gathercommands.h"
#include "ui/commands/historycommands.h"
#include "ui/commands/installabilitycommands.h"
#include "ui/commands/packagecommands.h"
#include "ui/commands/packagefilecommands.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/publicationcommands.h"
#include "ui/commands/recentrepositories.h"
#include "ui/commands/repositorycommands.h"
#include "ui/commands/settingscommands.h"
#include "ui/commands/signingcommands.h"
#include "ui/commands/sourceslistcommand.h"
#include "ui/commands/upgradecommands.h"
#include "ui/depends/dependsmodes.h"
#include "ui/dialogs/prompts.h"
#include "ui/packages/packagedrop.h"
#include "ui/tab/foreignchanges.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/packagemenu.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/emptypage.h"
#include "ui/widgets/mnemonics.h"
#include "ui/window/closingsequence.h"

#include "ui_mainwindow.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSettings>
#include <QShortcut>
#include <QTabBar>

#include <utility>

namespace
{
const QString &windowName()
{
    static const QString name = QStringLiteral("velt-admin-repo");
    return name;
}
} // namespace

MainWindow::MainWindow(PublicationMonitor *monitor)
    : m_ui(std::make_unique<Ui::MainWindow>())
    , m_logDock(new QDockWidget(this))
    , m_log(new QPlainTextEdit(m_logDock))
    , m_showLogAction(new QAction(this))
    , m_prompts(new Prompts(this))
{
    m_ui->setupUi(this);
    m_ui->tabWidget->setCurrentIndex(-1);
    m_emptyPage = new EmptyPage(m_ui->m_newRepoAction, m_ui->m_openRepoAction, m_ui->centralWidget);
    m_ui->verticalLayout->addWidget(m_emptyPage);
    buildLogDock();
    buildDependsMenu();
    giveToolButtonsIcons();

    m_tabs = new RepoTabs(m_ui->tabWidget, this);
    m_feedback = new JobFeedback(*m_tabs, *m_prompts, m_ui->m_statusBar, m_log, this);
    m_recent = new RecentRepositories(m_ui->m_recentReposMenu, this);
    m_settings = new SettingsCommands(*m_tabs, *m_prompts, this);
    auto *previews = new PreviewCommands(*m_tabs, *m_prompts, *m_feedback, *m_settings, this);
    previews->fillMenu(m_ui->menuSettings);
    const Workbench bench{*m_tabs, *m_prompts, *m_feedback, *m_settings, *previews};
    m_repositories = new RepositoryCommands(bench, *m_recent, this);
    m_packages = new PackageCommands(bench, *m_repositories, this);
    m_packageFiles = new PackageFileCommands(bench, this);
    new SourcesListCommand(m_ui->m_sourceListAction, m_ui->m_publicationMenu, *m_prompts, this);
    m_depends = new DependsCommands(*m_ui, bench, this);
    m_reports = new DependsReportCommands(bench, this);
    m_gathering = new GatherCommands(bench, this);
    m_installability = new InstallabilityCommands(bench, *m_packages, this);
    m_signing = new SigningCommands(bench, this);
    m_archives = new ArchiveCommands(*m_ui, bench, *m_repositories, this);
    m_upgrade = new UpgradeCommands(m_ui->m_upgradeRepoAction, bench, this);
    m_publication = new PublicationCommands(
        *m_ui, bench, *m_repositories, monitor == nullptr ? *new PublicationMonitor(this) : *monitor, this);
    m_copying = new CopyCommands(bench, *m_repositories, this);
    buildPackageMenu();
    m_history = new HistoryCommands(*m_ui, bench, this);
    m_batch = new BatchCommands(*m_ui, bench, *m_repositories, *m_upgrade, *m_publication, this);
    Mnemonics::mark(m_ui->menuBar, m_ui->m_recentReposMenu);
    m_closing = new ClosingSequence(*m_tabs, *m_prompts, *m_repositories, this);

    adaptToSystem();
    connectActions();
    connect(m_tabs, &RepoTabs::created, this, &MainWindow::connectTab);
    connect(m_tabs, &RepoTabs::currentChanged, this, &MainWindow::updateTitle);
    connect(m_tabs, &RepoTabs::currentChanged, this, &MainWindow::updateActions);
    connect(m_tabs, &RepoTabs::currentChanged, this, &MainWindow::updateCentralArea);
    connect(m_tabs, &RepoTabs::moved, this, &MainWindow::updateTitle);
    connect(m_tabs, &RepoTabs::runningChanged, this, &MainWindow::updateActions);
    connect(m_tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        widget->saveChoices();
        m_canRemovePackages.remove(widget);
    });
    connect(m_tabs, &RepoTabs::currentChanged, m_packageMenu, &PackageMenu::setTab);
    connect(m_tabs, &RepoTabs::listChanged, this, &MainWindow::saveOpenRepositories);
    buildTabBar();
    connect(m_ui->tabWidget, &QTabWidget::tabCloseRequested, this, [this](int index) {
        if (RepoWidget *widget = m_tabs->at(index))
            m_closing->closeTab(widget);
    });
    connect(m_prompts, &Prompts::freed, this, &MainWindow::serveArrivals);
    connect(m_repositories,
            &RepositoryCommands::reopeningEnded,
            this,
            &MainWindow::serveArrivals,
            Qt::QueuedConnection);
    connect(m_prompts, &Prompts::helpRequested, this, &MainWindow::showHelp);
    connect(m_dependsModes, &DependsModes::chosen, this, [this](int mode) {
        const bool isOther = mode != m_settings->choices().dependsRepoType;
        m_settings->setDependsRepoType(mode);
        const RepoWidget *widget = m_tabs->current();
        if (isOther && mode != DependsNowhere && widget != nullptr && widget->hasCheckResults())
            m_feedback->announce(
                tr("The marks of the packages are those of the last check until the next one."));
    });
    connect(m_depends, &DependsCommands::stateChanged, this, &MainWindow::updateActions);
    connect(m_reports, &DependsReportCommands::stateChanged, this, &MainWindow::updateActions);
    connect(m_settings, &SettingsCommands::changed, this, &MainWindow::showChoices);
    connect(m_settings, &SettingsCommands::notStored, m_feedback, &JobFeedback::announce);
    connect(m_closing, &ClosingSequence::began, this, &MainWindow::beginClosing);
    connect(m_closing, &ClosingSequence::finished, this, &MainWindow::close);
    QtVersions::disableFallbackSessionManagement<QGuiApplication>();
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &MainWindow::closeWithoutAsking);

    QSettings settings;
    veltRestoreGeometry(this, settings, QRect(100, 100, 1000, 500), true);
    m_state = WindowState::load(settings);
    m_showLogAction->setChecked(m_state.extendedLog);
    onExtendedLogChanged(m_state.extendedLog);
    m_ui->m_hideStatusLineAction->setChecked(m_state.statusLineHidden);
    m_depends->setArrangement(m_state.depends);
    m_history->loadColumns(settings);
    showChoices();
    updateTitle();
    updateActions();
    updateCentralArea();
    reopen();
}

MainWindow::~MainWindow()
{
    // A shown window hides its docks during destruction. The signals must not reach an object that is half destroyed.
    m_logDock->disconnect(this);
    m_history->stop();
}

// --- building ----------------------------------------------------------------------------------------------------

void MainWindow::connectActions()
{
    const auto command = [this](QAction *action, auto function) {
        connect(action, &QAction::triggered, this, [function] { function(); });
    };
    command(m_ui->m_newRepoAction, [this] { m_repositories->createRepo(); });
    command(m_ui->m_openRepoAction, [this] { m_repositories->chooseAndOpen(); });
    command(m_ui->m_changeRepoAction, [this] { m_repositories->changeRepo(); });
    command(m_ui->m_removeRepoAction, [this] { m_repositories->removeRepo(); });
    command(m_ui->m_addPackagesAction, [this] { m_packages->chooseAndAdd(); });
    command(m_ui->m_removePackagesAction, [this] { m_packages->removePackages(); });
    command(m_ui->m_selectAllAction, [this] {
        if (RepoWidget *widget = m_tabs->current())
            widget->selectAllPackages();
    });
    command(m_ui->m_reloadAction, [this] {
        const RepoWidget *widget = m_tabs->current();
        if (m_tabs->isFree(widget))
            widget->repoShell()->reloadRepo();
    });
    command(m_ui->m_signPackagesAction, [this] { m_signing->signPackages(); });
    command(m_ui->m_addPkgSettingsAction, [this] { m_settings->showAddPkgSettings(); });
    command(m_ui->m_editExternalReposAction, [this] { m_settings->editExternalRepos(); });
    command(m_ui->m_parametersAction, [this] { m_settings->showParametersDialog(); });
    command(m_ui->m_aboutAction, [this] { about(); });
    command(m_ui->m_helpAction, [this] { showHelp(this); });
    command(m_ui->m_quitAction, [this] { close(); });
    m_ui->m_removePackagesAction->setShortcuts(
        {m_ui->m_removePackagesAction->shortcut(), QKeySequence(QKeySequence::Delete)});
    const auto *closeTab = new QShortcut(QKeySequence(QKeySequence::Close), this);
    connect(closeTab, &QShortcut::activated, this, [this] {
        if (RepoWidget *widget = m_tabs->current())
            m_closing->closeTab(widget);
    });
    const auto switchTab = [this](const QKeySequence &keys, int step) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, step] {
            const int count = m_ui->tabWidget->count();
            if (count > 0)
                m_ui->tabWidget->setCurrentIndex((m_ui->tabWidget->currentIndex() + step + count) % count);
        });
    };
    switchTab(QKeySequence(QStringLiteral("Ctrl+PgDown")), 1);
    switchTab(QKeySequence(QStringLiteral("Ctrl+PgUp")), -1);
    connect(m_ui->m_hideStatusLineAction, &QAction::toggled, this, [this](bool hide) {
        const QList<RepoWidget *> widgets = m_tabs->shown();
        for (RepoWidget *widget : widgets)
            widget->setStatusLineVisible(!hide);
    });
}

void MainWindow::connectTab(RepoWidget *widget)
{
    widget->setShowPackageVersions(m_settings->choices().showPkgVersion);
    widget->setColumnChoice(*m_columns);
    widget->setStatusLineVisible(!m_ui->m_hideStatusLineAction->isChecked());
    connect(widget, &RepoWidget::enableRemovePackagesAction, this, [this, widget](bool isEnabled) {
        m_canRemovePackages[widget] = isEnabled;
        updateActions();
    });
    connect(widget, &RepoWidget::newRepoPath, this, &MainWindow::updateActions);
    connect(widget, &RepoWidget::contextMenuRequested, m_packageMenu, [this, widget](const QPoint &pos) {
        m_packageMenu->popup(*widget, pos);
    });
    new ForeignChanges(*m_tabs, *m_prompts, *widget);
    if (!m_state.splitterSizes.isEmpty())
        widget->setSplitterSizes(m_state.splitterSizes);
    connect(widget, &RepoWidget::splitterMoved, this, [this, widget] {
        m_state.splitterSizes = widget->splitterSizes();
        const QList<RepoWidget *> widgets = m_tabs->shown();
        for (RepoWidget *other : widgets) {
            if (other != widget)
                other->setSplitterSizes(m_state.splitterSizes);
        }
    });
}

// --- state of the window -----------------------------------------------------------------------------------------

void MainWindow::updateActions()
{
    if (m_closing->isClosing())
        return;
    const RepoWidget *widget = m_tabs->current();
    const bool free = m_tabs->isFree(widget);
    const bool changeable = m_tabs->isChangeable(widget);
    m_ui->m_removeRepoAction->setEnabled(changeable);
    m_ui->m_changeRepoAction->setEnabled(changeable);
    m_ui->m_reloadAction->setEnabled(free);
    m_ui->m_selectAllAction->setEnabled(widget != nullptr && widget->repoShell()->packageCount() > 0);
    m_depends->updateActions();
    m_reports->updateActions();
    m_gathering->updateActions();
    m_installability->updateActions();
    m_archives->updateActions(m_canRemovePackages.value(widget));
    m_packageFiles->updateActions();
    m_upgrade->updateActions();
    m_publication->updateActions();
    m_history->updateActions();
    m_batch->updateActions();
    m_copying->updateActions(m_canRemovePackages.value(widget));
    m_ui->m_removePackagesAction->setEnabled(changeable && m_canRemovePackages.value(widget));
    m_ui->m_signPackagesAction->setEnabled(changeable && m_canRemovePackages.value(widget));
}

void MainWindow::updateTitle()
{
    const RepoWidget *widget = m_tabs->current();
    QString path = m_tabs->pathOf(widget);
    // Qt takes a single "[*]" for the mark of unsaved work.
    path.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    setWindowTitle(widget == nullptr ? windowName() : windowName() + QLatin1String(": ") + path);
}

void MainWindow::updateCentralArea()
{
    const bool empty = m_tabs->current() == nullptr;
    m_ui->tabWidget->setVisible(!empty);
    m_emptyPage->setVisible(empty);
}

void MainWindow::showChoices()
{
    const UserChoices &choices = m_settings->choices();
    m_dependsModes->show(choices.dependsRepoType);
    const QList<RepoWidget *> widgets = m_tabs->shown();
    for (RepoWidget *widget : widgets)
        widget->setShowPackageVersions(choices.showPkgVersion);
}

void MainWindow::onExtendedLogChanged(bool inExtended)
{
    m_logDock->setVisible(inExtended);
}

void MainWindow::about()
{
    VeltAboutDialog dialog(this);
    connect(&dialog, &VeltAboutDialog::aboutQtRequested, m_prompts, [this, &dialog] {
        m_prompts->inform(tr("About Qt"),
                          tr("This program uses Qt version %1, a toolkit for applications under the GNU "
                             "Lesser General Public License, version 3. See https://www.qt.io.")
                              .arg(QLatin1String(qVersion())),
                          &dialog);
    });
    m_prompts->run(dialog);
}

void MainWindow::showHelp(QWidget *asking, const QString &page)
{
    if (!veltHelpShow(asking, page))
        m_prompts->warn(tr("Help"), tr("The help pages are not installed."), asking);
}

// --- files from outside ------------------------------------------------------------------------------------------

void MainWindow::onMessageReceived(const QString &message)
{
    if (message == QLatin1String("raise"))
        return;
    QStringList files;
    const QStringList parts = message.split(QLatin1Char('&'));
    for (const QString &part : parts) {
        // A part that is no absolute path continues a path with an "&" in it.
        if (!files.isEmpty() && !part.startsWith(QLatin1Char('/')))
            files.last() += QLatin1Char('&') + part;
        else
            files.append(part);
    }
    addPackagesFromOutside(files, true);
}

void MainWindow::addPackagesFromOutside(const QStringList &files, bool fromAnotherInstance)
{
    QStringList named = files;
    named.removeAll(QString());
    if (named.isEmpty())
        return;
    if (m_closing->isClosing()) {
        logNotAdded(named);
        return;
    }
    m_arrivals.append({named, fromAnotherInstance});
    serveArrivals();
}

void MainWindow::logNotAdded(const QStringList &files)
{
    m_feedback->appendLog(PackageCommands::tr("Not added: %1").arg(files.join(QLatin1String(", "))));
}

void MainWindow::serveArrivals()
{
    // An open dialog calls this function again at its end. While tabs are reopened, a tab may still close.
    if (m_arrivals.isEmpty() || m_prompts->isOpen() || m_repositories->isReopening())
        return;
    const Arrival arrival = m_arrivals.takeFirst();
    if (arrival.fromAnotherInstance)
        m_packages->addToChosen(arrival.files);
    else
        m_packages->addAtStart(arrival.files);
    if (!m_arrivals.isEmpty())
        QMetaObject::invokeMethod(this, &MainWindow::serveArrivals, Qt::QueuedConnection);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    // What is dragged from a tree of packages belongs on a tree or on a tab.
    if (event->source() == nullptr && PackageDrop::accepts(event->mimeData()))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const QStringList paths = PackageDrop::paths(event->mimeData());
    event->acceptProposedAction();
    const auto add = [this](const QStringList &files) { addPackagesFromOutside(files, true); };
    // Queued: the source of the drag waits until this function returns, and a dialog may follow.
    if (!paths.isEmpty())
        QMetaObject::invokeMethod(
            this, [this, paths, add] { m_packages->takeDropped(paths, add); }, Qt::QueuedConnection);
}

// --- closing -----------------------------------------------------------------------------------------------------

void MainWindow::closeEvent(QCloseEvent *event)
{
    // At this moment the user can still read the message.
    if (!m_closing->isClosing() && !m_prompts->isOpen() && !saveState())
        m_settings->warnNotStored();
    event->setAccepted(m_closing->requestClose());
}

void MainWindow::closeWithoutAsking()
{
    m_closing->closeWithoutAsking();
}

void MainWindow::closeOtherTabs(int index)
{
    const RepoWidget *kept = m_tabs->at(index);
    QList<QPointer<RepoWidget>> others;
    const QList<RepoWidget *> widgets = m_tabs->shown();
    for (RepoWidget *widget : widgets) {
        if (widget != kept)
            others.append(widget);
    }
    for (const QPointer<RepoWidget> &other : std::as_const(others)) {
        if (!other.isNull())
            m_closing->closeTab(other);
    }
}

void MainWindow::reopen()
{
    m_repositories->reopen(storedPaths(QSettings(), SettingsKey::RecentOpennedRepos));
    m_reopening = false;
    RepoWidget *front
        = m_state.currentRepository.isEmpty() ? nullptr : m_tabs->find(m_state.currentRepository);
    if (front != nullptr)
        m_tabs->bringToFront(front);
}

void MainWindow::saveOpenRepositories()
{
    // The list is stored at each change, because the program may be killed.
    if (m_reopening || m_closing->isClosing())
        return;
    QSettings settings;
    settings.setValue(SettingsKey::RecentOpennedRepos, m_tabs->paths());
    m_settings->store(settings);
}

void MainWindow::beginClosing()
{
    for (const Arrival &arrival : std::as_const(m_arrivals))
        logNotAdded(arrival.files);
    m_arrivals.clear();
    Q_EMIT closingBegan();
    m_history->stop();
    m_batch->stop();
    m_ui->menuBar->setEnabled(false);
    m_ui->mainToolBar->setEnabled(false);
    m_ui->centralWidget->setEnabled(false);
    const QList<QAction *> actions = findChildren<QAction *>();
    for (QAction *action : actions)
        action->setEnabled(false);
    // The state is saved before jobs stop: a repository whose opening is interrupted is opened the next time.
    saveState();
}

bool MainWindow::saveState()
{
    QSettings settings;
    m_settings->save();
    settings.setValue(SettingsKey::RecentOpennedRepos, m_tabs->paths());
    veltSaveGeometry(this, settings, true);
    m_state.extendedLog = m_showLogAction->isChecked();
    m_state.statusLineHidden = m_ui->m_hideStatusLineAction->isChecked();
    m_state.depends = m_depends->arrangement();
    m_history->saveColumns(settings);
    const RepoWidget *front = m_tabs->current();
    m_state.currentRepository = front == nullptr ? QString() : m_tabs->pathOf(front);
    m_state.save(settings);
    const QList<RepoWidget *> widgets = m_tabs->shown();
    for (RepoWidget *widget : widgets)
        widget->saveChoices();
    return m_settings->store(settings);
}
