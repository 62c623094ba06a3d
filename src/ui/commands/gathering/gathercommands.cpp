// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/gathering/gathercommands.h"

#include "engine/gathering/gathertext.h"
#include "engine/reposhell.h"
#include "ui/commands/gathering/gatherdialog.h"
#include "ui/commands/settingscommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QAction>
#include <QIcon>
#include <QPointer>

#include <algorithm>
#include <memory>

GatherCommands::GatherCommands(const Workbench &bench, QObject *window)
    : QObject(window)
    , m_action(new QAction(
          QIcon::fromTheme(QStringLiteral("document-save")), tr("Fetch missing packages..."), window))
    , m_bench(bench)
{
    m_action->setObjectName(QStringLiteral("m_fetchMissingAction"));
    m_action->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+F")));
    connect(m_action, &QAction::triggered, this, &GatherCommands::search);
    connect(&m_bench.tabs, &RepoTabs::created, this, &GatherCommands::attach);
    connect(&m_bench.tabs, &RepoTabs::leaving, this, &GatherCommands::forget);
    // Queued, because a dialog follows: other receivers of these signals must come first.
    connect(&m_bench.tabs, &RepoTabs::ready, this, &GatherCommands::serveFound, Qt::QueuedConnection);
    connect(&m_bench.prompts, &Prompts::freed, this, &GatherCommands::serveFound, Qt::QueuedConnection);
}

void GatherCommands::attach(RepoWidget *widget)
{
    // At this moment the job has not ended yet.
    connect(widget->repoShell(), &RepoShell::gatherPlanReady, this, [this, widget](const GatherPlan &plan) {
        forget(widget);
        m_found.append({widget, plan});
    });
}

void GatherCommands::updateActions()
{
    const RepoWidget *widget = m_bench.tabs.current();
    m_action->setEnabled(m_bench.tabs.isChangeable(widget) && widget->repoShell()->packageCount() > 0);
}

void GatherCommands::search()
{
    const QPointer<RepoWidget> target = m_bench.tabs.current();
    // The search takes a while and is useless without a key.
    if (!m_bench.tabs.isFree(target) || !m_bench.settings.hasKeyToAdd())
        return;
    if (target.isNull() || !m_bench.tabs.isFree(target))
        return;
    const QList<PackageInfoPtr> selected = target->selectedPackages();
    RepoShell *engine = target->repoShell();
    engine->findMissing(selected.isEmpty() ? engine->packages() : selected,
                        m_bench.settings.addOptions(engine->repoInfo().componentList()).component);
}

void GatherCommands::forget(const RepoWidget *widget)
{
    m_found.erase(std::remove_if(m_found.begin(),
                                 m_found.end(),
                                 [widget](const Found &found) { return found.widget == widget; }),
                  m_found.end());
}

void GatherCommands::serveFound()
{
    if (m_bench.prompts.isOpen())
        return;
    const auto next = std::find_if(m_found.cbegin(), m_found.cend(), [this](const Found &found) {
        return m_bench.tabs.isFree(found.widget);
    });
    if (next == m_found.cend())
        return;
    // After the dialog, Prompts::freed() calls this function for the other tabs.
    const Found found = m_found.takeAt(static_cast<int>(next - m_found.cbegin()));
    choose(found.widget, found.plan);
}

void GatherCommands::choose(RepoWidget *widget, const GatherPlan &plan)
{
    const QPointer<RepoWidget> target(widget);
    m_bench.tabs.bringToFront(widget);
    if (plan.rows.isEmpty()) {
        tellNothing(plan);
        return;
    }
    GatherDialog dialog(plan, m_bench.settings.aliases(), m_bench.prompts.window());
    if (m_bench.prompts.run(dialog) == QDialog::Accepted && !target.isNull() && m_bench.tabs.isFree(target))
        fetch(target, dialog.plan(), dialog.wantsPreview());
}

void GatherCommands::tellNothing(const GatherPlan &plan)
{
    const auto left = plan.left();
    if (left.isEmpty())
        m_bench.prompts.inform(tr("Fetch missing packages"), tr("Nothing is missing."));
    else
        m_bench.prompts.showError(tr("Nothing can be fetched. %1").arg(GatherText::summary(left)),
                                  GatherText::lines(left).join(QLatin1Char('\n')),
                                  RepoEnums::WARNING);
}

void GatherCommands::fetch(RepoWidget *widget, const GatherPlan &plan, bool wantsPreview)
{
    const QPointer<RepoWidget> target(widget);
    const QStringList components = widget->repoShell()->repoInfo().componentList();
    const SettingsCommands::Confirmed confirmed = m_bench.settings.confirmAddSettings(components);
    if (confirmed == SettingsCommands::Confirmed::No || target.isNull() || !m_bench.tabs.isFree(target))
        return;
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Fetch;
    change.request.wanted = plan.packages();
    change.request.gathered = std::make_shared<const GatherPlan>(plan);
    change.request.options = m_bench.settings.addOptions(components);
    change.start = [widget, request = change.request] {
        widget->repoShell()->gather(*request.gathered, request.options);
    };
    m_bench.previews.run(
        widget, change, wantsPreview ? PreviewCommands::Wish::Now : PreviewCommands::wishOf(confirmed));
}
