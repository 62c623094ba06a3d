// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/installabilitycommands.h"

#include "engine/reposhell.h"
#include "engine/repository/newreporules.h"
#include "installability/installabilitytext.h"
#include "ui/commands/checkbasemenu.h"
#include "ui/commands/packagecommands.h"
#include "ui/commands/previewcommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/installability/curedialog.h"
#include "ui/installability/installabilityview.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/tooltiptext.h"

#include <QAction>
#include <QIcon>
#include <QMenu>

#include <algorithm>

InstallabilityCommands::InstallabilityCommands(const Workbench &bench,
                                               PackageCommands &packages,
                                               QObject *parent)
    : QObject(parent)
    , m_bench(bench)
    , m_packages(packages)
    , m_checkAction(
          new QAction(QIcon::fromTheme(QStringLiteral("system-search")), tr("Complete check"), this))
    , m_baseMenu(new CheckBaseMenu(bench.prompts.window()))
{
    m_checkAction->setObjectName(QStringLiteral("m_completeCheckAction"));
    connect(m_checkAction, &QAction::triggered, this, &InstallabilityCommands::checkSelected);
    connect(m_baseMenu, &CheckBaseMenu::aboutToShow, this, &InstallabilityCommands::showBases);
    connect(m_baseMenu, &CheckBaseMenu::chosen, this, &InstallabilityCommands::setBase);
    connect(
        m_baseMenu, &CheckBaseMenu::otherRepositoryWanted, this, &InstallabilityCommands::chooseRepository);
    connect(&m_bench.tabs, &RepoTabs::created, this, &InstallabilityCommands::attach);
    connect(&m_bench.tabs, &RepoTabs::ready, this, &InstallabilityCommands::checkCured);
    connect(&m_bench.tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) { m_cured.remove(widget); });
    connect(&m_bench.settings, &SettingsCommands::changed, this, &InstallabilityCommands::updateActions);
}

void InstallabilityCommands::attach(RepoWidget *widget)
{
    InstallabilityView *view = widget->installabilityView();
    view->setScopeSource([this, widget] { return m_bench.tabs.checkScope(widget, lastBase(widget)); });
    connect(view, &InstallabilityView::checkRequested, this, [this, widget] { checkShown(widget); });
    connect(view, &InstallabilityView::cureRequested, this, [this, widget](const Cure &wanted) {
        cure(widget, wanted);
    });
    connect(view,
            &InstallabilityView::packageChosen,
            this,
            [this, widget](const QString &repository, const NamedPackage &package) {
                showPackage(widget, repository, package);
            });
}

QAction *InstallabilityCommands::baseAction() const
{
    return m_baseMenu->menu()->menuAction();
}

void InstallabilityCommands::updateActions()
{
    const RepoWidget *widget = m_bench.tabs.current();
    m_checkAction->setEnabled(m_bench.tabs.isFree(widget) && widget->repoShell()->packageCount() > 0);
    m_checkAction->setToolTip(toolTipText(
        tr("Complete check, against %1").arg(InstallabilityText::base(m_bench.settings.checkBase()))));
}

// --- what is checked against ---------------------------------------------------------------------------------------

void InstallabilityCommands::showBases()
{
    const CompleteCheckBase base = m_bench.settings.checkBase();
    const RepoWidget *current = m_bench.tabs.current();
    QStringList repositories = m_bench.tabs.paths();
    QStringList architectures = NewRepoRules::defaultArchitectures() + base.foreignArchitectures;
    if (current != nullptr) {
        repositories.removeAll(m_bench.tabs.pathOf(current));
        architectures += current->repoShell()->repoInfo().binaryArchitectures();
    }
    // The choice is shown, also when it belongs to a repository that is not open.
    if (!base.repository.isEmpty() && !repositories.contains(base.repository))
        repositories.append(base.repository);
    architectures.removeDuplicates();
    architectures.sort();
    m_baseMenu->show(base, repositories, architectures);
}

void InstallabilityCommands::setBase(const CompleteCheckBase &base)
{
    m_bench.settings.setCheckBase(base);
    m_bench.feedback.announce(tr("Complete checks are made against %1.").arg(InstallabilityText::base(base)));
}

void InstallabilityCommands::chooseRepository()
{
    CompleteCheckBase base = m_bench.settings.checkBase();
    const QString path = m_bench.prompts.directory(tr("Repository to check against"), base.repository);
    if (path.isEmpty())
        return;
    base.kind = CompleteCheckBase::Repository;
    base.repository = path;
    setBase(base);
}

// --- checking -------------------------------------------------------------------------------------------------------

