// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/dependscommands.h"

#include "apt/versionorder.h"
#include "engine/reposhell.h"
#include "ui/commands/previewcommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/search/addpackagedialog.h"
#include "ui/tab/dependsview.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/mnemonics.h"

#include "ui_mainwindow.h"

#include <QMenu>
#include <QToolButton>

DependsCommands::DependsCommands(Ui::MainWindow &ui, const Workbench &bench, QWidget *window)
    : QObject(window)
    , m_ui(ui)
    , m_bench(bench)
    , m_menu(new QMenu(window))
{
    m_menu->setObjectName(QStringLiteral("m_dependsMenu"));
    m_menu->setToolTipsVisible(true);
    m_ui.m_addToLocalRepoAction->setEnabled(false);
    connect(m_ui.m_checkDependStartAction, &QAction::triggered, this, &DependsCommands::checkDepends);
    connect(m_ui.m_checkDependsAction, &QAction::triggered, this, &DependsCommands::checkDependsByToolBar);
    connect(m_ui.m_addToLocalRepoAction, &QAction::triggered, this, &DependsCommands::addPackageToLocalRepo);
    connect(m_ui.m_addPackageFromExtRepoAction,
            &QAction::triggered,
            this,
            &DependsCommands::addPackageFromInternet);
    connect(&m_bench.tabs, &RepoTabs::created, this, &DependsCommands::attach);
    connect(
        &m_bench.tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) { m_abilities.remove(widget); });
    connect(&m_bench.settings, &SettingsCommands::externalReposChanged, this, [this] {
        const QList<RepoWidget *> widgets = m_bench.tabs.shown();
        for (const RepoWidget *widget : widgets)
            widget->dependsView()->setAliases(m_bench.settings.aliases());
    });
}

void DependsCommands::attach(RepoWidget *widget)
{
    DependsView *view = widget->dependsView();
    view->setAliases(m_bench.settings.aliases());
    view->setArrangement(m_arrangement);
    connect(view, &DependsView::arrangementChanged, this, [this, widget] { shareArrangement(widget); });
    connect(widget, &RepoWidget::enableCheckDependsAction, this, [this, widget](bool isEnabled) {
        m_abilities[widget].check = isEnabled;
        Q_EMIT stateChanged();
    });
    connect(widget, &RepoWidget::enableDependsCheckMenu, this, [this, widget](bool isEnabled) {
        m_abilities[widget].checkMenu = isEnabled;
        Q_EMIT stateChanged();
    });
    connect(
        view, &DependsView::checkRequested, this, [this, widget, view] { check(widget, {view->package()}); });
    connect(view, &DependsView::menuRequested, this, [this, widget](const QPoint &pos) {
        packageDependsContextMenuRequested(widget, pos);
    });
}

// --- the actions and the trees --------------------------------------------------------------------------------------

void DependsCommands::updateActions()
{
    const RepoWidget *widget = m_bench.tabs.current();
    const Abilities abilities = m_abilities.value(widget);
    const bool isFree = m_bench.tabs.isFree(widget);
    m_ui.m_checkDependStartAction->setEnabled(isFree && abilities.check);
    m_ui.m_addPackageFromExtRepoAction->setEnabled(m_bench.tabs.isChangeable(widget));
    m_ui.m_dependsCheckMenu->setEnabled(widget != nullptr && abilities.checkMenu);
}

void DependsCommands::setArrangement(const DependsArrangement &arrangement)
{
    m_arrangement = arrangement;
    shareArrangement(nullptr);
}

void DependsCommands::shareArrangement(const RepoWidget *from)
{
    if (from != nullptr)
        m_arrangement = from->dependsView()->arrangement();
    const QList<RepoWidget *> widgets = m_bench.tabs.shown();
    for (const RepoWidget *widget : widgets) {
        if (widget != from)
            widget->dependsView()->setArrangement(m_arrangement);
    }
}

// --- checking -------------------------------------------------------------------------------------------------------

void DependsCommands::checkDepends()
{
    RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr)
        return;
    const QList<PackageInfoPtr> selected = widget->selectedPackages();
    check(widget, selected.isEmpty() ? widget->repoShell()->packages() : selected);
}

void DependsCommands::checkDependsByToolBar()
{
    if (m_ui.m_checkDependStartAction->isEnabled()) {
        checkDepends();
        return;
    }
    // When nothing can be checked, the button still offers the choice of the sources.
    auto *button = qobject_cast<QToolButton *>(m_ui.mainToolBar->widgetForAction(m_ui.m_checkDependsAction));
    if (button != nullptr && button->isVisible())
        button->showMenu();
}

