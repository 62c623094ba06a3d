// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/commands/workbench.h"
#include "ui/installability/backgroundquery.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

class QAction;
class QMenu;
class QWidget;
class RepoWidget;

/** The commands on the files and the names of packages, which change no repository. */
class PackageFileCommands : public QObject
{
    Q_OBJECT
public:
    PackageFileCommands(const Workbench &bench, QWidget *window);

    /** The menu "Package file" with all commands. */
    QMenu *menu() const { return m_menu; }
    /** Those that get a button on the page of a package. */
    QList<QAction *> pageActions() const;
    /** Enables the commands that are possible now. */
    void updateActions();

private:
    /** A package file and where its copy goes. */
    struct Copy
    {
        QString from;
        QString to;
    };
    /** What was copied. */
    struct Outcome
    {
        QStringList saved;
        QStringList failures; ///< lines for the user
    };

    Workbench m_bench;
    QMenu *m_menu;
    QAction *m_contents;
    QAction *m_save;
    QAction *m_openFolder;
    QAction *m_copyName;
    QAction *m_copyCommand;
    QString m_lastFolder;
    BackgroundQuery m_query;
    bool m_isSaving = false;

    QAction *
    addAction(const QString &name, const QString &text, const char *icon, void (PackageFileCommands::*run)());
    QList<PackageInfoPtr> selected() const;
    /** The package whose page is shown, else the first selected one; null when there is none. */
    PackageInfoPtr shown() const;
    void showContents();
    void save();
    void saveOne(const PackageInfo &package);
    void saveInto(const QString &folder, const QList<PackageInfoPtr> &packages);
    void copy(const QList<Copy> &copies);
    void openFolder();
    void copyName();
    void copyCommand();
    void toClipboard(const QString &text);
};
