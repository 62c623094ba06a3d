// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "ui/packages/packagetree.h"

#include <QModelIndex>
#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <memory>

class ColumnChoice;
class DependsView;
class InstallabilityView;
class PackageFeed;
class PackagePanel;
class PublicationPanel;
class RepositoryPanel;
class QMenu;
class RepoModel;
class RepoProxyModel;
class RepoShell;
class TreeFilter;

namespace Ui
{
class RepoWidget;
}

/**
 * One tab of the main window: one repository. The left side shows the packages as a tree, the right side shows the
 * current item of the tree. The tab owns the repository's engine.
 *
 * Whoever serves the jobs connects to the engine, and whoever serves a panel connects to that panel: so do JobFeedback
 * and the commands. The tab repeats those signals under names of its own (repeatSignals()) for users that know the tab
 * alone; it repeats neither question() nor requestForReplacementHandlingByUser(), since a job waits inside these two.
 * The other signals are about the tab itself.
 */
class RepoWidget : public QWidget
{
    Q_OBJECT
public:
    explicit RepoWidget(QWidget *parent = nullptr);
    /** No job may be running. */
    ~RepoWidget() override;

    RepoShell *repoShell() const { return m_shell; }
    void openRepo(const QString &path);
    /** Directory of the open repository; empty while no repository is open. */
    QString repoPath() const;

    /** The tab that this part belongs to; null when it is no part of a tab. */
    static RepoWidget *of(QWidget *part);
    /**
     * The selected packages, each once. A selected component or section stands for all its shown packages. The
     * repository itself does not: it is selected after opening and has its own commands.
     */
    QList<PackageInfoPtr> selectedPackages() const;
    bool hasSelectedPackages() const;
    /** The current package of the tree, whose page is shown; null when something else is current. */
    PackageInfoPtr currentPackage() const;
    enum class CurrentItem { None, Repository, InRepository };
    /** The kind of the current item of the tree. An item that is not selected counts as none. */
    CurrentItem currentItem() const;

