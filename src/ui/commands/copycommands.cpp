// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/copycommands.h"

#include "engine/reposhell.h"
#include "ui/commands/repositorycommands.h"
#include "ui/dialogs/copydialog.h"
#include "ui/dialogs/prompts.h"
#include "ui/installability/removalimpactsearch.h"
#include "ui/installability/removalquestion.h"
#include "ui/packages/packagedetails.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QAction>
#include <QSettings>

#include <algorithm>

namespace
{
const QString lastTargetsKey = QStringLiteral("MainWindow/copyTargets");

QAction *makeAction(const char *name, const QString &text, const char *icon, const char *key, QObject *window)
{
    auto *action = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(QLatin1String(key)));
    return action;
}
} // namespace

CopyCommands::CopyCommands(const Workbench &bench, RepositoryCommands &repositories, QObject *window)
    : QObject(window)
    , m_bench(bench)
    , m_repositories(repositories)
    , m_copy(makeAction(
          "m_copyPackagesAction", tr("Copy to repository..."), "edit-copy", "Ctrl+Shift+C", window))
    , m_move(
          makeAction("m_movePackagesAction", tr("Move to repository..."), "edit-cut", "Ctrl+Shift+M", window))
{
    connect(m_copy, &QAction::triggered, this, [this] { choose(false); });
    connect(m_move, &QAction::triggered, this, [this] { choose(true); });
    connect(&m_bench.tabs, &RepoTabs::created, this, [this](RepoWidget *widget) {
        connect(widget,
                &RepoWidget::packagesDropped,
                this,
                [this, widget](RepoWidget *source, const QString &component, bool moves) {
                    takeDropped(source, widget, component, moves);
                });
    });
    connect(&m_bench.tabs, &RepoTabs::ready, this, &CopyCommands::goOn);
    connect(&m_bench.tabs, &RepoTabs::leaving, this, &CopyCommands::forget);
}

void CopyCommands::updateActions(bool hasPackages)
{
    const RepoWidget *widget = m_bench.tabs.current();
    m_copy->setEnabled(hasPackages && m_bench.tabs.isFree(widget));
    m_move->setEnabled(hasPackages && m_bench.tabs.isChangeable(widget));
}

QString CopyCommands::Wish::names() const
{
    constexpr int Most = 20;
    QStringList names;
    for (const PackageInfoPtr &package : packages.packages)
        names.append(displayFileName(*package));
    names.removeDuplicates();
    if (names.size() > Most)
        names = names.mid(0, Most) + QStringList{QString(QChar(0x2026))};
    return names.join(QLatin1String(", "));
}

void CopyCommands::tellNotCopied(const Wish &wish)
{
    m_bench.feedback.announce(tr("Not copied: %1").arg(wish.names()));
}

void CopyCommands::tellReadOnly(const RepoWidget *widget, const Wish &wish)
{
    m_bench.feedback.error(
        tr("You cannot change the repository %1: its files belong to another user, or its disk is read-only.")
            .arg(m_bench.tabs.pathOf(widget)));
    tellNotCopied(wish);
}

// --- what the user wants -----------------------------------------------------------------------------------------

