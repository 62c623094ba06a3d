// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of the main window that are not in its form.
#include "engine/repository/systemrelease.h"
#include "ui/commands/copycommands.h"
#include "ui/commands/dependsreportcommands.h"
#include "ui/commands/gathering/gathercommands.h"
#include "ui/commands/installabilitycommands.h"
#include "ui/commands/packagefilecommands.h"
#include "ui/commands/settingscommands.h"
#include "ui/depends/dependsmodes.h"
#include "ui/packages/columnchoice.h"
#include "ui/tab/packagemenu.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/tabbaractions.h"
#include "ui/widgets/toolbuttonicon.h"
#include "ui/window/mainwindow.h"

#include "ui_mainwindow.h"

#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>

void MainWindow::buildLogDock()
{
    // On a small screen with large fonts, the whole window has only a few hundred pixels.
    const int minimumHeight = qBound(50, screen()->availableGeometry().height() / 6, 100);
    constexpr int MaximumHeight = 150;
    constexpr int MaximumLines = 10000;
    m_logDock->setObjectName(QStringLiteral("logDockWidget"));
    m_logDock->setWindowTitle(tr("Extended log"));
    m_logDock->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    m_logDock->setMinimumHeight(minimumHeight);
    m_logDock->setMaximumHeight(MaximumHeight);
    m_log->setObjectName(QStringLiteral("m_logTextEdit"));
    m_log->setAccessibleName(m_logDock->windowTitle());
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(MaximumLines);
    // The size hint grows with the font and would exceed the limits of the dock.
    m_log->setMinimumHeight(1);
    m_logDock->setWidget(m_log);
    addDockWidget(Qt::BottomDockWidgetArea, m_logDock);
    m_logDock->hide();

    m_showLogAction->setObjectName(QStringLiteral("m_showLogAction"));
    m_showLogAction->setText(tr("Show extended log"));
    m_showLogAction->setCheckable(true);
    m_ui->m_menuView->addAction(m_showLogAction);
    m_ui->m_menuView->addAction(m_ui->m_hideStatusLineAction);
    connect(m_showLogAction, &QAction::toggled, this, &MainWindow::onExtendedLogChanged);
    // The dock has a close button of its own. A minimised window only makes the dock invisible, not hidden.
    connect(m_logDock, &QDockWidget::visibilityChanged, this, [this] {
        m_showLogAction->setChecked(!m_logDock->isHidden());
    });
}

void MainWindow::buildDependsMenu()
{
    m_dependsModes = new DependsModes({{DependsEverywhere, m_ui->m_checkDependsAllAction},
                                       {DependsPublic, m_ui->m_checkDependsPublicAction},
                                       {DependsLocal, m_ui->m_checkDependsLocalAction},
                                       {DependsNowhere, m_ui->m_checkDependsNoAction}},
                                      m_ui->m_checkDependsAction,
                                      m_ui->mainToolBar,
                                      this);
}

void MainWindow::buildPackageMenu()
{
    m_packageMenu
        = new PackageMenu({{m_ui->m_addPackagesAction},
                           QList<QAction *>{m_ui->m_removePackagesAction,
                                            m_ui->m_signPackagesAction,
                                            m_ui->m_exportSelectedPackagesAction,
                                            m_ui->m_exportWithDependsAction}
                               + m_copying->actions(),
                           {m_packageFiles->menu()->menuAction()},
                           QList<QAction *>{m_ui->m_checkDependStartAction, m_installability->checkAction()}
                               + m_reports->actions(),
                           {m_ui->m_changeRepoAction, m_ui->m_removeRepoAction}},
                          this);
    m_ui->m_editMenu->insertActions(m_ui->m_changeRepoAction,
                                    QList<QAction *>{m_gathering->action(),
                                                     m_installability->checkAction(),
                                                     m_installability->baseAction()}
                                        + m_reports->actions());
    m_ui->m_dependsCheckMenu->insertAction(m_ui->m_dependsCheckMenu->actions().value(1),
                                           m_gathering->action());
    m_ui->m_editMenu->addSeparator();
    m_ui->m_editMenu->addActions(m_copying->actions());
    m_ui->m_menuView->addMenu(m_packageMenu->packetFilterMenu());
    m_columns = new ColumnChoice(this);
    m_ui->m_menuView->addMenu(m_columns->menu());
}

void MainWindow::buildTabBar()
{
    const auto *bar = new TabBarActions(m_ui->tabWidget, this);
    connect(bar, &TabBarActions::closeRequested, m_ui->tabWidget, &QTabWidget::tabCloseRequested);
    connect(bar, &TabBarActions::closeOthersRequested, this, &MainWindow::closeOtherTabs);
    connect(bar, &TabBarActions::partDropped, this, [this](int index, QWidget *source, bool moves) {
        m_copying->takeDropped(RepoWidget::of(source), m_tabs->at(index), QString(), moves);
    });
    connect(bar, &TabBarActions::copyPathRequested, this, [this](int index) {
        if (const RepoWidget *widget = m_tabs->at(index))
            QGuiApplication::clipboard()->setText(m_tabs->pathOf(widget));
    });
}

void MainWindow::giveToolButtonsIcons()
{
    const auto give = [this](QAction *action, const char *name) {
        setToolButtonIcon(m_ui->mainToolBar, action, QLatin1String(name));
    };
    give(m_ui->m_changeRepoAction, "document-edit");
    give(m_ui->m_addSrcListAction, "bookmark-new");
    give(m_ui->m_sourceListAction, "view-list-details");
    give(m_ui->m_removeSrcListAction, "bookmark-remove");
    give(m_ui->m_addPackageFromExtRepoAction, "globe");
    give(m_ui->m_addPkgSettingsAction, "configure");
    give(m_ui->m_checkDependsAction, "dialog-ok-apply");
}

void MainWindow::adaptToSystem()
{
    const QString version = SystemRelease::version();
    m_settings->setSigningOffered(!version.contains(QLatin1String("2.12")));
    m_ui->m_signPackagesAction->setVisible(m_settings->isSigningOffered());
    if (version.contains(QLatin1String("1.6")))
        m_ui->m_sourceListAction->setVisible(false);
}
