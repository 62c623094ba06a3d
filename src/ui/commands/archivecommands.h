// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/workbench.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

class QAction;
class RepositoryCommands;
class RepoShell;
class RepoWidget;

namespace Ui
{
class MainWindow;
}

/** Export to archives, and import of packages from archives and folders, also into a new repository. */
class ArchiveCommands : public QObject
{
    Q_OBJECT
public:
    /** `ui` holds the actions and outlives the commands; `window` is its window. */
    ArchiveCommands(Ui::MainWindow &ui,
                    const Workbench &bench,
                    RepositoryCommands &repositories,
                    QWidget *window);

    /** Enables the actions that are possible now. */
    void updateActions(bool arePackagesSelected);

private:
    void connectActions();
    void attach(RepoWidget *widget);
    /** Asks for the archive to write, and begins the job if it is still possible. */
    void exportBy(const std::function<void(RepoShell &engine, const QString &target)> &job);
    void exportPackages(const QList<PackageInfoPtr> &packages, bool withDepends);
    void exportSelected(bool withDepends);
    bool canReadArchives();
    QString chooseArchive();
    void importRepo();
    void importIntoNew(const QString &source, const QString &folder);
    void
    import(RepoWidget *widget, const QString &source, const AddOptions &options, PreviewCommands::Wish wish);
    void importPackages(const std::function<QString()> &chooseSource);
    void importWaiting(RepoWidget *widget);

    Ui::MainWindow &m_ui;
    Workbench m_bench;
    RepositoryCommands &m_repositories;
    QAction *m_importFolderAction;
    QHash<const RepoWidget *, QString> m_waiting; ///< sources for repositories that are being created
    QString m_lastFolder;
};
