// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/children.h"
#include "support/literals.h"
#include "ui/mainwindow.h"
#include "ui/repowidget.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTabWidget>
#include <QTimer>

#include <functional>

/** The visible top-level widgets of this class whose titles begin with `title`. */
template <typename Dialog>
QList<Dialog *> openDialogs(const QString &title = QString())
{
    QList<Dialog *> dialogs;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *dialog = qobject_cast<Dialog *>(widget);
        if (dialog != nullptr && dialog->isVisible() && dialog->windowTitle().startsWith(title))
            dialogs << dialog;
    }
    return dialogs;
}

/** Steps of a user, each tried again and again until it says that it is done; they run while dialogs are open. */
class Script
{
public:
    using Step = std::function<bool()>;

    /** A dialog that no step answers holds up whoever waits, so every dialog needs its step beforehand. */
    explicit Script(const QList<Step> &steps);
    bool isDone() const { return m_steps.isEmpty(); }

private:
    QTimer m_timer;
    QList<Step> m_steps;
};

/** Does something in the dialog of this class and title, once it is there; `act` says whether it is done. */
template <typename Dialog, typename Act>
Script::Step inDialog(const QString &title, const Act &act)
{
    return [title, act] {
        const QList<Dialog *> dialogs = openDialogs<Dialog>(title);
        return !dialogs.isEmpty() && act(*dialogs.first());
    };
}

/** Presses a button of the message box with this title. */
Script::Step answerBox(const QString &title, QMessageBox::StandardButton button);
/** Presses a button of the package replacement dialog, after choosing the option with this text, if any. */
Script::Step answerReplacement(const QString &button, const QString &option = QString());

/** The real window, driven through its actions. */
class WindowDriver
{
public:
    WindowDriver() { m_window.show(); }

    MainWindow &window() { return m_window; }
    QAction *action(const char *name) const { return child<QAction>(m_window, name); }
    QTabWidget *tabs() const { return child<QTabWidget>(m_window, "tabWidget"); }
    RepoWidget *tab(int index = 0) const { return qobject_cast<RepoWidget *>(tabs()->widget(index)); }
    /** Whether this many repositories are open and no job runs. */
    bool isIdle(int repositories = 1) const;
    /** Packages of the first tab. */
    int packageCount() const;
    /** Last message of the status bar. */
    QString message() const;
    QString log() const;
    /** Drops files on the window. */
    void drop(const QStringList &files);
    /** Selects the package of this name in the first tab's tree; false when there is none. */
    bool select(const QString &package) const;

private:
    MainWindow m_window;
};

/** "name version" of each package that reprepro lists, sorted and with commas; also for installer packages. */
QString packagesOf(const QString &repository);
