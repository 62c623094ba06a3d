// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/previewcommands.h"

#include "core/runinbackground.h"
#include "engine/preview/previewreport.h"
#include "engine/preview/previewrules.h"
#include "engine/reposhell.h"
#include "files/wholefile.h"
#include "ui/dialogs/prompts.h"
#include "ui/preview/differencedialog.h"
#include "ui/preview/previewchoices.h"
#include "ui/preview/previewdialog.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QActionGroup>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

#include <array>
#include <utility>

PreviewCommands::PreviewCommands(
    RepoTabs &tabs, Prompts &prompts, JobFeedback &feedback, SettingsCommands &settings, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_feedback(feedback)
    , m_settings(settings)
    , m_lastFolder(QDir::homePath())
{
    connect(&m_tabs, &RepoTabs::created, this, &PreviewCommands::attach);
    connect(&m_tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        m_plain.remove(widget);
        m_stopped.remove(widget);
        const bool isGoing = m_flows.contains(widget);
        const Flow flow = m_flows.take(widget);
        if (flow.dialog != nullptr)
            flow.dialog->reject();
        if (isGoing && flow.phase != Phase::Applying && flow.change.givenUp)
            flow.change.givenUp();
    });
    m_feedback.setPreviewOffer([this](RepoWidget *widget) { return m_plain.contains(widget); });
    connect(&m_feedback, &JobFeedback::previewWanted, this, [this](RepoWidget *widget) {
        m_stopped.insert(widget);
    });
    connect(&m_prompts, &Prompts::freed, this, &PreviewCommands::showNext);
}

void PreviewCommands::attach(RepoWidget *widget)
{
    const RepoShell *engine = widget->repoShell();
    connect(engine, &RepoShell::previewReady, widget, [this, widget](const ChangePreview &preview) {
        take(widget, preview);
    });
    connect(engine, &RepoShell::previewOutdated, widget, [this, widget] {
        if (m_flows.contains(widget))
            m_flows[widget].isOutdated = true;
    });
    connect(engine, &RepoShell::progressRangeChanged, widget, [this, widget](int range) {
        if (PreviewDialog *dialog = m_flows.value(widget).dialog)
            dialog->setSteps(range);
    });
    connect(engine, &RepoShell::progressStepChanged, widget, [this, widget](int step) {
        if (PreviewDialog *dialog = m_flows.value(widget).dialog)
            dialog->showProgress(step);
    });
    connect(engine, &RepoShell::idle, widget, [this, widget] { jobEnded(widget); });
}

void PreviewCommands::jobEnded(RepoWidget *widget)
{
    const Change plain = m_plain.take(widget);
    const bool isStopped = m_stopped.remove(widget);
    // Another receiver of the signal may have begun the next job.
    if (widget->repoShell()->isRunning())
        return;
    goOn(widget);
    if (isStopped && plain.start && m_tabs.isFree(widget))
        run(widget, plain, Wish::Now);
}

// --- the setting -------------------------------------------------------------------------------------------------

PreviewCommands::Wish PreviewCommands::wishOf(SettingsCommands::Confirmed confirmed)
{
    return confirmed == SettingsCommands::Confirmed::WithPreview ? Wish::Now : Wish::AsSet;
}

PreviewWhen PreviewCommands::when() const
{
    return PreviewRules::whenFrom(m_settings.choices().previewWhen);
}

void PreviewCommands::fillMenu(QMenu *menu)
{
    QMenu *choices = menu->addMenu(tr("Preview of changes"));
    choices->setObjectName(QStringLiteral("m_previewMenu"));
    auto *group = new QActionGroup(choices);
    const std::array<std::pair<PreviewWhen, QString>, 3> texts = {{
        {PreviewAlways, tr("Always")},
        {PreviewWhenBreaking, tr("When something would break")},
        {PreviewNever, tr("Never")},
    }};
    for (const auto &[when, text] : texts) {
        QAction *action = group->addAction(choices->addAction(text));
        action->setCheckable(true);
        action->setData(int(when));
        connect(
            action, &QAction::triggered, this, [this, chosen = when] { m_settings.setPreviewWhen(chosen); });
    }
    const auto show = [this, group] {
        const QList<QAction *> actions = group->actions();
        for (QAction *action : actions)
            action->setChecked(action->data().toInt() == when());
    };
    connect(choices, &QMenu::aboutToShow, this, show);
    connect(&m_settings, &SettingsCommands::changed, this, show);
    show();
}

