// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/repowidget.h"

#include "engine/reposhell.h"
#include "ui/installability/installabilityview.h"
#include "ui/packages/packagefeed.h"
#include "ui/packages/packageselection.h"
#include "ui/packages/pooldates.h"
#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"
#include "ui/tab/dependsview.h"
#include "ui/tab/filterline.h"
#include "ui/tab/packagepanel.h"
#include "ui/tab/publicationpanel.h"
#include "ui/tab/repositorypanel.h"
#include "ui/tab/treefilter.h"

#include "ui_repowidget.h"

#include <QFocusEvent>
#include <QItemSelectionModel>

#include <algorithm>

RepoWidget::RepoWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::RepoWidget>())
    , m_shell(new RepoShell(this))
    , m_feed(new PackageFeed(this))
    , m_model(new RepoModel(this))
    , m_proxy(new RepoProxyModel(this))
{
    m_ui->setupUi(this);
    m_ui->m_splitter->setStretchFactor(0, 2);
    m_ui->m_splitter->setStretchFactor(1, 3);
    // Only the ratio counts: two parts of a tree's width, three parts of that width with the frame of a tab widget.
    // Without this the splitter would use the size hints of the pages, which depend on their texts.
    constexpr int TreeWidth = 256;
    constexpr int TabFrame = 4;
    m_ui->m_splitter->setSizes({2 * TreeWidth, 3 * (TreeWidth + TabFrame)});
    connect(m_ui->m_splitter, &QSplitter::splitterMoved, this, &RepoWidget::splitterMoved);
    buildPages();
    setUpTree();
    m_filter = new TreeFilter(*m_ui->m_searchLine, *m_ui->m_repoTreeView, *m_proxy, this);
    m_ui->verticalLayout_10->insertWidget(1, m_filter->line());
    connectShell();
    repeatSignals();
}

RepoWidget::~RepoWidget() = default;

void RepoWidget::focusInEvent(QFocusEvent *event)
{
    // The search line would take the keys of the commands. With a focus proxy, the Tab key would skip that line.
    m_ui->m_repoTreeView->setFocus(event->reason());
}

RepoWidget *RepoWidget::of(QWidget *part)
{
    RepoWidget *tab = nullptr;
    for (QWidget *widget = part; widget != nullptr && tab == nullptr; widget = widget->parentWidget())
        tab = qobject_cast<RepoWidget *>(widget);
    return tab;
}

void RepoWidget::focusTree()
{
    m_ui->m_repoTreeView->setFocus();
}

void RepoWidget::selectAllPackages()
{
    m_ui->m_repoTreeView->selectAll();
    m_ui->m_repoTreeView->setFocus();
}

void RepoWidget::buildPages()
{
    QTabWidget *repository = m_ui->comboWidget;
    m_repository = new RepositoryPanel(*m_shell, repository);
    m_publication = new PublicationPanel(*m_shell, repository);
    repository->addTab(m_repository, tr("Common"));
    repository->addTab(m_publication, tr("Publication"));
    QTabWidget *package = m_ui->tabWidget;
    m_package = new PackagePanel(package);
    m_depends = new DependsView(package);
    package->addTab(m_package, tr("Common"));
    m_installability = new InstallabilityView(package);
    package->addTab(m_depends, tr("Dependences"));
    package->addTab(m_installability, tr("Installability"));
}

