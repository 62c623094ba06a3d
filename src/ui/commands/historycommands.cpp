// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/historycommands.h"

#include "core/countof.h"
#include "core/runinbackground.h"
#include "engine/history/historydifference.h"
#include "engine/reposhell.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/settingscommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/history/historysettingsdialog.h"
#include "ui/history/historytext.h"
#include "ui/history/historyview.h"
#include "ui/history/statedifferencedialog.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/mnemonics.h"
#include "ui/widgets/tooltiptext.h"

#include "ui_mainwindow.h"

#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace
{
const QString columnsKey = QStringLiteral("MainWindow/historyColumns");

/** The newest point of which a state was kept; null when there is none. */
const RestorePoint *newestKept(const RepositoryHistory &history)
{
    const auto point = std::find_if(
        history.points.cbegin(), history.points.cend(), [](const RestorePoint &each) { return each.isKept; });
    return point == history.points.cend() ? nullptr : &*point;
}

void setObstacle(QAction *action, const QString &obstacle)
{
    action->setEnabled(obstacle.isEmpty());
    action->setToolTip(obstacle.isEmpty() ? action->iconText() : toolTipText(obstacle));
}
} // namespace

HistoryCommands::HistoryCommands(const Ui::MainWindow &ui, const Workbench &bench, QMainWindow *window)
    : QObject(window)
    , m_bench(bench)
    , m_undo(action("m_undoChangeAction", tr("Undo last change"), "edit-undo", QStringLiteral("Ctrl+Z")))
    , m_goBack(
          action("m_goBackAction", tr("Go back to this point"), "document-revert", QStringLiteral("Ctrl+B")))
    , m_bringBack(action(
          "m_bringBackAction", tr("Bring back this package"), "edit-redo", QStringLiteral("Ctrl+Shift+B")))
    , m_compare(action(
          "m_showDifferenceAction", tr("Show difference"), "edit-find", QStringLiteral("Ctrl+Shift+D")))
    , m_settings(
          action("m_historySettingsAction", tr("History settings..."), "document-properties", QString()))
    , m_dock(new QDockWidget(tr("History"), window))
    , m_view(new HistoryView({m_undo, m_goBack, m_bringBack, m_compare}, m_dock))
    , m_limits(HistoryLimits::load(QSettings()))
{
    m_dock->setObjectName(QStringLiteral("historyDockWidget"));
    m_dock->setWidget(m_view);
    window->addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_dock->hide();
    buildMenus(ui);

    connect(m_undo, &QAction::triggered, this, &HistoryCommands::undo);
    connect(m_goBack, &QAction::triggered, this, &HistoryCommands::goBack);
    connect(m_bringBack, &QAction::triggered, this, &HistoryCommands::bringBack);
    connect(m_compare, &QAction::triggered, this, &HistoryCommands::compare);
    connect(m_settings, &QAction::triggered, this, &HistoryCommands::showSettings);
    connect(m_view, &HistoryView::selectionChanged, this, &HistoryCommands::updateActions);
    connect(m_dock, &QDockWidget::visibilityChanged, this, &HistoryCommands::show);
    connect(m_dock->toggleViewAction(), &QAction::triggered, this, [this](bool isShown) {
        if (isShown)
            m_view->setFocus();
    });
    connect(&m_bench.tabs, &RepoTabs::created, this, &HistoryCommands::addTab);
    connect(&m_bench.tabs, &RepoTabs::currentChanged, this, [this] {
        // What is selected belongs to one repository.
        if (!m_stopped)
            m_view->clear({});
        show();
    });
    connect(&m_bench.tabs, &RepoTabs::leaving, this, [this](const RepoWidget *widget) {
        m_watched.remove(widget);
        m_read.remove(widget);
        if (m_undoWaits == widget)
            m_undoWaits = nullptr;
    });
}

// --- building ------------------------------------------------------------------------------------------------------

QAction *HistoryCommands::action(const char *name, const QString &text, const char *icon, const QString &key)
{
    // The window is the parent, so that a test can see that no other command has the key.
    auto *action = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, parent());
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(key));
    return action;
}