// --- from the command to the job ---------------------------------------------------------------------------------

void PreviewCommands::run(RepoWidget *widget, const Change &change, Wish wish)
{
    // A dialog that stayed open after its questions asks again.
    const bool isRunning = isDecided(widget) && widget->repoShell()->isRunning();
    Flow &flow = m_flows[widget];
    flow = Flow();
    flow.change = change;
    flow.wish = wish;
    // No other command may begin between the preview and the job.
    m_tabs.setWaiting(widget, true);
    flow.change.request.others = m_tabs.checkScope(widget, {}).others;
    if (!flow.change.request.base && !widget->repoShell()->completeCheck().isValid())
        flow.change.request.base = m_settings.checkBase();
    if (isRunning) {
        flow.wantsAnew = true;
        widget->repoShell()->cancel();
        return;
    }
    if (wish == Wish::AsSet && !PreviewRules::isNeeded(when())) {
        decide(widget, false);
        return;
    }
    widget->repoShell()->preview(flow.change.request);
}

void PreviewCommands::fetch(RepoWidget *widget,
                            const QList<PackageInfo> &packages,
                            SettingsCommands::Confirmed confirmed,
                            const std::function<void()> &givenUp,
                            const std::function<void()> &begun)
{
    Change change;
    change.request.kind = ChangePreview::Fetch;
    change.request.wanted = packages;
    change.request.options = m_settings.addOptions(widget->repoShell()->repoInfo().componentList());
    change.start = [widget, request = change.request] {
        widget->repoShell()->downloadPackages(request.wanted, request.options);
    };
    change.givenUp = givenUp;
    change.begun = begun;
    run(widget, change, wishOf(confirmed));
}

void PreviewCommands::take(RepoWidget *widget, const ChangePreview &preview)
{
    const auto flow = m_flows.find(widget);
    // The effect of rows that were switched meanwhile is of no use.
    if (flow == m_flows.end() || flow->wantsAnew || (flow->hasRows && flow->wantsEffect))
        return;
    ChangePreview shown = preview;
    if (!flow->hasRows && flow->isOutdated && PreviewChoices::carryOver(flow->preview, &shown)) {
        // What the job goes on to find is the effect of its own choices.
        flow->wantsEffect = true;
        widget->repoShell()->cancel();
    }
    flow->hasRows = true;
    flow->preview = shown;
    if (flow->dialog != nullptr)
        flow->dialog->setPreview(shown);
    else if (flow->phase == Phase::Finding && (flow->wish == Wish::Now || when() == PreviewAlways))
        decide(widget, true);
}

bool PreviewCommands::isDecided(RepoWidget *widget) const
{
    const auto flow = m_flows.constFind(widget);
    return flow != m_flows.constEnd() && flow->phase == Phase::Decided;
}

void PreviewCommands::decide(RepoWidget *widget, bool isDue)
{
    Flow &flow = m_flows[widget];
    flow.isDue = isDue;
    if (flow.change.decided) {
        flow.phase = Phase::Decided;
        // Once: after a preview that did not hold any more, the command has no questions left.
        std::exchange(flow.change.decided, {})(isDue);
    } else {
        proceed(widget);
    }
}

void PreviewCommands::proceed(RepoWidget *widget)
{
    const auto flow = m_flows.find(widget);
    if (flow == m_flows.end())
        return;
    if (!flow->isDue) {
        startPlain(widget);
        return;
    }
    flow->phase = Phase::Waiting;
    QMetaObject::invokeMethod(this, &PreviewCommands::showNext, Qt::QueuedConnection);
}