void RepoWidget::setUpTree()
{
    new PoolDates(m_model);
    m_proxy->setSourceModel(m_model);
    m_ui->m_repoTreeView->setModel(m_proxy);
    connect(m_feed, &PackageFeed::changesReady, m_model, &RepoModel::apply);
    connect(m_feed, &PackageFeed::changesReady, this, &RepoWidget::updateCounters);
    connect(m_proxy, &RepoProxyModel::rowsInserted, this, &RepoWidget::rowsInserted);

    const QItemSelectionModel *selection = m_ui->m_repoTreeView->selectionModel();
    connect(selection, &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &current) {
        currentItemChanged(current);
    });
    connect(selection, &QItemSelectionModel::selectionChanged, this, &RepoWidget::updateActions);
    // A reset or a new filter can remove the current item without a signal of the selection.
    connect(m_ui->m_repoTreeView, &RepoTreeView::stateRestored, this, [this] {
        currentItemChanged(m_ui->m_repoTreeView->currentIndex());
        updateActions();
    });
    // The shown package may have got a new record.
    connect(m_proxy,
            &RepoProxyModel::dataChanged,
            this,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                const QModelIndex current = m_ui->m_repoTreeView->currentIndex();
                if (current.isValid() && current.parent() == topLeft.parent()
                    && current.row() >= topLeft.row() && current.row() <= bottomRight.row())
                    changePackage(current);
            });
    connect(m_ui->m_repoTreeView,
            &RepoTreeView::customContextMenuRequested,
            this,
            &RepoWidget::customContextMenuRequested);
    connect(m_ui->m_repoTreeView, &RepoTreeView::filesDropped, this, &RepoWidget::filesDropped);
    connect(m_ui->m_repoTreeView,
            &RepoTreeView::packagesDropped,
            this,
            [this](QWidget *source, const QString &component, bool moves) {
                Q_EMIT packagesDropped(of(source), component, moves);
            });
}

void RepoWidget::connectShell()
{
    // The feed connects first, so that the packages are there when finished() arrives.
    m_feed->watch(*m_shell);
    connect(m_shell, &RepoShell::pathChanged, this, &RepoWidget::repoPathChanged);
    connect(m_shell, &RepoShell::repoInfoAdded, this, &RepoWidget::repoInfoAdded);
    connect(m_shell, &RepoShell::completeCheckChanged, this, &RepoWidget::updateCompleteCheck);
    connect(m_shell, &RepoShell::started, this, [this] { setRunning(true); });
    connect(m_shell, &RepoShell::finished, this, [this] {
        m_progressTimer.stop();
        Q_EMIT progressBarSetValue(m_shell->progress());
    });
    connect(m_shell, &RepoShell::idle, this, [this] {
        setRunning(false);
        m_installability->repositoryChanged();
    });
    // Some jobs do not emit a signal for each item, so a timer asks for the progress.
    m_progressTimer.setInterval(ProgressInterval);
    connect(&m_progressTimer, &QTimer::timeout, this, [this] {
        Q_EMIT progressBarSetValue(m_shell->progress());
    });
}

void RepoWidget::repeatSignals()
{
    connect(m_shell, &RepoShell::started, this, &RepoWidget::repoShellStarted);
    connect(m_shell, &RepoShell::finished, this, &RepoWidget::repoShellFinished);
    connect(m_shell, &RepoShell::progressRangeChanged, this, &RepoWidget::progressBarSetMaximum);
    connect(m_shell, &RepoShell::progressStepChanged, this, &RepoWidget::progressStepChanged);
    connect(m_shell, &RepoShell::needImportRepo, this, &RepoWidget::needImportRepo);
    connect(m_shell, &RepoShell::needCloseRepo, this, &RepoWidget::needCloseRepo);
    connect(m_shell, &RepoShell::downloadablePackagesReady, this, &RepoWidget::downloadablePackagesReady);
    connect(m_shell, &RepoShell::critical, this, &RepoWidget::critical);
    connect(m_shell, &RepoShell::criticalVelt, this, [this](const QString &text, const QString &details) {
        Q_EMIT criticalVelt(text, details);
    });
    connect(m_publication, &PublicationPanel::serverTypeChanged, this, &RepoWidget::serverTypeChanged);
    connect(m_publication, &PublicationPanel::portEditingFinished, this, &RepoWidget::portEditingFinished);
    connect(m_publication, &PublicationPanel::publishTriggered, this, &RepoWidget::publishRepoTriggered);
    connect(m_publication, &PublicationPanel::unpublishTriggered, this, &RepoWidget::unpublishRepoTriggered);
    connect(m_publication, &PublicationPanel::statusLabel, this, &RepoWidget::statusLabel);
    connect(m_depends, &DependsView::checkRequested, this, &RepoWidget::checkDependsToolButtonClicked);
    connect(m_depends, &DependsView::menuRequested, this, &RepoWidget::packageDependsContextMenuRequested);
}

