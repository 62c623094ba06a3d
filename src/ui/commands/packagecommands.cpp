// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/packagecommands.h"

#include "core/countof.h"
#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "ui/commands/repositorycommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/startselectactiondialog.h"
#include "ui/installability/removalimpactsearch.h"
#include "ui/installability/removalquestion.h"
#include "ui/packages/packagedetails.h"
#include "ui/packages/packagedrop.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSettings>

#include <algorithm>

namespace
{
const QString lastFolderKey = QStringLiteral("MainWindow/packagesFolder");
} // namespace

PackageCommands::PackageCommands(const Workbench &bench, RepositoryCommands &repositories, QObject *parent)
    : QObject(parent)
    , m_bench(bench)
    , m_repositories(repositories)
    , m_lastFolder(QSettings().value(lastFolderKey, QDir::homePath()).toString())
{
    connect(&m_bench.tabs, &RepoTabs::created, this, [this](RepoWidget *widget) {
        // A drop on a tab means this repository. Queued: the source of the drag waits until the drop returns.
        connect(
            widget,
            &RepoWidget::filesDropped,
            this,
            [this, tab = QPointer<RepoWidget>(widget)](const QStringList &files) {
                takeDropped(files, [this, tab](const QStringList &packages) {
                    if (tab.isNull())
                        tellNotAdded(packages);
                    else
                        addPackages(tab, packages);
                });
            },
            Qt::QueuedConnection);
    });
    connect(&m_bench.tabs, &RepoTabs::ready, this, [this](RepoWidget *widget) {
        const QStringList files = m_waiting.take(widget);
        if (!files.isEmpty())
            addPackages(widget, files);
    });
    connect(&m_bench.tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        const QStringList files = m_waiting.take(widget);
        if (!files.isEmpty())
            m_bench.feedback.appendLog(tr("Not added: %1").arg(files.join(QLatin1String(", "))));
    });
}

void PackageCommands::tellNotAdded(const QStringList &files)
{
    m_bench.feedback.announce(tr("Not added: %1").arg(files.join(QLatin1String(", "))));
}

void PackageCommands::warnNoRepository()
{
    m_bench.prompts.warn(tr("No repository"), tr("There are no repositories to add a package to"));
}

RepoWidget *PackageCommands::chooseTarget()
{
    QList<RepoWidget *> tabs;
    QStringList paths;
    const QList<RepoWidget *> shown = m_bench.tabs.shown();
    for (RepoWidget *widget : shown) {
        // A disabled tab is about to close.
        if (!widget->isEnabled())
            continue;
        tabs << widget;
        paths << m_bench.tabs.pathOf(widget);
    }
    if (tabs.isEmpty()) {
        warnNoRepository();
        return nullptr;
    }
    if (tabs.size() == 1)
        return tabs.first();
    const int index = m_bench.prompts.choose(tr("Choose repository"),
                                             tr("Select the repository to add the package(s) to:"),
                                             paths,
                                             static_cast<int>(tabs.indexOf(m_bench.tabs.current())));
    // The tab may have been closed while the user was choosing.
    RepoWidget *target
        = index < 0 || !m_bench.tabs.shown().contains(tabs.at(index)) ? nullptr : tabs.at(index);
    if (target != nullptr)
        m_bench.tabs.bringToFront(target);
    return target;
}

void PackageCommands::chooseAndAdd()
{
    RepoWidget *widget = chooseTarget();
    if (widget == nullptr)
        return;
    const QPointer<RepoWidget> guard(widget);
    const QString name = tr("(%1)").arg(widget->repoShell()->repoInfo().name);
    const QStringList files = m_bench.prompts.openFiles(
        tr("Adding Packages%1").arg(name), m_lastFolder, tr("Packages (*.deb *.udeb)"));
    if (files.isEmpty())
        return;
    m_lastFolder = QFileInfo(files.first()).absolutePath();
    QSettings().setValue(lastFolderKey, m_lastFolder);
    if (!guard.isNull())
        addPackages(widget, files);
}

void PackageCommands::addToChosen(const QStringList &files)
{
    const QStringList packages = packagesAmong(files);
    RepoWidget *target = packages.isEmpty() ? nullptr : chooseTarget();
    if (target != nullptr)
        addPackages(target, packages);
}

void PackageCommands::addAtStart(const QStringList &files)
{
    if (!m_bench.tabs.shown().isEmpty()) {
        addToChosen(files);
        return;
    }
    const QStringList packages = packagesAmong(files);
    if (packages.isEmpty())
        return;
    StartSelectActionDialog dialog(m_bench.prompts.window());
    m_bench.prompts.run(dialog);
    const auto add = [this, packages](RepoWidget *target) { addPackages(target, packages); };
    bool isChosen = false;
    if (dialog.action() == StartSelectActionDialog::Action::CreateRepo) {
        isChosen = m_repositories.createRepo({add,
                                              [this](RepoWidget *failed) { m_waiting.remove(failed); },
                                              [this, packages] { tellNotAdded(packages); }});
    } else if (dialog.action() == StartSelectActionDialog::Action::OpenRepo) {
        RepoWidget *target = m_repositories.chooseAndOpen();
        isChosen = target != nullptr;
        if (isChosen)
            add(target);
    }
    if (!isChosen)
        tellNotAdded(packages);
}

void PackageCommands::addPackages(RepoWidget *widget, const QStringList &files)
{
    const QStringList packages = packagesAmong(files);
    if (packages.isEmpty())
        return;
    if (m_bench.tabs.isRunning(widget))
        keep(widget, packages);
    else
        startAdding(widget, packages);
}