void PreviewCommands::giveUp(RepoWidget *widget)
{
    const auto flow = m_flows.find(widget);
    if (flow == m_flows.end())
        return;
    flow->phase = Phase::Refused;
    if (widget->repoShell()->isRunning())
        widget->repoShell()->cancel();
    else
        goOn(widget);
}

void PreviewCommands::goOn(RepoWidget *widget)
{
    const auto flow = m_flows.find(widget);
    if (flow == m_flows.end())
        return;
    if (m_prompts.isDismissed() && flow->phase != Phase::Applying) {
        end(widget, true);
        return;
    }
    switch (flow->phase) {
    case Phase::Finding:
        if (flow->wantsAnew) {
            findAnew(widget);
        } else if (!flow->hasRows || !flow->preview.effect.isKnown) {
            // A stop of the preview stops the change, and so does an error.
            end(widget, true);
        } else {
            decide(widget, PreviewRules::isDue(when(), flow->preview));
        }
        break;
    case Phase::Decided:
    case Phase::Waiting:
        break;
    case Phase::Shown:
        if (flow->wantsAnew)
            findAnew(widget);
        else if (flow->wantsEffect)
            findEffect(widget);
        else if (flow->dialog != nullptr)
            flow->dialog->endProgress();
        break;
    case Phase::Accepted:
        apply(widget);
        break;
    case Phase::Refused:
        end(widget, true);
        break;
    case Phase::Applying:
        if (!flow->isOutdated) {
            end(widget, false);
            break;
        }
        flow->phase = Phase::Finding;
        flow->wish = Wish::Now;
        findAnew(widget);
        break;
    }
}

void PreviewCommands::startPlain(RepoWidget *widget)
{
    const QPointer<RepoWidget> guard(widget);
    const Change change = m_flows.value(widget).change;
    if (change.ask && !change.ask()) {
        if (!guard.isNull())
            end(widget, true);
        return;
    }
    if (guard.isNull())
        return;
    if (change.begun)
        change.begun();
    change.start();
    // What an upgrade fetches from is gone after it.
    if (change.request.kind == ChangePreview::Add || change.request.kind == ChangePreview::Fetch
        || change.request.kind == ChangePreview::Import)
        m_plain.insert(widget, change);
    end(widget, false);
}

void PreviewCommands::end(RepoWidget *widget, bool isGivenUp)
{
    const Change change = m_flows.take(widget).change;
    if (isGivenUp && change.givenUp)
        change.givenUp();
    m_tabs.setWaiting(widget, false);
}

// --- the window --------------------------------------------------------------------------------------------------

void PreviewCommands::showNext()
{
    if (m_prompts.isOpen())
        return;
    for (auto flow = m_flows.begin(); flow != m_flows.end(); ++flow) {
        if (flow->phase == Phase::Waiting) {
            show(flow.key());
            return;
        }
    }
}

void PreviewCommands::show(RepoWidget *widget)
{
    Flow &flow = m_flows[widget];
    const QPointer<RepoWidget> guard(widget);
    m_tabs.bringToFront(widget);
    PreviewDialog dialog(flow.preview, m_settings.aliases(), m_prompts.window());
    if (flow.isOutdated)
        dialog.tellRepositoryChanged();
    flow.isOutdated = false;
    flow.phase = Phase::Shown;
    flow.dialog = &dialog;
    connectDialog(&dialog, widget);
    if (flow.change.offersCarrying)
        dialog.offerCarrying(flow.change.request.carriesPackages);
    if (!flow.preview.lacking.isEmpty())
        dialog.offerExtending(flow.change.request.extends);
    if (!widget->repoShell()->isRunning()) {
        if (flow.wantsEffect)
            findEffect(widget);
        else if (!flow.preview.effect.isKnown)
            dialog.endProgress();
    }
    const bool isAccepted = m_prompts.run(dialog) == QDialog::Accepted;
    if (guard.isNull() || !m_flows.contains(widget))
        return;
    Flow &shown = m_flows[widget];
    shown.dialog.clear();
    shown.preview = dialog.preview();
    shown.wantsEffect = false;
    shown.wantsAnew = false;
    shown.phase = isAccepted ? Phase::Accepted : Phase::Refused;
    if (widget->repoShell()->isRunning())
        widget->repoShell()->cancel();
    else
        goOn(widget);
}