void HistoryCommands::buildMenus(const Ui::MainWindow &ui)
{
    QAction *toggle = m_dock->toggleViewAction();
    toggle->setObjectName(QStringLiteral("m_showHistoryAction"));
    toggle->setText(tr("Show history"));
    toggle->setShortcut(QKeySequence(QStringLiteral("Ctrl+H")));
    ui.m_menuView->insertAction(ui.m_hideStatusLineAction, toggle);
    auto *menu = new QMenu(tr("History"), ui.m_editMenu);
    menu->setObjectName(QStringLiteral("m_historyMenu"));
    menu->setToolTipsVisible(true);
    menu->addActions({m_undo, m_goBack, m_bringBack, m_compare});
    ui.m_editMenu->addSeparator();
    ui.m_editMenu->addMenu(menu);
    ui.menuSettings->addAction(m_settings);
}

void HistoryCommands::addTab(const RepoWidget *widget)
{
    RepoShell *shell = widget->repoShell();
    shell->setHistoryLimits(m_limits);
    connect(shell, &RepoShell::historyChanged, this, [this, widget] {
        m_read.insert(widget);
        if (m_bench.tabs.current() != widget)
            return;
        show();
        if (std::exchange(m_undoWaits, nullptr) == widget)
            undo();
    });
}

// --- showing -------------------------------------------------------------------------------------------------------

void HistoryCommands::watch(const RepoWidget *widget)
{
    if (widget == nullptr || m_watched.contains(widget))
        return;
    m_watched.insert(widget);
    widget->repoShell()->watchHistory();
}

std::optional<RepositoryHistory> HistoryCommands::current() const
{
    const RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr || !m_read.contains(widget))
        return std::nullopt;
    return widget->repoShell()->history();
}

void HistoryCommands::show()
{
    if (m_stopped)
        return;
    // A history that nobody looks at is not read.
    if (!m_dock->isHidden()) {
        watch(m_bench.tabs.current());
        const auto history = current();
        if (history) {
            const QString note = !history->unavailable.isEmpty() ? history->unavailable
                                 : m_limits.isOn
                                     ? QString()
                                     : tr("The history is switched off: no more states are kept.");
            m_view->setHistory(*history, note);
        } else {
            m_view->clear(m_bench.tabs.current() == nullptr ? tr("No repository is open.")
                                                            : tr("The history is being read..."));
        }
    }
    updateActions();
}

void HistoryCommands::updateActions()
{
    if (m_stopped)
        return;
    setObstacle(m_undo, obstacleToUndo());
    setObstacle(m_goBack, obstacleToGoBack());
    setObstacle(m_bringBack, obstacleToBringBack());
    setObstacle(m_compare, obstacleToCompare());
}

void HistoryCommands::loadColumns(const QSettings &settings)
{
    m_view->setColumns(settings.value(columnsKey).toByteArray());
}

void HistoryCommands::saveColumns(QSettings &settings) const
{
    settings.setValue(columnsKey, m_view->columns());
}

void HistoryCommands::stop()
{
    m_stopped = true;
    m_dock->disconnect(this);
    m_view->disconnect(this);
    m_dock->setEnabled(false);
}

// --- what is possible ----------------------------------------------------------------------------------------------

QString HistoryCommands::obstacle() const
{
    const RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr)
        return tr("No repository is open.");
    if (m_bench.tabs.isRunning(widget))
        return tr("Wait until the running job has ended.");
    if (!m_bench.tabs.isChangeable(widget))
        return tr("You may not write to this repository.");
    return {};
}

QString HistoryCommands::obstacleToUndo() const
{
    QString general = obstacle();
    const auto history = current();
    // Of a hidden dock, the history is read first.
    if (!general.isEmpty() || !history || newestKept(*history) != nullptr)
        return general;
    if (!history->unavailable.isEmpty())
        return history->unavailable;
    return history->points.isEmpty() ? tr("There is no change to undo.")
                                     : tr("No state was kept to go back to.");
}

QString HistoryCommands::obstacleToGoBack() const
{
    const QString general = obstacle();
    const auto history = current();
    if (!general.isEmpty() || !history)
        return general.isEmpty() ? tr("Show the history to choose a point.") : general;
    const QVector<int> points = m_view->selection().points;
    if (m_dock->isHidden() || points.size() != 1)
        return tr("Select one point.");
    const RestorePoint point = history->pointOf(points.first());
    return point.isKept ? QString() : tr("The state before this point: %1").arg(HistoryText::state(point));
}