void PackageCommands::keep(RepoWidget *widget, const QStringList &files)
{
    m_waiting[widget] << files;
    m_bench.feedback.appendLog(tr("Will be added next: %1").arg(files.join(QLatin1String(", "))));
}

void PackageCommands::takeDropped(const QStringList &paths,
                                  const std::function<void(const QStringList &files)> &add)
{
    if (std::all_of(paths.cbegin(), paths.cend(), &PackageDrop::isPackageName)) {
        add(paths);
        return;
    }
    const auto find = [paths] { return PackageDrop::packagesAt(paths); };
    runInBackground(this, find, [this, add](const PackageDrop::Packages &packages) {
        constexpr int Many = 20;
        const QString folders = packages.folders.join(QLatin1String(", "));
        if (packages.files.isEmpty())
            m_bench.feedback.announce(tr("There are no packages in what was dropped."));
        else if (packages.inFolders <= Many
                 || m_bench.prompts.ask(
                        tr("Adding packages"),
                        tr("Do you want to add %n package(s)?", nullptr, countOf(packages.files)),
                        tr("%n of them from %1", nullptr, packages.inFolders).arg(folders))
                        == Prompts::Answer::Yes)
            add(packages.files);
    });
}

QStringList PackageCommands::packagesAmong(const QStringList &files)
{
    QStringList packages;
    QStringList others;
    for (const QString &file : files)
        (PackageDrop::isPackageName(file) ? packages : others) << file;
    if (!others.isEmpty())
        m_bench.feedback.error(
            tr("Only packages can be added: files whose name ends in .deb or .udeb, in small letters."),
            others.join(QLatin1Char('\n')),
            RepoEnums::WARNING);
    return packages;
}

void PackageCommands::startAdding(RepoWidget *widget, const QStringList &files)
{
    if (!widget->repoShell()->isWritable()) {
        m_bench.feedback.error(
            tr("You cannot change the repository %1: its files belong to another user, or its disk is "
               "read-only.")
                .arg(m_bench.tabs.pathOf(widget)));
        tellNotAdded(files);
        return;
    }
    const QPointer<RepoWidget> guard(widget);
    const QStringList components = widget->repoShell()->repoInfo().componentList();
    const SettingsCommands::Confirmed confirmed = m_bench.settings.confirmAddSettings(components);
    if (confirmed == SettingsCommands::Confirmed::No || guard.isNull()) {
        tellNotAdded(files);
        return;
    }
    // Another command may have started a job while the dialog was open.
    if (m_bench.tabs.isRunning(widget)) {
        keep(widget, files);
        return;
    }
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Add;
    change.request.files = files;
    change.request.options = m_bench.settings.addOptions(components);
    change.start = [widget, request = change.request] {
        widget->repoShell()->addPackages(request.files, request.options);
    };
    change.givenUp = [this, files] { tellNotAdded(files); };
    m_bench.previews.run(widget, change, PreviewCommands::wishOf(confirmed));
}

void PackageCommands::removePackages()
{
    RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr || m_bench.tabs.isRunning(widget))
        return;
    removePackages(widget, widget->selectedPackages());
}

void PackageCommands::removePackages(RepoWidget *widget,
                                     const QList<PackageInfoPtr> &packages,
                                     const std::function<void()> &agreed)
{
    if (packages.isEmpty() || !m_impact.isNull() || m_bench.tabs.isRunning(widget))
        return;
    // Without a complete check, the repository alone is looked at, which takes no time.
    const CompleteCheckRecord check = widget->repoShell()->completeCheck();
    const CompleteCheckBase base
        = check.isValid() ? check.base : CompleteCheckBase{CompleteCheckBase::Nothing, {}, {}};
    PreviewCommands::Change change;
    change.request.kind = ChangePreview::Remove;
    change.request.packages = packages;
    change.request.base = base;
    change.start = [widget, packages] { widget->repoShell()->removePackages(packages); };
    change.begun = agreed;
    if (m_bench.previews.when() == PreviewAlways) {
        m_bench.previews.run(widget, change, PreviewCommands::Wish::Now);
        return;
    }
    const CheckScope scope = m_bench.tabs.checkScope(widget, base);
    m_impact = new RemovalImpactSearch(scope, packages, this);
    m_bench.prompts.window()->setCursor(Qt::BusyCursor);
    const auto ask = [this, guard = QPointer<RepoWidget>(widget), change] {
        m_bench.prompts.window()->unsetCursor();
        if (!guard.isNull() && !m_bench.tabs.isRunning(guard))
            removeOnceAgreed(guard, change);
        m_impact->deleteLater();
        m_impact.clear();
    };
    connect(m_impact, &RemovalImpactSearch::due, this, ask);
}

void PackageCommands::removeOnceAgreed(const QPointer<RepoWidget> &widget,
                                       const PreviewCommands::Change &change)
{
    // The search has found what the preview would show, so the question need not come first.
    if (m_bench.previews.when() == PreviewWhenBreaking && m_impact->losesSomething()) {
        m_bench.previews.run(widget, change, PreviewCommands::Wish::Now);
        return;
    }
    RemovalQuestion question(
        tr("Remove confirmation"),
        tr("Do you want to remove selected packages?"),
        PackageDetails::summary(change.request.packages, widget->repoShell()->repoInfo()),
        *m_impact,
        widget->repoPath(),
        m_bench.prompts.window());
    const bool agrees = m_bench.prompts.run(question) == QMessageBox::Yes;
    if (m_bench.prompts.isDismissed() || widget.isNull() || m_bench.tabs.isRunning(widget))
        return;
    if (question.wantsPreview()) {
        m_bench.previews.run(widget, change, PreviewCommands::Wish::Now);
    } else if (agrees) {
        if (change.begun)
            change.begun();
        change.start();
    }
}