void PreviewCommands::connectDialog(PreviewDialog *dialog, RepoWidget *widget)
{
    connect(dialog, &PreviewDialog::effectWanted, widget, [this, dialog, widget] {
        m_flows[widget].preview = dialog->preview();
        if (widget->repoShell()->isRunning()) {
            m_flows[widget].wantsEffect = true;
            widget->repoShell()->cancel();
        } else {
            findEffect(widget);
        }
    });
    const auto choose = [this, widget](bool PreviewRequest::*choice, bool isWanted) {
        Flow &flow = m_flows[widget];
        flow.change.request.*choice = isWanted;
        flow.wantsAnew = true;
        if (widget->repoShell()->isRunning())
            widget->repoShell()->cancel();
        else
            findAnew(widget);
    };
    connect(dialog, &PreviewDialog::carryingChosen, widget, [choose](bool carries) {
        choose(&PreviewRequest::carriesPackages, carries);
    });
    connect(dialog, &PreviewDialog::extendingChosen, widget, [choose](bool extends) {
        choose(&PreviewRequest::extends, extends);
    });
    connect(dialog, &PreviewDialog::stopWanted, widget, [widget] { widget->repoShell()->cancel(); });
    connect(dialog, &PreviewDialog::reportWanted, this, [this, dialog] { saveReport(dialog->preview()); });
    connect(dialog, &PreviewDialog::differenceWanted, this, [this, dialog](const PreviewRow &row) {
        compare(dialog->preview(), row, dialog);
    });
}

void PreviewCommands::findAnew(RepoWidget *widget)
{
    Flow &flow = m_flows[widget];
    flow.wantsAnew = false;
    flow.wantsEffect = false;
    flow.hasRows = false;
    widget->repoShell()->preview(flow.change.request);
}

void PreviewCommands::findEffect(RepoWidget *widget)
{
    Flow &flow = m_flows[widget];
    flow.wantsEffect = false;
    widget->repoShell()->updatePreview(flow.preview);
}

void PreviewCommands::apply(RepoWidget *widget)
{
    Flow &flow = m_flows[widget];
    flow.phase = Phase::Applying;
    if (flow.change.begun)
        flow.change.begun();
    widget->repoShell()->apply(flow.preview);
}

void PreviewCommands::saveReport(const ChangePreview &preview)
{
    const QString name = QStringLiteral("%1_preview.txt").arg(QFileInfo(preview.repository).fileName());
    const QString textFilter = tr("Text (*.txt)");
    const QString jsonFilter = tr("JSON (*.json)");
    const Prompts::FileChoice choice
        = m_prompts.saveFile(tr("Save report"), m_lastFolder, name, {textFilter, jsonFilter});
    if (choice.path.isEmpty())
        return;
    const QString path = choice.path;
    const bool isJson = choice.filter == jsonFilter;
    const auto work = [preview, isJson, path] {
        return WholeFile::replace(path, isJson ? PreviewReport::json(preview) : PreviewReport::text(preview));
    };
    runInBackground(this, work, [this, path](const QString &failure) {
        if (!failure.isEmpty()) {
            m_feedback.error(tr("The report cannot be saved in %1.").arg(path), failure);
            return;
        }
        m_lastFolder = QFileInfo(path).absolutePath();
        m_feedback.announce(tr("The report is saved in %1.").arg(path));
    });
}

void PreviewCommands::compare(const ChangePreview &preview, const PreviewRow &row, PreviewDialog *parent)
{
    DifferenceDialog dialog(row, preview.repository, parent);
    m_prompts.run(dialog);
}
