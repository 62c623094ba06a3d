// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/upgradecommands.h"

#include "engine/reposhell.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/upgradepackagesdialog.h"
#include "ui/sources/upgradesourcesdialog.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QAction>
#include <QPointer>

#include <algorithm>

UpgradeCommands::UpgradeCommands(QAction *action, const Workbench &bench, QObject *parent)
    : QObject(parent)
    , m_action(action)
    , m_bench(bench)
{
    connect(m_action, &QAction::triggered, this, &UpgradeCommands::showUpgradeRepoDialog);
    connect(&m_bench.tabs, &RepoTabs::created, this, &UpgradeCommands::attach);
    connect(&m_bench.tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        m_prepared.removeAll(widget);
        m_searches.remove(widget);
    });
    // Queued, because a dialog follows: other receivers of these signals must come first.
    connect(&m_bench.tabs, &RepoTabs::ready, this, &UpgradeCommands::servePrepared, Qt::QueuedConnection);
    connect(&m_bench.prompts, &Prompts::freed, this, &UpgradeCommands::servePrepared, Qt::QueuedConnection);
}

void UpgradeCommands::attach(RepoWidget *widget)
{
    RepoShell *engine = widget->repoShell();
    connect(engine, &RepoShell::finished, engine, &RepoShell::removeCustomSourcesListFile);
    // At this moment the job has not ended yet.
    connect(engine, &RepoShell::downloadablePackagesReady, this, [this, widget] {
        if (m_searches.contains(widget)) {
            m_searches[widget] = true;
            return;
        }
        m_prepared.removeAll(widget);
        m_prepared.append(widget);
    });
}

void UpgradeCommands::updateActions()
{
    const RepoWidget *widget = m_bench.tabs.current();
    m_action->setEnabled(m_bench.tabs.isChangeable(widget) && widget->repoShell()->packageCount() > 0);
}

void UpgradeCommands::showUpgradeRepoDialog()
{
    const QPointer<RepoWidget> target = m_bench.tabs.current();
    // The search for newer versions takes a while and is useless without a key.
    if (!m_bench.tabs.isFree(target) || !m_bench.settings.hasKeyToAdd())
        return;
    const QStringList sources = chooseSources();
    if (!sources.isEmpty() && m_bench.tabs.isFree(target))
        target->repoShell()->prepareUpgrade(sources);
}

QStringList UpgradeCommands::chooseSources()
{
    UpgradeSourcesDialog dialog(m_bench.settings.externalRepos(), m_lastSources, m_bench.prompts.window());
    if (m_bench.prompts.run(dialog) != QDialog::Accepted)
        return {};
    const QStringList sources = dialog.sources();
    if (sources.isEmpty())
        m_bench.prompts.inform(tr("No source selected"),
                               tr("Since you have not selected any source, the update will be canceled"));
    else
        m_lastSources = sources;
    return sources;
}

void UpgradeCommands::search(RepoWidget *widget, const QStringList &sources)
{
    m_searches.insert(widget, false);
    widget->repoShell()->prepareUpgrade(sources);
}

bool UpgradeCommands::upgradeAll(RepoWidget *widget)
{
    if (!m_searches.take(widget))
        return false;
    upgrade(widget, widget->repoShell()->upgradablePackages(), PreviewCommands::Wish::AsSet);
    return true;
}

void UpgradeCommands::forgetSearches()
{
    for (auto search = m_searches.cbegin(); search != m_searches.cend(); ++search)
        search.key()->repoShell()->removeCustomSourcesListFile(RepoEnums::UPGRADE_JOB);
    m_searches.clear();
}

void UpgradeCommands::servePrepared()
{
    if (m_bench.prompts.isOpen())
        return;
    const auto next = std::find_if(m_prepared.cbegin(), m_prepared.cend(), [this](const RepoWidget *widget) {
        return m_bench.tabs.isFree(widget);
    });
    // After the dialog, Prompts::freed() calls this function for the other tabs.
    if (next != m_prepared.cend())
        choosePackages(m_prepared.takeAt(static_cast<int>(next - m_prepared.cbegin())));
}

void UpgradeCommands::choosePackages(RepoWidget *widget)
{
    const QPointer<RepoWidget> target(widget);
    m_bench.tabs.bringToFront(widget);
    const QVector<UpgradablePackage> packages = widget->repoShell()->upgradablePackages();
    // The rows of the preview can be switched off too, so the choice need not come before.
    const bool isPreviewDue = m_bench.previews.when() == PreviewAlways;
    UpgradePackagesDialog dialog(packages, m_bench.settings.aliases(), m_bench.prompts.window());
    const bool isChosen = (isPreviewDue || m_bench.prompts.run(dialog) == QDialog::Accepted)
                          && m_bench.settings.hasKeyToAdd();
    if (target.isNull())
        return;
    if (isChosen && m_bench.tabs.isFree(target))
        upgrade(widget,
                isPreviewDue ? packages : dialog.packages(),
                dialog.wantsPreview() ? PreviewCommands::Wish::Now : PreviewCommands::Wish::AsSet);
    else
        target->repoShell()->removeCustomSourcesListFile(RepoEnums::UPGRADE_JOB);
}

void UpgradeCommands::upgrade(RepoWidget *widget,
                              const QVector<UpgradablePackage> &packages,
                              PreviewCommands::Wish wish)
{
    RepoShell *engine = widget->repoShell();
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Upgrade;
    change.request.upgrades = packages;
    change.request.options = m_bench.settings.addOptions(engine->repoInfo().componentList());
    change.start
        = [engine, request = change.request] { engine->upgradeRepo(request.upgrades, request.options); };
    change.givenUp = [engine] { engine->removeCustomSourcesListFile(RepoEnums::UPGRADE_JOB); };
    m_bench.previews.run(widget, change, wish);
}
