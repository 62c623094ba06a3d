// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/mainwindow.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <functional>
#include <memory>

/** The visible top-level widget of this class whose title begins with `title`; null when there is none. */
template <typename Dialog>
Dialog *openDialog(const QString &title = QString())
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *dialog = qobject_cast<Dialog *>(widget);
        if (dialog != nullptr && dialog->isVisible() && dialog->windowTitle().startsWith(title))
            return dialog;
    }
    return nullptr;
}

/** Steps of a user, each tried again and again until it says that it is done; they run while dialogs are open. */
class Script
{
public:
    using Step = std::function<bool()>;

    /** A dialog that no step answers holds up whoever waits, so every dialog needs its step beforehand. */
    explicit Script(const QList<Step> &steps);
    Script(std::initializer_list<Step> steps)
        : Script(QList<Step>(steps))
    { }
    bool isDone() const { return m_steps.isEmpty(); }

private:
    QTimer m_timer;
    QList<Step> m_steps;
};

/** Presses a button of the message box with this title, once it is there. */
Script::Step answerBox(const QString &title, QMessageBox::StandardButton button);
/** Presses a button of the package replacement dialog, after choosing the option with this text, if any. */
Script::Step answerReplacement(const QString &button, const QString &option = QString());

/** The real window, driven through its actions. */
class WindowDriver
{
public:
    WindowDriver();

    MainWindow &window() { return *m_window; }
    QAction *action(const char *name) const;
    QTabWidget *tabs() const { return m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget")); }
    class RepoWidget *tab(int index = 0) const;
    bool isRunning(int index = 0) const;
    /** Last message of the status bar. */
    QString message() const;
    QString log() const;
    /** Drops files on the window. */
    void drop(const QStringList &files);
    /** Selects the package of this name in the current tab's tree; false when there is none. */
    bool select(const QString &package) const;

private:
    std::unique_ptr<MainWindow> m_window;
};

/** "name version" of each package that reprepro lists, sorted; also for installer packages. */
QStringList packagesOf(const QString &repository, const QString &codename);