void DependsCommands::check(RepoWidget *widget, const QList<PackageInfoPtr> &packages)
{
    if (m_bench.tabs.isRunning(widget))
        return;
    if (m_bench.settings.choices().dependsRepoType == DependsNowhere)
        m_bench.prompts.warn(tr("Warning!"), tr("Dependences checking is disabled."));
    else
        widget->repoShell()->checkDepends(packages);
}

// --- missing packages -----------------------------------------------------------------------------------------------

void DependsCommands::packageDependsContextMenuRequested(RepoWidget *widget, const QPoint &globalPos)
{
    const QVector<Dependency> lacks = widget->dependsView()->selectedLacks();
    const QString text
        = lacks.size() > 1 ? tr("Add packages to local repository") : tr("Add package to local repository");
    m_menuTab = widget;
    m_ui.m_addToLocalRepoAction->setText(text);
    m_ui.m_addToLocalRepoAction->setToolTip(text);
    m_ui.m_addToLocalRepoAction->setEnabled(!lacks.isEmpty() && m_bench.tabs.isChangeable(widget));
    m_menu->clear();
    m_menu->addAction(m_ui.m_addToLocalRepoAction);
    m_menu->addSeparator();
    m_menu->addAction(widget->dependsView()->copyAction());
    Mnemonics::mark(m_menu, nullptr);
    m_menu->popup(globalPos);
}

void DependsCommands::addPackageToLocalRepo()
{
    if (m_menuTab.isNull() || m_bench.tabs.isRunning(m_menuTab))
        return;
    const QPointer<RepoWidget> target = m_menuTab;
    const QVector<Dependency> lacks = target->dependsView()->selectedLacks();
    const QStringList components = target->repoShell()->repoInfo().componentList();
    if (lacks.isEmpty())
        return;
    const SettingsCommands::Confirmed confirmed = m_bench.settings.confirmAddSettings(components);
    if (confirmed == SettingsCommands::Confirmed::No || target.isNull() || m_bench.tabs.isRunning(target))
        return;
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Fetch;
    change.request.dependencies = lacks;
    change.request.options = m_bench.settings.addOptions(components);
    change.start = [widget = target.data(), request = change.request] {
        widget->repoShell()->addDependencies(request.dependencies, request.options);
    };
    m_bench.previews.run(target, change, PreviewCommands::wishOf(confirmed));
}

void DependsCommands::addPackageFromInternet()
{
    const QPointer<RepoWidget> target = m_bench.tabs.current();
    if (target.isNull() || target->repoPath().isEmpty() || m_bench.tabs.isRunning(target))
        return;
    const RepoInfo info = target->repoShell()->repoInfo();
    const QStringList architectures = info.binaryArchitectures();
    const ExternalRepos &repos = m_bench.settings.externalRepos();
    PackageFilter filter;
    filter.architectures = QSet<QString>(architectures.cbegin(), architectures.cend());
    filter.isAsked = [repos](const QString &origin) { return repos.isOriginAsked(origin); };
    QHash<QString, QString> versions;
    const auto keyOf = [](const PackageInfo &package) -> QString {
        return package.name + QLatin1Char('/') + package.architecture;
    };
    const QList<PackageInfoPtr> present = target->repoShell()->packages();
    for (const PackageInfoPtr &package : present) {
        if (package->type != PackageType::Deb)
            continue;
        // Several components can have it.
        QString &known = versions[keyOf(*package)];
        if (known.isEmpty() || VersionOrder::compare(package->version, known) > 0)
            known = package->version;
    }
    AddPackageDialog dialog(
        filter,
        m_bench.settings.aliases(),
        [versions, keyOf](const PackageInfo &package) { return versions.value(keyOf(package)); },
        {repos, architectures},
        m_bench.prompts.window());
    const bool isAccepted = m_bench.prompts.run(dialog) == QDialog::Accepted;
    // The dialog may have fetched lists that a complete check has not seen.
    if (!target.isNull() && repos.isAnyAdded())
        target->repoShell()->compareBase();
    if (!isAccepted)
        return;
    const QList<PackageInfo> packages = dialog.selectedPackages();
    if (packages.isEmpty())
        return;
    // The user learns which packages were not added, whatever the reason.
    const auto tellNotAdded = [this, packages] {
        QStringList names;
        for (const PackageInfo &package : packages)
            names << package.name;
        m_bench.feedback.announce(tr("Not added: %1").arg(names.join(QLatin1String(", "))));
    };
    const SettingsCommands::Confirmed confirmed = m_bench.settings.confirmAddSettings(info.componentList());
    if (confirmed == SettingsCommands::Confirmed::No || target.isNull() || m_bench.tabs.isRunning(target))
        tellNotAdded();
    else
        m_bench.previews.fetch(target, packages, confirmed, tellNotAdded);
}
