// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/packagecommands.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "ui/commands/repositorycommands.h"
#include "ui/commands/settingscommands.h"
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
                                             tabs.indexOf(m_bench.tabs.current()));
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
                        tr("Do you want to add %n package(s)?", nullptr, packages.files.size()),
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
    if (!m_bench.settings.confirmAddSettings(components) || guard.isNull()) {
        tellNotAdded(files);
        return;
    }
    // Another command may have started a job while the dialog was open.
    if (m_bench.tabs.isRunning(widget)) {
        keep(widget, files);
        return;
    }
    widget->repoShell()->addPackages(files, m_bench.settings.addOptions(components));
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
    const CompleteCheckBase alone{CompleteCheckBase::Nothing, {}, {}};
    const CheckScope scope = m_bench.tabs.checkScope(widget, check.isValid() ? check.base : alone);
    m_impact = new RemovalImpactSearch(scope, packages, this);
    m_bench.prompts.window()->setCursor(Qt::BusyCursor);
    const auto ask = [this, guard = QPointer<RepoWidget>(widget), packages, agreed] {
        m_bench.prompts.window()->unsetCursor();
        if (!guard.isNull() && !m_bench.tabs.isRunning(guard) && askToRemove(guard, packages)) {
            if (agreed)
                agreed();
            guard->repoShell()->removePackages(packages);
        }
        m_impact->deleteLater();
        m_impact.clear();
    };
    connect(m_impact, &RemovalImpactSearch::due, this, ask);
}

bool PackageCommands::askToRemove(const QPointer<RepoWidget> &widget, const QList<PackageInfoPtr> &packages)
{
    RemovalQuestion question(tr("Remove confirmation"),
                             tr("Do you want to remove selected packages?"),
                             PackageDetails::summary(packages, widget->repoShell()->repoInfo()),
                             *m_impact,
                             widget->repoPath(),
                             m_bench.prompts.window());
    return m_bench.prompts.run(question) == QMessageBox::Yes && !m_bench.prompts.isDismissed()
           && !widget.isNull() && !m_bench.tabs.isRunning(widget);
}