QString HistoryCommands::obstacleToBringBack() const
{
    const QString general = obstacle();
    const auto history = current();
    if (!general.isEmpty() || !history)
        return general.isEmpty() ? tr("Show the history to choose a package.") : general;
    const HistoryView::Selection selection = m_view->selection();
    if (m_dock->isHidden() || !selection.change)
        return tr("Select one package below a point.");
    if (selection.change->before.isNone())
        return tr("The package has no old version here.");
    const RestorePoint point = history->pointOf(selection.points.first());
    return point.isKept ? QString() : tr("The state before this point: %1").arg(HistoryText::state(point));
}

QString HistoryCommands::obstacleToCompare() const
{
    const QVector<int> points = m_view->selection().points;
    const bool canCompare = current() && !m_dock->isHidden() && !points.isEmpty() && points.size() <= 2;
    return canCompare ? QString() : tr("Select one point or two.");
}

// --- commands ------------------------------------------------------------------------------------------------------

void HistoryCommands::undo()
{
    const RepoWidget *widget = m_bench.tabs.current();
    if (!obstacleToUndo().isEmpty())
        return;
    const auto history = current();
    if (!history) {
        m_undoWaits = widget;
        m_dock->show();
        watch(widget);
    } else if (const RestorePoint *point = newestKept(*history)) {
        planReturn(point->number, true);
    }
}

void HistoryCommands::goBack()
{
    if (obstacleToGoBack().isEmpty())
        planReturn(m_view->selection().points.first(), false);
}

void HistoryCommands::planReturn(int number, bool isUndo)
{
    const auto history = current();
    if (!history)
        return;
    const auto find = [points = history->points, number] {
        return HistoryDifference::between(points, HistoryDifference::Now, number);
    };
    const QPointer<RepoWidget> widget = m_bench.tabs.current();
    const auto ask = [=](const std::optional<QVector<PackageChange>> &changes) {
        const RestorePoint point = history->pointOf(number);
        const auto isUndone = [number](const RestorePoint &each) { return each.number >= number; };
        const int undone = int(std::count_if(history->points.cbegin(), history->points.cend(), isUndone));
        const bool isDescribed
            = std::any_of(history->points.cbegin(), history->points.cend(), [&](const RestorePoint &each) {
                  return isUndone(each) && each.changesDescription;
              });
        QStringList about;
        if (undone > 1 && isUndo)
            about << tr("No state was kept between this change and now, so %n change(s) will be undone.",
                        nullptr,
                        undone);
        else if (undone > 1)
            about << tr("%n change(s) will be undone: this one and all later ones.", nullptr, undone);
        if (changes)
            about << tr("What will change: %1.").arg(HistoryText::counts(HistoryText::Counts::of(*changes)))
                  << HistoryText::firstRows(*changes);
        else
            about << tr("What will change is not known, because a record is missing or damaged.");
        if (isDescribed)
            about << tr("The description of the repository becomes the old one.");
        about.removeAll(QString());
        PreviewRequest request;
        request.kind = ChangePreview::Return;
        request.point = number;
        const QString named = tr("%1 (%2)").arg(HistoryText::title(point), HistoryText::time(point));
        confirm(widget,
                {isUndo ? m_undo->iconText() : m_goBack->iconText(),
                 isUndo ? tr("Do you want to undo this change?\n%1").arg(named)
                        : tr("Do you want to go back to the state before this change?\n%1").arg(named),
                 about.join(QLatin1Char('\n')),
                 [number](RepoShell &shell) { shell.goBack(number); },
                 request});
    };
    runInBackground(this, find, ask);
}

void HistoryCommands::bringBack()
{
    if (!obstacleToBringBack().isEmpty())
        return;
    const HistoryView::Selection selection = m_view->selection();
    const PackageChange change = *selection.change;
    PreviewRequest request;
    request.point = selection.points.first();
    request.back = {change};
    request.options.component = change.component;
    request.collisions.value = PackageReplacementRules::ReplaceAll;
    confirm(m_bench.tabs.current(),
            {m_bringBack->iconText(),
             tr("Do you want to bring back %1 %2 (%3)?")
                 .arg(change.name, change.before.version, change.architecture),
             tr("The file is added to component %1. A present version of the package is replaced.")
                 .arg(change.component),
             [point = request.point, change](RepoShell &shell) { shell.bringBack(point, change); },
             request});
}