void CopyCommands::choose(bool moves)
{
    RepoWidget *source = m_bench.tabs.current();
    if (!m_bench.tabs.isFree(source))
        return;
    Wish wish = wishFor(source, source->selectedPackages(), moves);
    if (wish.packages.packages.isEmpty())
        return;
    QVector<CopyDialog::Target> targets;
    QList<QPointer<RepoWidget>> tabs;
    const auto offer = [&](RepoWidget *tab) {
        tabs.append(tab);
        targets.append(
            {m_bench.tabs.pathOf(tab), tab->repoShell()->repoInfo().componentList(), tab == source});
    };
    const QList<RepoWidget *> shown = m_bench.tabs.shown();
    for (RepoWidget *tab : shown)
        if (tab != source && tab->isEnabled() && !tab->repoPath().isEmpty())
            offer(tab);
    if (source->repoShell()->repoInfo().componentList().size() > 1)
        offer(source);
    const QString last = lastTarget(wish.packages.path);
    const auto same = std::find_if(
        targets.cbegin(), targets.cend(), [&last](const auto &target) { return target.path == last; });
    CopyDialog dialog(moves ? CopyDialog::Kind::Move : CopyDialog::Kind::Copy,
                      PackageDetails::summary(wish.packages.packages, source->repoShell()->repoInfo()),
                      targets,
                      same == targets.cend() ? 0 : static_cast<int>(same - targets.cbegin()),
                      m_bench.prompts.window());
    if (m_bench.prompts.run(dialog) != QDialog::Accepted)
        return;
    RepoWidget *target
        = dialog.target() < 0 ? m_repositories.chooseAndOpen() : tabs.at(dialog.target()).data();
    if (target == nullptr || wish.source.isNull())
        return;
    wish.packages.withDepends = dialog.withDepends();
    if (dialog.wantsPreview())
        wish.preview = PreviewCommands::Wish::Now;
    aim(&wish, target, dialog.component(), moves);
    setLastTarget(wish.packages.path, m_bench.tabs.pathOf(target));
    begin(target, wish);
}

void CopyCommands::takeDropped(RepoWidget *source, RepoWidget *target, const QString &component, bool moves)
{
    if (source == nullptr || target == nullptr || !target->isEnabled())
        return;
    Wish wish = wishFor(source, source->selectedPackages(), moves);
    aim(&wish, target, component, moves);
    // The source of the drag waits until this function returns, and a dialog may follow.
    QMetaObject::invokeMethod(
        this,
        [this, guard = QPointer<RepoWidget>(target), wish] {
            if (!guard.isNull() && !wish.source.isNull())
                begin(guard, wish);
        },
        Qt::QueuedConnection);
}

CopyCommands::Wish
CopyCommands::wishFor(RepoWidget *source, const QList<PackageInfoPtr> &packages, bool moves)
{
    Wish wish;
    wish.source = source;
    wish.packages = {source->repoPath(), packages, source->repoShell()->packages()};
    wish.leaves = moves;
    return wish;
}

void CopyCommands::aim(Wish *wish, const RepoWidget *target, const QString &component, bool moves) const
{
    const bool isWithin = target == wish->source;
    wish->component = component;
    wish->leaves = moves && !isWithin;
    wish->packages.moves = moves && isWithin;
    auto &packages = wish->packages.packages;
    if (isWithin)
        packages.erase(std::remove_if(packages.begin(),
                                      packages.end(),
                                      [&component](const PackageInfoPtr &package) {
                                          return component.isEmpty() || package->indexComponent == component;
                                      }),
                       packages.end());
}

void CopyCommands::begin(RepoWidget *target, const Wish &wish)
{
    if (wish.packages.packages.isEmpty()) {
        m_bench.feedback.announce(tr("The packages are in this component already."));
        return;
    }
    if (!wish.leaves) {
        startOrKeep(target, wish);
        return;
    }
    if (!wish.source->repoShell()->isWritable()) {
        tellReadOnly(wish.source, wish);
        return;
    }
    // Without a complete check, the repository alone is looked at, which takes no time.
    const CompleteCheckRecord check = wish.source->repoShell()->completeCheck();
    const CompleteCheckBase base
        = check.isValid() ? check.base : CompleteCheckBase{CompleteCheckBase::Nothing, {}, {}};
    auto *search
        = new RemovalImpactSearch(m_bench.tabs.checkScope(wish.source, base), wish.packages.leaving(), this);
    m_bench.prompts.window()->setCursor(Qt::BusyCursor);
    connect(
        search, &RemovalImpactSearch::due, this, [this, guard = QPointer<RepoWidget>(target), wish, search] {
            m_bench.prompts.window()->unsetCursor();
            ask(guard, wish, search);
            search->deleteLater();
        });
}

