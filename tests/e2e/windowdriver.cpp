// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowdriver.h"

#include "engine/reposhell.h"
#include "ui/elidedlabel.h"
#include "ui/packagereplacementdialog.h"
#include "ui/repowidget.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QRadioButton>
#include <QTreeView>
#include <QUrl>

Script::Script(const QList<Step> &steps)
    : m_steps(steps)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        if (m_steps.isEmpty())
            return;
        // A step can run an event loop, in which this is called again.
        const Step step = m_steps.takeFirst();
        if (!step())
            m_steps.prepend(step);
    });
    m_timer.start(10);
}

Script::Step answerBox(const QString &title, QMessageBox::StandardButton button)
{
    return [title, button] {
        auto *box = openDialog<QMessageBox>(title);
        if (box == nullptr || box->button(button) == nullptr)
            return false;
        box->button(button)->click();
        return true;
    };
}

Script::Step answerReplacement(const QString &button, const QString &option)
{
    return [button, option] {
        auto *dialog = openDialog<PackageReplacementDialog>();
        if (dialog == nullptr)
            return false;
        const QList<QRadioButton *> options = dialog->findChildren<QRadioButton *>();
        for (QRadioButton *radio : options) {
            if (radio->text() == option)
                radio->click();
        }
        const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
        for (QPushButton *candidate : buttons) {
            if (candidate->text().remove(QLatin1Char('&')) == button && candidate->isEnabled()) {
                candidate->click();
                return true;
            }
        }
        return false;
    };
}

WindowDriver::WindowDriver()
    : m_window(std::make_unique<MainWindow>())
{
    m_window->show();
}

QAction *WindowDriver::action(const char *name) const
{
    auto *action = m_window->findChild<QAction *>(QLatin1String(name));
    if (action == nullptr)
        qFatal("no action %s", name);
    return action;
}

RepoWidget *WindowDriver::tab(int index) const
{
    return qobject_cast<RepoWidget *>(tabs()->widget(index));
}

bool WindowDriver::isRunning(int index) const
{
    return tab(index) != nullptr && tab(index)->repoShell()->isRunning();
}

QString WindowDriver::message() const
{
    return m_window->findChild<ElidedLabel *>(QStringLiteral("m_messageLabel"))->fullText();
}

QString WindowDriver::log() const
{
    return m_window->findChild<QPlainTextEdit *>(QStringLiteral("m_logTextEdit"))->toPlainText();
}

void WindowDriver::drop(const QStringList &files)
{
    QList<QUrl> urls;
    for (const QString &file : files)
        urls << QUrl::fromLocalFile(file);
    QMimeData data;
    data.setUrls(urls);
    // Only what has entered can be dropped.
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &event);
}

bool WindowDriver::select(const QString &package) const
{
    RepoWidget *widget = tab(tabs()->currentIndex());
    auto *tree = widget->findChild<QTreeView *>(QStringLiteral("m_repoTreeView"));
    const QModelIndexList found = tree->model()->match(
        tree->model()->index(0, 0), Qt::DisplayRole, package, 1, Qt::MatchStartsWith | Qt::MatchRecursive);
    if (found.isEmpty())
        return false;
    widget->setCurrentItem(found.first());
    return true;
}

QStringList packagesOf(const QString &repository, const QString &codename)
{
    QProcess process;
    process.start(QStringLiteral("/usr/bin/reprepro"),
                  {QStringLiteral("-b"),
                   repository,
                   QStringLiteral("--list-format"),
                   QStringLiteral("${package} ${version}\n"),
                   QStringLiteral("list"),
                   codename});
    process.waitForFinished(-1);
    QStringList lines
        = QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.sort();
    return lines;
}
