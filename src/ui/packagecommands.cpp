// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packagecommands.h"

#include "engine/reposhell.h"
#include "ui/jobfeedback.h"
#include "ui/packagedetails.h"
#include "ui/prompts.h"
#include "ui/repositorycommands.h"
#include "ui/repotabs.h"
#include "ui/repowidget.h"
#include "ui/settingscommands.h"
#include "ui/startselectactiondialog.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSettings>

namespace
{
const QString lastFolderKey = QStringLiteral("MainWindow/packagesFolder");

bool isPackageFile(const QString &file)
{
    return file.endsWith(QLatin1String(".deb")) || file.endsWith(QLatin1String(".udeb"));
}
} // namespace

PackageCommands::PackageCommands(RepoTabs &tabs,
                                 Prompts &prompts,
                                 JobFeedback &feedback,
                                 SettingsCommands &settings,
                                 RepositoryCommands &repositories,
                                 QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_feedback(feedback)
    , m_settings(settings)
    , m_repositories(repositories)
    , m_lastFolder(QSettings().value(lastFolderKey, QDir::homePath()).toString())
{
    connect(&m_tabs, &RepoTabs::created, this, [this](RepoWidget *widget) {
        // A drop is a decision for this very repository. Queued: the drag's source waits for the drop to return.
        connect(
            widget,
            &RepoWidget::filesDropped,
            this,
            [this, tab = QPointer<RepoWidget>(widget)](const QStringList &files) {
                if (!tab.isNull())
                    addPackages(tab, files);
            },
            Qt::QueuedConnection);
    });
    connect(&m_tabs, &RepoTabs::ready, this, [this](RepoWidget *widget) {
        const QStringList files = m_waiting.take(widget);
        if (!files.isEmpty())
            addPackages(widget, files);
    });
    connect(&m_tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        const QStringList files = m_waiting.take(widget);
        if (!files.isEmpty())
            m_feedback.appendLog(tr("Not added: %1").arg(files.join(QLatin1String(", "))));
    });
}

void PackageCommands::warnNoRepository()
{
    m_prompts.warn(tr("No repository"), tr("There are no repositories to add a package to"));
}

RepoWidget *PackageCommands::chooseTarget()
{
    const QList<RepoWidget *> tabs = m_tabs.shown();
    if (tabs.isEmpty()) {
        warnNoRepository();
        return nullptr;
    }
    if (tabs.size() == 1)
        return tabs.first();
    const int index = m_prompts.choose(tr("Choose repository"),
                                       tr("Select the repository to add the package(s) to:"),
                                       m_tabs.paths(),
                                       tabs.indexOf(m_tabs.current()));
    // Tabs can have gone while the user was choosing.
    RepoWidget *target = index < 0 || !m_tabs.shown().contains(tabs.at(index)) ? nullptr : tabs.at(index);
    if (target != nullptr)
        m_tabs.bringToFront(target);
    return target;
}

void PackageCommands::chooseAndAdd()
{
    RepoWidget *widget = chooseTarget();
    if (widget == nullptr)
        return;
    const QPointer<RepoWidget> guard(widget);
    const QString name = tr("(%1)").arg(widget->repoShell()->repoInfo().name);
    const QStringList files
        = m_prompts.openFiles(tr("Adding Packages%1").arg(name), m_lastFolder, tr("Packages (*.deb *.udeb)"));
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
    if (!m_tabs.shown().isEmpty()) {
        addToChosen(files);
        return;
    }
    const QStringList packages = packagesAmong(files);
    if (packages.isEmpty())
        return;
    StartSelectActionDialog dialog(m_prompts.window());
    m_prompts.run(dialog);
    const auto add = [this, packages](RepoWidget *target) { addPackages(target, packages); };
    const auto tellNotAdded = [this, packages] {
        m_feedback.announce(tr("Not added: %1").arg(packages.join(QLatin1String(", "))));
    };
    bool isChosen = false;
    if (dialog.action() == StartSelectActionDialog::Action::CreateRepo) {
        isChosen = m_repositories.createRepo(
            {add, [this](RepoWidget *failed) { m_waiting.remove(failed); }, tellNotAdded});
    } else if (dialog.action() == StartSelectActionDialog::Action::OpenRepo) {
        RepoWidget *target = m_repositories.chooseAndOpen();
        isChosen = target != nullptr;
        if (isChosen)
            add(target);
    }
    if (!isChosen)
        tellNotAdded();
}

void PackageCommands::addPackages(RepoWidget *widget, const QStringList &files)
{
    const QStringList packages = packagesAmong(files);
    if (packages.isEmpty())
        return;
    if (m_tabs.isRunning(widget))
        m_waiting[widget] << packages;
    else
        startAdding(widget, packages);
}

QStringList PackageCommands::packagesAmong(const QStringList &files)
{
    QStringList packages;
    QStringList others;
    for (const QString &file : files)
        (isPackageFile(file) ? packages : others) << file;
    if (!others.isEmpty())
        m_feedback.error(
            tr("Only packages can be added: files whose name ends in .deb or .udeb, in small letters."),
            others.join(QLatin1Char('\n')),
            RepoEnums::WARNING);
    return packages;
}

void PackageCommands::startAdding(RepoWidget *widget, const QStringList &files)
{
    const QPointer<RepoWidget> guard(widget);
    const QStringList components = widget->repoShell()->repoInfo().componentList();
    if (!m_settings.confirmAddSettings(components))
        return;
    if (guard.isNull())
        return;
    // Somebody else's files can have started a job here while the dialog was open.
    if (m_tabs.isRunning(widget)) {
        m_waiting[widget] << files;
        return;
    }
    widget->repoShell()->addPackages(files, m_settings.addOptions(components));
}

void PackageCommands::removePackages()
{
    RepoWidget *widget = m_tabs.current();
    if (widget == nullptr || m_tabs.isRunning(widget))
        return;
    const QList<PackageInfoPtr> selected = widget->selectedPackages();
    if (selected.isEmpty())
        return;
    const QPointer<RepoWidget> guard(widget);
    if (m_prompts.askCarefully(tr("Remove confirmation"),
                               tr("Do you want to remove selected packages?"),
                               PackageDetails::summary(selected))
            == Prompts::Answer::Yes
        && !guard.isNull() && !m_tabs.isRunning(widget))
        widget->repoShell()->removePackages(selected);
}