// --- the repository ------------------------------------------------------------------------------------------------

void RepoWidget::openRepo(const QString &path)
{
    m_shell->openRepo(path);
}

QString RepoWidget::repoPath() const
{
    return m_shell->path();
}

void RepoWidget::repoPathChanged()
{
    const QString path = m_shell->path();
    if (path.isEmpty()) {
        m_model->clearRepository();
        m_publication->showRepository();
        m_repository->showRepository();
    } else {
        repoInfoAdded();
    }
    updateCounters();
    updateCompleteCheck();
    Q_EMIT newTabTitle(path);
    Q_EMIT newRepoPath(path.isEmpty());
    Q_EMIT enableDependsCheckMenu(!path.isEmpty());
}

void RepoWidget::repoInfoAdded()
{
    m_publication->showRepository();
    m_repository->showRepository();
    if (!m_shell->path().isEmpty())
        m_model->setRepository(m_shell->repoInfo());
}

void RepoWidget::setRunning(bool running)
{
    m_running = running;
    if (running) {
        m_progressTimer.start();
        setCursor(Qt::BusyCursor);
    } else {
        m_progressTimer.stop();
        unsetCursor();
    }
    updateActions();
}

void RepoWidget::updateCounters()
{
    m_ui->m_packageStatusLine->setCounters(m_model->packageCount(DependUndefined),
                                           m_model->packageCount(DependError),
                                           m_model->packageCount(DependSuccess));
    m_ui->m_packageStatusLine->setTotal(m_model->packageCount());
    if (m_shownPackages > 0 && m_model->packageCount() == 0)
        Q_EMIT childCountIsZero();
    m_shownPackages = m_model->packageCount();
    updateActions();
    Q_EMIT packagesChanged();
}

void RepoWidget::updateActions()
{
    Q_EMIT enableRemovePackagesAction(hasSelectedPackages() && !m_running);
    Q_EMIT enableCheckDependsAction(m_model->packageCount() > 0 && !m_running);
    m_depends->setCheckEnabled(m_depends->package() && !m_running);
    m_installability->setCheckEnabled(m_installability->package() && !m_running);
    m_installability->setCuresEnabled(!m_running && m_shell->isWritable());
}

void RepoWidget::updateCompleteCheck()
{
    const CompleteCheckRecord check = m_shell->completeCheck();
    m_model->setInstallabilityStale(check.isStale);
    m_installability->setCheck(check);
}

void RepoWidget::showPublication()
{
    setCurrentItem(m_proxy->index(0, 0));
    m_ui->comboWidget->setCurrentWidget(m_publication);
}

int RepoWidget::packagesInError() const
{
    return m_model->packageCount(DependError);
}

bool RepoWidget::hasCheckResults() const
{
    return m_model->packageCount(DependError) + m_model->packageCount(DependSuccess) > 0;
}

void RepoWidget::saveChoices()
{
    m_publication->saveChoices();
}

void RepoWidget::setShowPackageVersions(bool show)
{
    m_model->setShowVersions(show);
}

void RepoWidget::setColumnChoice(ColumnChoice &choice)
{
    m_ui->m_repoTreeView->setColumnChoice(choice);
}

void RepoWidget::setStatusLineVisible(bool visible)
{
    m_ui->m_packageStatusLine->setVisible(visible);
}

QList<int> RepoWidget::splitterSizes() const
{
    return m_ui->m_splitter->sizes();
}

void RepoWidget::setSplitterSizes(const QList<int> &sizes)
{
    m_ui->m_splitter->setSizes(sizes);
}

// --- the tree ------------------------------------------------------------------------------------------------------

RepoWidget::CurrentItem RepoWidget::currentItem() const
{
    const QItemSelectionModel *selection = m_ui->m_repoTreeView->selectionModel();
    const QModelIndex current = selection->currentIndex();
    if (!current.isValid() || !selection->isSelected(current))
        return CurrentItem::None;
    return current.parent().isValid() ? CurrentItem::InRepository : CurrentItem::Repository;
}

