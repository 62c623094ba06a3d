// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reposhell.h"
#include "support/children.h"
#include "support/packagetesting.h"
#include "ui/tab/repowidget.h"
#include "ui/widgets/elidedlabel.h"
#include "ui/window/mainwindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <QUrl>

#include <functional>

/** The visible dialogs of this class whose titles begin with `title`. */
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
    Script(std::initializer_list<Step> steps)
        : Script(QList<Step>(steps))
    { }
    explicit Script(const QList<Step> &steps)
        : m_steps(steps)
    {
        m_timer.callOnTimeout([this] {
            if (m_steps.isEmpty())
                return;
            // A step can run an event loop, in which this is called again.
            const Step step = m_steps.takeFirst();
            if (!step())
                m_steps.prepend(step);
        });
        m_timer.start(10);
    }
    bool isDone() const { return m_steps.isEmpty(); }
    int stepsLeft() const { return m_steps.size(); }

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

/** Clicks the button with this text; false when there is none that can be clicked. */
inline bool press(const QDialog &dialog, const QString &text)
{
    for (auto *button : dialog.findChildren<QAbstractButton *>()) {
        if (button->text().remove("&"_s) == text && button->isEnabled()) {
            button->click();
            return true;
        }
    }
    return false;
}

inline QString wordsOf(const QMessageBox &box)
{
    return box.text() + " "_s + box.informativeText() + " "_s + box.detailedText();
}

/** Presses a button in the dialog with this title; with `words`, in a message box that says them. */
inline Script::Step answer(const QString &title, const QString &button, const QString &words = {})
{
    // A dialog of the same title can stand behind the box.
    if (!words.isEmpty())
        return inDialog<QMessageBox>(title, [=](const QMessageBox &box) {
            return wordsOf(box).contains(words) && press(box, button);
        });
    return inDialog<QDialog>(title, [button](const QDialog &dialog) { return press(dialog, button); });
}

/** The real window, driven through its actions. */
class WindowDriver
{
public:
    explicit WindowDriver(PublicationMonitor *monitor = nullptr)
        : m_window(monitor)
    {
        m_window.show();
    }

    MainWindow &window() { return m_window; }
    QTabWidget *tabs() const { return child<QTabWidget>(m_window, "tabWidget"); }
    RepoWidget *tab(int index = 0) const { return qobject_cast<RepoWidget *>(tabs()->widget(index)); }
    int packageCount() const { return tab()->repoShell()->packageCount(); }
    /** Last message of the status bar. */
    QString message() const { return child<ElidedLabel>(m_window, "m_messageLabel")->fullText(); }
    QString log() const { return child<QPlainTextEdit>(m_window, "m_logTextEdit")->toPlainText(); }

    /** Whether this many repositories are open and no job runs. */
    bool isIdle(int repositories = 1) const
    {
        bool idle = tabs()->count() == repositories;
        for (int i = 0; i < tabs()->count(); ++i)
            idle = idle && !tab(i)->repoShell()->isRunning() && !tab(i)->repoPath().isEmpty();
        return idle;
    }

    /** Drops files on the window, or on a part of it. */
    void drop(const QStringList &files, QWidget *target = nullptr)
    {
        QWidget *widget = target == nullptr ? &m_window : target;
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &file : files)
            urls << QUrl::fromLocalFile(file);
        data.setUrls(urls);
        // Only what has entered can be dropped.
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }

    /** Selects the item with this text in the first tab's tree. */
    void select(const char *text) const
    {
        tab()->setCurrentItem(find(*child<QTreeView>(*tab(), "m_repoTreeView")->model(), text));
    }

private:
    MainWindow m_window;
};
