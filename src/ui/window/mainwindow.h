// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/window/windowstate.h"

#include <QMainWindow>
#include <QMap>
#include <QStringList>

#include <memory>

class ArchiveCommands;
class BatchCommands;
class ClosingSequence;
class ColumnChoice;
class DependsCommands;
class DependsModes;
class DependsReportCommands;
class EmptyPage;
class GatherCommands;
class HistoryCommands;
class InstallabilityCommands;
class JobFeedback;
class CopyCommands;
class PackageCommands;
class PackageFileCommands;
class PackageMenu;
class Prompts;
class PublicationCommands;
class PublicationMonitor;
class QDockWidget;
class QPlainTextEdit;
class RecentRepositories;
class RepositoryCommands;
class RepoTabs;
class RepoWidget;
class SettingsCommands;
class SigningCommands;
class UpgradeCommands;

namespace Ui
{
class MainWindow;
}

/** The program's window. It owns actions, tabs and log, and gives each command to the class of its group. */
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /** `monitor` knows the publications; null makes a monitor for this system. */
    explicit MainWindow(PublicationMonitor *monitor = nullptr);
    ~MainWindow() override;

    /** Adds package files that were named at a start of the program, now or as soon as possible. */
    void addPackagesFromOutside(const QStringList &files, bool fromAnotherInstance);

Q_SIGNALS:
    /** Nothing is added from now on. The window closes after the last job. */
    void closingBegan();

public Q_SLOTS:
    /** The message of a second start: "raise", or the absolute paths of its package files joined with "&". */
    void onMessageReceived(const QString &message);
    /** Closes in order, but without a question about running jobs. For signals and the end of the session. */
    void closeWithoutAsking();

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct Arrival
    {
        QStringList files;
        bool fromAnotherInstance;
    };

    void buildLogDock();
    void buildDependsMenu();
    void buildPackageMenu();
    void buildTabBar();
    void giveToolButtonsIcons();
    void adaptToSystem();
    void connectActions();
    void connectTab(RepoWidget *widget);
    void updateActions();
    void updateTitle();
    void updateCentralArea();
    void showChoices();
    void serveArrivals();
    void logNotAdded(const QStringList &files);
    void onExtendedLogChanged(bool inExtended);
    void about();
    void showHelp(QWidget *asking, const QString &page = {});
    void reopen();
    void beginClosing();
    void closeOtherTabs(int index);
    void saveOpenRepositories();
    /** False when the state could not be stored. */
    bool saveState();

    std::unique_ptr<Ui::MainWindow> m_ui;
    EmptyPage *m_emptyPage; ///< shown while there are no tabs
    QDockWidget *m_logDock;
    QPlainTextEdit *m_log;
    QAction *m_showLogAction;
    DependsModes *m_dependsModes = nullptr;
    PackageMenu *m_packageMenu = nullptr;
    ColumnChoice *m_columns = nullptr;
    WindowState m_state;
    bool m_reopening = true; ///< the tabs of the last session are being opened

    Prompts *m_prompts;
    RepoTabs *m_tabs;
    JobFeedback *m_feedback;
    RecentRepositories *m_recent;
    SettingsCommands *m_settings;
    RepositoryCommands *m_repositories;
    PackageCommands *m_packages;
    PackageFileCommands *m_packageFiles;
    CopyCommands *m_copying;
    DependsCommands *m_depends;
    DependsReportCommands *m_reports;
    GatherCommands *m_gathering;
    InstallabilityCommands *m_installability;
    SigningCommands *m_signing;
    ArchiveCommands *m_archives;
    UpgradeCommands *m_upgrade;
    PublicationCommands *m_publication;
    HistoryCommands *m_history;
    BatchCommands *m_batch;
    ClosingSequence *m_closing;

    QMap<const RepoWidget *, bool> m_canRemovePackages;
    QList<Arrival> m_arrivals; ///< package files that wait for an open dialog or for reopening
};