void HistoryCommands::confirm(const QPointer<RepoWidget> &widget, const Plan &plan)
{
    // The tab may be gone or at work again since the command.
    if (m_stopped || m_bench.prompts.isOpen() || !m_bench.tabs.isChangeable(widget))
        return;
    PreviewCommands::Change change;
    change.request = plan.request;
    change.start = [widget, plan] {
        if (!widget.isNull())
            plan.start(*widget->repoShell());
    };
    const auto showPreview = [this, widget, shown = change] {
        if (!m_stopped && m_bench.tabs.isChangeable(widget))
            m_bench.previews.run(widget, shown, PreviewCommands::Wish::Now);
    };
    change.ask = [this, plan, showPreview] {
        const Consent consent = ask(plan);
        // The flow without a preview ends first.
        if (consent == Consent::Preview)
            QMetaObject::invokeMethod(this, showPreview, Qt::QueuedConnection);
        return consent == Consent::Yes;
    };
    m_bench.previews.run(widget, change);
}

HistoryCommands::Consent HistoryCommands::ask(const Plan &plan)
{
    QMessageBox box(QMessageBox::Question,
                    plan.title,
                    plan.question,
                    QMessageBox::Yes | QMessageBox::No,
                    m_bench.prompts.window());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(plan.about);
    // The text format of the box does not apply to the informative text, which holds names of packages.
    if (auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    QPushButton *preview = box.addButton(tr("Preview..."), QMessageBox::ActionRole);
    preview->setObjectName(QStringLiteral("m_previewButton"));
    Mnemonics::markForm(&box);
    const int reply = m_bench.prompts.run(box);
    if (m_bench.prompts.isDismissed())
        return Consent::No;
    if (box.clickedButton() == preview)
        return Consent::Preview;
    return reply == QMessageBox::Yes ? Consent::Yes : Consent::No;
}

void HistoryCommands::compare()
{
    const auto history = current();
    if (!obstacleToCompare().isEmpty() || !history)
        return;
    const QVector<int> points = m_view->selection().points;
    StateDifferenceDialog dialog(history->points,
                                 points.last(),
                                 points.size() > 1 ? points.first() : HistoryDifference::Now,
                                 m_bench.prompts.window());
    m_bench.prompts.run(dialog);
}

// --- settings ------------------------------------------------------------------------------------------------------

void HistoryCommands::showSettings()
{
    HistorySettingsDialog dialog(m_limits, m_bench.prompts.window());
    watch(m_bench.tabs.current());
    const auto update = [this, &dialog] {
        dialog.setHistory(current());
        dialog.setObstacle(obstacle());
    };
    update();
    if (const RepoWidget *widget = m_bench.tabs.current())
        connect(widget->repoShell(), &RepoShell::historyChanged, &dialog, update);
    connect(&m_bench.tabs, &RepoTabs::runningChanged, &dialog, update);
    connect(&dialog,
            &HistorySettingsDialog::pruneRequested,
            this,
            [this, &dialog](const RepositoryHistory::Pruning &pruning) { prune(dialog, pruning); });
    if (m_bench.prompts.run(dialog) == QDialog::Accepted)
        setLimits(dialog.limits());
}

void HistoryCommands::setLimits(const HistoryLimits &limits)
{
    m_limits = limits;
    QSettings settings;
    m_limits.save(settings);
    m_bench.settings.store(settings);
    const QList<RepoWidget *> widgets = m_bench.tabs.shown();
    for (const RepoWidget *widget : widgets)
        widget->repoShell()->setHistoryLimits(m_limits);
    show();
}

void HistoryCommands::prune(HistorySettingsDialog &dialog, const RepositoryHistory::Pruning &pruning)
{
    const QPointer<HistorySettingsDialog> asked = &dialog;
    const QPointer<RepoWidget> widget = m_bench.tabs.current();
    if (m_bench.prompts.askCarefully(
            dialog.windowTitle(),
            tr("Do you want to delete %n restore point(s) of this repository?",
               nullptr,
               countOf(pruning.points)),
            tr("The way back to the states before them is lost. These limits are stored too."),
            &dialog)
            != Prompts::Answer::Yes
        || asked.isNull() || !m_bench.tabs.isChangeable(widget))
        return;
    setLimits(dialog.limits());
    widget->repoShell()->pruneHistory();
}