bool RepoWidget::hasSelectedPackages() const
{
    return PackageSelection::hasPackages(m_ui->m_repoTreeView->selectionModel()->selectedIndexes(), *m_proxy);
}

PackageInfoPtr RepoWidget::currentPackage() const
{
    return m_model->package(m_proxy->mapToSource(m_ui->m_repoTreeView->currentIndex()));
}

QList<PackageInfoPtr> RepoWidget::selectedPackages() const
{
    return PackageSelection::packages(
        m_ui->m_repoTreeView->selectionModel()->selectedIndexes(), *m_proxy, *m_model);
}

bool RepoWidget::selectPackage(const NamedPackage &package)
{
    const QList<PackageInfoPtr> packages = m_shell->packages();
    const auto found
        = std::find_if(packages.cbegin(), packages.cend(), [&package](const PackageInfoPtr &other) {
              return other->name == package.name && other->version == package.version
                     && (other->architecture == package.architecture
                         || other->ownArchitecture() == package.architecture);
          });
    if (found == packages.cend())
        return false;
    const QModelIndex source = m_model->indexOfPackage(**found);
    if (source.isValid() && !m_proxy->mapFromSource(source).isValid())
        m_filter->showAll();
    const QModelIndex index = m_proxy->mapFromSource(source);
    if (!index.isValid())
        return false;
    setCurrentItem(index);
    return true;
}

QMenu *RepoWidget::packetFilterMenu() const
{
    return m_filter->menu();
}

void RepoWidget::rowsInserted(const QModelIndex &parent, int first, int last)
{
    // The first component and the first section are expanded. Later ones leave the tree as it is.
    const bool holdsContainers = parent.isValid() && !parent.parent().parent().isValid();
    if (holdsContainers && m_proxy->rowCount(parent) == last - first + 1)
        m_ui->m_repoTreeView->expand(parent);
}

void RepoWidget::setCurrentItem(const QModelIndex &index)
{
    m_ui->m_repoTreeView->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_ui->m_repoTreeView->scrollTo(index);
}

void RepoWidget::currentItemChanged(const QModelIndex &current)
{
    m_model->setCurrentItem(m_proxy->mapToSource(current));
    if (!current.isValid())
        m_ui->m_stackedWidget->setCurrentIndex(NothingPage);
    else if (m_model->package(m_proxy->mapToSource(current)))
        changePackage(current);
    else
        m_ui->m_stackedWidget->setCurrentIndex(current.parent().isValid() ? NothingPage : RepositoryPage);
    Q_EMIT itemChanged(current.isValid());
    Q_EMIT currItemChanged(current);
}

void RepoWidget::customContextMenuRequested(const QPoint &pos)
{
    Q_EMIT contextMenuRequested(m_ui->m_repoTreeView->viewport()->mapToGlobal(pos));
}

void RepoWidget::packageDependsContextMenuRequested(const QPoint &pos)
{
    Q_EMIT dependsContextMenuRequested(pos);
}

// --- the details ---------------------------------------------------------------------------------------------------

void RepoWidget::changePackage(const QModelIndex &index)
{
    const PackageInfoPtr package = m_model->package(m_proxy->mapToSource(index));
    if (!package)
        return;
    if (package->control.isEmpty())
        showPackageError(tr("The indices of the repository hold no record of %1.").arg(package->name));
    else
        showPackage(package);
}

void RepoWidget::showPackage(const PackageInfoPtr &record)
{
    m_package->showPackage(*record);
    m_depends->setPackage(record);
    m_depends->setCheckEnabled(!m_running);
    m_installability->setPackage(record);
    m_installability->setCheckEnabled(!m_running);
    m_ui->m_stackedWidget->setCurrentIndex(PackagePage);
}

void RepoWidget::showPackageError(const QString &text)
{
    m_ui->m_packageErrorLabel->setText(
        tr("<b>Failed to get package information</b><br> %1").arg(text.toHtmlEscaped()));
    m_ui->m_stackedWidget->setCurrentIndex(ErrorPage);
}

void RepoWidget::copySrcLineEdit()
{
    m_publication->copySourceLine();
}