void CopyCommands::ask(const QPointer<RepoWidget> &target, const Wish &wish, RemovalImpactSearch *search)
{
    if (target.isNull() || wish.source.isNull())
        return;
    if (search->losesSomething() || !search->isFinished()) {
        RemovalQuestion question(
            tr("Move confirmation"),
            tr("Do you want to move the selected packages to %1?").arg(m_bench.tabs.pathOf(target)),
            PackageDetails::summary(wish.packages.packages, wish.source->repoShell()->repoInfo()),
            *search,
            wish.packages.path,
            m_bench.prompts.window());
        question.withoutPreview();
        if (m_bench.prompts.run(question) != QMessageBox::Yes)
            return;
    }
    if (!target.isNull() && !wish.source.isNull() && !m_bench.prompts.isDismissed())
        startOrKeep(target, wish);
}

// --- in the target -------------------------------------------------------------------------------------------------

void CopyCommands::startOrKeep(RepoWidget *target, const Wish &wish)
{
    if (!m_bench.tabs.isRunning(target)) {
        start(target, wish);
        return;
    }
    m_waiting[target].append(wish);
    m_bench.feedback.appendLog(tr("Will be copied next: %1").arg(wish.names()));
}

void CopyCommands::start(RepoWidget *target, const Wish &wish)
{
    if (!target->repoShell()->isWritable()) {
        tellReadOnly(target, wish);
        return;
    }
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Add;
    change.request.copy = wish.packages;
    change.request.options.component = wish.component;
    change.start = [target, request = change.request] {
        target->repoShell()->copyPackages(*request.copy, request.options);
    };
    change.begun = [this, target, wish] {
        if (wish.leaves)
            m_moving.insert(target, wish);
    };
    change.givenUp = [this, target, wish] {
        m_moving.remove(target);
        tellNotCopied(wish);
    };
    m_bench.previews.run(target, change, wish.preview);
}

// --- in the source -------------------------------------------------------------------------------------------------

void CopyCommands::goOn(RepoWidget *widget)
{
    if (m_moving.contains(widget)) {
        const Wish wish = m_moving.take(widget);
        const Leaving leaving{wish.packages.leaving(), widget->repoPath()};
        if (!wish.source.isNull() && wish.source->repoPath() == wish.packages.path)
            leave(wish.source, leaving);
        else
            m_bench.feedback.announce(
                tr("The packages were copied, and stay in %1 too.").arg(wish.packages.path));
    }
    if (m_bench.tabs.isRunning(widget))
        return;
    if (!m_leaving.value(widget).isEmpty()) {
        leave(widget, m_leaving[widget].takeFirst());
        return;
    }
    if (!m_waiting.value(widget).isEmpty())
        startOrKeep(widget, m_waiting[widget].takeFirst());
}

void CopyCommands::leave(RepoWidget *source, const Leaving &leaving)
{
    if (m_bench.tabs.isRunning(source))
        m_leaving[source].append(leaving);
    else
        source->repoShell()->removeMoved(leaving.packages, leaving.target);
}

void CopyCommands::forget(RepoWidget *widget)
{
    m_moving.remove(widget);
    m_leaving.remove(widget);
    const QList<Wish> waiting = m_waiting.take(widget);
    for (const Wish &wish : waiting)
        m_bench.feedback.appendLog(tr("Not copied: %1").arg(wish.names()));
}

// --- settings ------------------------------------------------------------------------------------------------------

QString CopyCommands::lastTarget(const QString &source)
{
    return QSettings().value(lastTargetsKey).toMap().value(source).toString();
}

void CopyCommands::setLastTarget(const QString &source, const QString &target)
{
    constexpr int Most = 100;
    QSettings settings;
    QVariantMap targets = settings.value(lastTargetsKey).toMap();
    if (targets.size() >= Most)
        targets.clear();
    targets.insert(source, target);
    settings.setValue(lastTargetsKey, targets);
}
