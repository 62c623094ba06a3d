// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/packagefilecommands.h"

#include "core/countof.h"
#include "core/packagenames.h"
#include "files/filecopy.h"
#include "platform/ui/filemanager.h"
#include "ui/contents/packagecontentsdialog.h"
#include "ui/dialogs/prompts.h"
#include "ui/packages/packagefacts.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/packagepanel.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QMenu>

#include <utility>

PackageFileCommands::PackageFileCommands(const Workbench &bench, QWidget *window)
    : QObject(window)
    , m_bench(bench)
    , m_menu(new QMenu(tr("Package file"), window))
    , m_contents(addAction(QStringLiteral("m_packageContentsAction"),
                           tr("Contents..."),
                           "view-list-details",
                           &PackageFileCommands::showContents))
    , m_save(addAction(QStringLiteral("m_savePackageAction"),
                       tr("Save package as..."),
                       "document-save-as",
                       &PackageFileCommands::save))
    , m_openFolder(addAction(QStringLiteral("m_openPackageFolderAction"),
                             tr("Open folder"),
                             "document-open-folder",
                             &PackageFileCommands::openFolder))
    , m_copyName(addAction(QStringLiteral("m_copyPackageNameAction"),
                           tr("Copy name"),
                           "edit-copy",
                           &PackageFileCommands::copyName))
    , m_copyCommand(addAction(QStringLiteral("m_copyAptCommandAction"),
                              tr("Copy as apt command"),
                              "edit-copy",
                              &PackageFileCommands::copyCommand))
    , m_lastFolder(QDir::homePath())
{
    m_menu->setObjectName(QStringLiteral("m_packageFileMenu"));
    m_menu->addActions({m_contents, m_save, m_openFolder, m_copyName, m_copyCommand});
    connect(&m_bench.tabs, &RepoTabs::created, this, [this](const RepoWidget *widget) {
        widget->packagePanel()->setCommands(pageActions());
    });
}

QAction *PackageFileCommands::addAction(const QString &name,
                                        const QString &text,
                                        const char *icon,
                                        void (PackageFileCommands::*run)())
{
    auto *action = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, run);
    return action;
}

QList<QAction *> PackageFileCommands::pageActions() const
{
    return {m_contents, m_save, m_openFolder};
}

void PackageFileCommands::updateActions()
{
    // Nothing is changed, so a running job is no obstacle.
    const RepoWidget *widget = m_bench.tabs.current();
    const bool arePackagesSelected = widget != nullptr && widget->hasSelectedPackages();
    m_menu->setEnabled(arePackagesSelected);
    m_save->setEnabled(arePackagesSelected && !m_isSaving);
    for (QAction *action : {m_contents, m_openFolder, m_copyName, m_copyCommand})
        action->setEnabled(arePackagesSelected);
}

QList<PackageInfoPtr> PackageFileCommands::selected() const
{
    const RepoWidget *widget = m_bench.tabs.current();
    return widget == nullptr ? QList<PackageInfoPtr>() : widget->selectedPackages();
}

PackageInfoPtr PackageFileCommands::shown() const
{
    const RepoWidget *widget = m_bench.tabs.current();
    const PackageInfoPtr package = widget == nullptr ? PackageInfoPtr() : widget->currentPackage();
    return package ? package : selected().value(0);
}

// --- files ---------------------------------------------------------------------------------------------------------

void PackageFileCommands::save()
{
    const QList<PackageInfoPtr> packages = selected();
    if (packages.isEmpty() || m_isSaving)
        return;
    if (packages.size() == 1) {
        saveOne(*packages.first());
        return;
    }
    const QString folder = m_bench.prompts.directory(tr("Save packages into a folder"), m_lastFolder);
    if (folder.isEmpty())
        return;
    m_lastFolder = folder;
    saveInto(folder, packages);
}

void PackageFileCommands::saveOne(const PackageInfo &package)
{
    const QString from = package.filePath();
    const QString suffix = PackageNames::suffix(package.type);
    const QString target = m_bench.prompts
                               .saveFile(tr("Save package as"),
                                         m_lastFolder,
                                         m_lastFolder + QLatin1Char('/') + displayFileName(package),
                                         {tr("Packages (%1)").arg(QLatin1String("*.") + suffix)})
                               .path;
    if (target.isEmpty())
        return;
    m_lastFolder = QFileInfo(target).absolutePath();
    copy({{from, target}});
}

