// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowdriver.h"

#include "engine/reposhell.h"
#include "ui/elidedlabel.h"
#include "ui/packagereplacementdialog.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>
#include <QUrl>

Script::Script(const QList<Step> &steps)
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

Script::Step answerBox(const QString &title, QMessageBox::StandardButton button)
{
    return inDialog<QMessageBox>(title, [button](QMessageBox &box) {
        if (box.button(button) != nullptr)
            box.button(button)->click();
        return !box.isVisible();
    });
}

Script::Step answerReplacement(const QString &button, const QString &option)
{
    return inDialog<PackageReplacementDialog>(QString(), [button, option](PackageReplacementDialog &dialog) {
        for (QRadioButton *radio : dialog.findChildren<QRadioButton *>()) {
            if (radio->text() == option)
                radio->click();
        }
        for (QPushButton *candidate : dialog.findChildren<QPushButton *>()) {
            if (candidate->text().remove("&"_s) == button)
                candidate->click();
        }
        return !dialog.isVisible();
    });
}

bool WindowDriver::isIdle(int repositories) const
{
    bool idle = tabs()->count() == repositories;
    for (int i = 0; i < tabs()->count(); ++i)
        idle = idle && !tab(i)->repoShell()->isRunning();
    return idle;
}

int WindowDriver::packageCount() const
{
    return tab()->repoShell()->packageCount();
}

QString WindowDriver::message() const
{
    return child<ElidedLabel>(m_window, "m_messageLabel")->fullText();
}

QString WindowDriver::log() const
{
    return child<QPlainTextEdit>(m_window, "m_logTextEdit")->toPlainText();
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
    QApplication::sendEvent(&m_window, &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_window, &event);
}

bool WindowDriver::select(const QString &package) const
{
    const QAbstractItemModel *model = child<QTreeView>(*tab(), "m_repoTreeView")->model();
    const auto flags = Qt::MatchStartsWith | Qt::MatchRecursive;
    const auto found = model->match(model->index(0, 0), Qt::DisplayRole, package, 1, flags);
    tab()->setCurrentItem(found.value(0));
    return !found.isEmpty();
}

QString packagesOf(const QString &repository)
{
    QProcess process;
    process.start("/usr/bin/reprepro"_s,
                  {"-b"_s, repository, "--list-format"_s, "${package} ${version}\n"_s, "list"_s, "birch"_s});
    process.waitForFinished(-1);
    QStringList lines = QString::fromUtf8(process.readAll()).split("\n"_s, Qt::SkipEmptyParts);
    lines.sort();
    return lines.join(", "_s);
}