    /** Stores the user's choices for this repository. Call it before the tab is deleted. */
    void saveChoices();
    void setShowPackageVersions(bool show);
    /** The columns of the tree follow this choice, which outlives the tab. */
    void setColumnChoice(ColumnChoice &choice);
    void setStatusLineVisible(bool visible);
    /** Widths of the left and the right side, in pixels. */
    QList<int> splitterSizes() const;
    void setSplitterSizes(const QList<int> &sizes);
    /** The tab "Common" of the repository's page. */
    RepositoryPanel *repositoryPanel() const { return m_repository; }
    /** The tab "Common" of the package that is shown. */
    PackagePanel *packagePanel() const { return m_package; }
    /** The tab "Dependences" of the package that is shown. */
    DependsView *dependsView() const { return m_depends; }
    /** The tab "Installability" of the package that is shown. */
    InstallabilityView *installabilityView() const { return m_installability; }
    /** Makes the package current, and drops filters that hide it. False when the repository does not have it. */
    bool selectPackage(const NamedPackage &package);
    /** The tab "Publication" of the repository's page. */
    PublicationPanel *publicationPanel() const { return m_publication; }
    /** Brings the tab "Publication" to the front. */
    void showPublication();
    /** The number of packages in which the last checks found errors. */
    int packagesInError() const;
    /** Selects all shown packages. */
    void selectAllPackages();
    /** Gives the focus to the package tree, also in a window that is not active. */
    void focusTree();
    /** Whether the dependencies of any package were checked. */
    bool hasCheckResults() const;
    /** The menu "Packet Filter", which chooses the dependency states that the tree shows. */
    QMenu *packetFilterMenu() const;

public Q_SLOTS:
    /** Shows the details of the package at this index of the tree. */
    void changePackage(const QModelIndex &index);
    void rowsInserted(const QModelIndex &parent, int first, int last);
    void repoPathChanged();
    /** Makes this index of the tree current and selects it. */
    void setCurrentItem(const QModelIndex &index);
    void currentItemChanged(const QModelIndex &current);
    void customContextMenuRequested(const QPoint &pos);
    /** `pos` is in global coordinates. */
    void packageDependsContextMenuRequested(const QPoint &pos);
    void repoInfoAdded();
    void copySrcLineEdit();

Q_SIGNALS:
    void repoShellStarted(const QString &startMsg);
    void repoShellFinished(RepoEnums::JobId jobId, const QString &finishMsg);
    /**
     * The question of a job. It is never emitted: a job must wait for the answer, and only the engine's own question()
     * can do that.
     */
    void repoShellQuestion(const QString &dialogTitle, const QString &text);
    void needImportRepo();
    /** Number of items of the job; 0 = unknown. */
    void progressBarSetMaximum(int maximum);
    void progressStepChanged(int step);
    /** The tab has another repository, or none when `isEmpty`. */
    void newRepoPath(bool isEmpty);
    /** The tree has a current item, or none when `isEnabled` is false. */
    void itemChanged(bool isEnabled);
    /** Number of finished items of the running job. */
    void progressBarSetValue(int val);
    void newTabTitle(const QString &repoPath);
    void downloadablePackagesReady();
    void publishRepoTriggered();
    void unpublishRepoTriggered();
    /** The last package was removed from the repository. */
    void childCountIsZero();
    void enableRemovePackagesAction(bool isEnabled);
    void enableCheckDependsAction(bool isEnabled);
    void enableDependsCheckMenu(bool isEnabled);
    /** `pos` is in global coordinates. */
    void dependsContextMenuRequested(const QPoint &pos);
    void currItemChanged(const QModelIndex &current);
    void serverTypeChanged(int index);
    /** `pos` is in global coordinates. */
    void contextMenuRequested(const QPoint &pos);
    void critical(const QString &text,
                  const QString &detailedtext = QString(),
                  RepoEnums::ErrorType error = RepoEnums::CRITICAL);
    void criticalVelt(const QString &text,
                      const QString &detailedtext = QString(),
                      RepoEnums::ErrorType error = RepoEnums::CRITICAL);
    void portEditingFinished();
    void checkDependsToolButtonClicked();
    /**
     * Whether the commands for the local sources list are visible. It is never emitted: PublicationCommands disables
     * these commands while they cannot be used, and they stay visible.
     */
    void srcListActionSetVisible(bool visible);
    void statusLabel(const QString &text);
    void needCloseRepo();

    /** Package files or folders were dropped on the tree; the paths are absolute. */
    void filesDropped(const QStringList &files);
    /** Packages that are selected in the tab `source` were dropped here; see RepoTreeView::packagesDropped(). */
    void packagesDropped(RepoWidget *source, const QString &component, bool moves);
    /** Packages or their states have changed. */
    void packagesChanged();
    /** The user has moved the splitter. */
    void splitterMoved();

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    enum Page { NothingPage, RepositoryPage, PackagePage, ErrorPage };
    /** Time between two looks at the progress of a job, in milliseconds. */
    static constexpr int ProgressInterval = 100;

    std::unique_ptr<Ui::RepoWidget> m_ui;
    RepoShell *m_shell = nullptr;
    PackageFeed *m_feed = nullptr;
    RepoModel *m_model = nullptr;
    RepoProxyModel *m_proxy = nullptr;
    DependsView *m_depends = nullptr;
    InstallabilityView *m_installability = nullptr;
    PublicationPanel *m_publication = nullptr;
    RepositoryPanel *m_repository = nullptr;
    PackagePanel *m_package = nullptr;
    TreeFilter *m_filter = nullptr;
    QTimer m_progressTimer;
    int m_shownPackages = 0; ///< number of packages at the last count
    bool m_running = false;

    void setUpTree();
    void buildPages();
    void connectShell();
    void repeatSignals();
    void setRunning(bool running);
    void updateCounters();
    void updateActions();
    void updateCompleteCheck();
    void showPackage(const PackageInfoPtr &record);
    void showPackageError(const QString &text);
};