void PackageFileCommands::saveInto(const QString &folder, const QList<PackageInfoPtr> &packages)
{
    QList<Copy> copies;
    QHash<QString, QString> sources; // by name
    QStringList doubles;
    for (const PackageInfoPtr &package : packages) {
        const QString from = package->filePath();
        const QString name = displayFileName(*package);
        const QString known = sources.value(name);
        // A package for all architectures is one file in several lists.
        if (known == from)
            continue;
        if (!known.isEmpty()) {
            doubles << from;
            continue;
        }
        sources.insert(name, from);
        copies.append({from, folder + QLatin1Char('/') + name});
    }
    if (!doubles.isEmpty())
        m_bench.feedback.error(tr("These packages are left out: a file of the same name is saved."),
                               doubles.join(QLatin1Char('\n')),
                               RepoEnums::WARNING);
    m_isSaving = true;
    m_query.ask(
        this,
        [copies](const StopRequest &stopped) {
            int present = 0;
            for (int i = 0; i < copies.size() && !stopped(); ++i)
                present += QFileInfo::exists(copies.at(i).to) ? 1 : 0;
            return present;
        },
        [this, copies, folder](int present) {
            m_isSaving = false;
            const auto mayReplace = [&] {
                return m_bench.prompts.askCarefully(
                           tr("Save packages"),
                           tr("Do you want to replace %n file(s) in %1?", nullptr, present).arg(folder))
                       == Prompts::Answer::Yes;
            };
            if (present == 0 || mayReplace())
                copy(copies);
        });
}

void PackageFileCommands::copy(const QList<Copy> &copies)
{
    m_isSaving = true;
    m_save->setEnabled(false);
    m_bench.feedback.announce(tr("Saving %n package(s)...", nullptr, countOf(copies)));
    m_query.ask(
        this,
        [copies](const StopRequest &stopped) {
            Outcome outcome;
            for (const Copy &each : copies) {
                if (stopped())
                    break;
                const QString failure = copyFile(each.from, each.to, stopped);
                if (failure.isEmpty())
                    outcome.saved << each.to;
                else
                    outcome.failures << QStringLiteral("%1: %2").arg(each.to, failure);
            }
            return outcome;
        },
        [this](const Outcome &outcome) {
            m_isSaving = false;
            updateActions();
            if (outcome.saved.size() == 1)
                m_bench.feedback.announce(tr("Saved: %1").arg(outcome.saved.first()));
            else
                m_bench.feedback.announce(tr("%n package(s) saved.", nullptr, countOf(outcome.saved)));
            if (!outcome.failures.isEmpty())
                m_bench.feedback.error(
                    tr("%n package(s) could not be saved.", nullptr, countOf(outcome.failures)),
                    outcome.failures.join(QLatin1Char('\n')));
        });
}

void PackageFileCommands::showContents()
{
    const PackageInfoPtr package = shown();
    if (!package)
        return;
    PackageContentsDialog dialog(*package, m_bench.prompts.window());
    m_bench.prompts.run(dialog);
}

void PackageFileCommands::openFolder()
{
    const PackageInfoPtr package = shown();
    if (!package)
        return;
    const QString path = package->filePath();
    veltShowInFileManager(path, this, [this, path] {
        m_bench.feedback.error(tr("No program opens the folder %1.").arg(QFileInfo(path).path()));
    });
}

// --- names ---------------------------------------------------------------------------------------------------------

void PackageFileCommands::copyName()
{
    toClipboard(PackageFacts::names(selected()));
}

void PackageFileCommands::copyCommand()
{
    toClipboard(PackageFacts::aptCommand(selected()));
}

void PackageFileCommands::toClipboard(const QString &text)
{
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(text);
    const bool isLong = text.contains(QLatin1Char('\n')) || text.size() > 100;
    m_bench.feedback.announce(isLong ? tr("Copied.") : tr("Copied: %1").arg(text));
}