void InstallabilityCommands::checkSelected()
{
    RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr)
        return;
    const QList<PackageInfoPtr> selected = widget->selectedPackages();
    check(widget,
          selected.isEmpty() ? widget->repoShell()->packages() : selected,
          m_bench.settings.checkBase());
}

void InstallabilityCommands::checkShown(RepoWidget *widget)
{
    const PackageInfoPtr shown = widget->installabilityView()->package();
    if (!shown)
        return;
    if (shown->installabilityState() == InstallabilityUnknown) {
        check(widget, {shown}, m_bench.settings.checkBase());
        return;
    }
    // Nothing is old after a repetition.
    QList<PackageInfoPtr> packages = widget->repoShell()->packages();
    const auto isUnchecked = [](const PackageInfoPtr &package) {
        return package->installabilityState() == InstallabilityUnknown;
    };
    packages.erase(std::remove_if(packages.begin(), packages.end(), isUnchecked), packages.end());
    check(widget, packages, lastBase(widget));
}

void InstallabilityCommands::check(RepoWidget *widget,
                                   const QList<PackageInfoPtr> &packages,
                                   const CompleteCheckBase &base)
{
    if (!m_bench.tabs.isRunning(widget))
        widget->repoShell()->checkCompletely(packages, base);
}

CompleteCheckBase InstallabilityCommands::lastBase(const RepoWidget *widget) const
{
    const CompleteCheckRecord check = widget->repoShell()->completeCheck();
    return check.isValid() ? check.base : m_bench.settings.checkBase();
}

void InstallabilityCommands::showPackage(RepoWidget *widget,
                                         const QString &repository,
                                         const NamedPackage &package)
{
    RepoWidget *target = repository.isEmpty() ? widget : m_bench.tabs.find(repository);
    if (target == nullptr || !target->selectPackage(package)) {
        m_bench.feedback.announce(
            tr("%1 is not in the repository any more.").arg(InstallabilityText::name(package, true, true)));
        return;
    }
    m_bench.tabs.bringToFront(target);
}

// --- cures ----------------------------------------------------------------------------------------------------------

void InstallabilityCommands::cure(RepoWidget *widget, const Cure &cure)
{
    if (m_bench.tabs.isRunning(widget))
        return;
    const QPointer<RepoWidget> guard(widget);
    CureDialog dialog(cure, m_bench.tabs.checkScope(widget, lastBase(widget)), m_bench.prompts.window());
    if (m_bench.prompts.run(dialog) == QDialog::Accepted && !guard.isNull()
        && !m_bench.tabs.isRunning(widget))
        carryOut(widget, cure);
}

void InstallabilityCommands::carryOut(RepoWidget *widget, const Cure &cure)
{
    const PackageInfoPtr shown = widget->installabilityView()->package();
    QSet<QString> names{cure.package};
    if (shown)
        names.insert(shown->name);
    if (cure.kind == Cure::Remove) {
        QList<PackageInfoPtr> gone = widget->repoShell()->packages();
        const auto isOther = [&cure](const PackageInfoPtr &package) {
            return package->name != cure.package || package->version != cure.version
                   || package->architecture != cure.architecture;
        };
        gone.erase(std::remove_if(gone.begin(), gone.end(), isOther), gone.end());
        m_packages.removePackages(widget, gone, [this, widget, names] { m_cured.insert(widget, names); });
        return;
    }
    const QPointer<RepoWidget> guard(widget);
    const QStringList components = widget->repoShell()->repoInfo().componentList();
    const SettingsCommands::Confirmed confirmed = m_bench.settings.confirmAddSettings(components);
    if (confirmed == SettingsCommands::Confirmed::No || guard.isNull() || m_bench.tabs.isRunning(widget))
        return;
    PackageInfo wanted;
    wanted.name = cure.package;
    wanted.version = cure.version;
    wanted.architecture = cure.architecture;
    wanted.repository = cure.source;
    m_bench.previews.fetch(
        widget, {wanted}, confirmed, {}, [this, widget, names] { m_cured.insert(widget, names); });
}

void InstallabilityCommands::checkCured(RepoWidget *widget)
{
    const QSet<QString> names = m_cured.take(widget);
    if (names.isEmpty())
        return;
    QList<PackageInfoPtr> packages = widget->repoShell()->packages();
    const auto isOther = [&names](const PackageInfoPtr &package) {
        return package->installabilityState() == InstallabilityUnknown && !names.contains(package->name);
    };
    packages.erase(std::remove_if(packages.begin(), packages.end(), isOther), packages.end());
    check(widget, packages, lastBase(widget));
}
