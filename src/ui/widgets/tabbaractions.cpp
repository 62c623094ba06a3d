// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/tabbaractions.h"

#include "core/qtversions.h"
#include "ui/widgets/mnemonics.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>

TabBarActions::TabBarActions(QTabWidget *tabs, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_menu(new QMenu(tabs->tabBar()))
{
    const auto add = [this](const char *icon, const QString &text, auto signal) {
        connect(m_menu->addAction(QIcon::fromTheme(QLatin1String(icon)), text),
                &QAction::triggered,
                this,
                [this, signal] {
                    const int index = m_tabs->indexOf(m_page);
                    if (index >= 0)
                        Q_EMIT(this->*signal)(index);
                });
    };
    m_menu->setObjectName(QStringLiteral("m_tabMenu"));
    add("tab-close", tr("Close"), &TabBarActions::closeRequested);
    add("tab-close-other", tr("Close others"), &TabBarActions::closeOthersRequested);
    m_menu->addSeparator();
    add("edit-copy", tr("Copy path"), &TabBarActions::copyPathRequested);
    Mnemonics::mark(m_menu, nullptr);
    m_tabs->tabBar()->setAcceptDrops(true);
    m_tabs->tabBar()->setChangeCurrentOnDrag(true);
    m_tabs->tabBar()->installEventFilter(this);
}

bool TabBarActions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu) {
        const QTabBar *bar = m_tabs->tabBar();
        const auto *request = static_cast<QContextMenuEvent *>(event);
        const bool byKey = request->reason() == QContextMenuEvent::Keyboard;
        const int index = byKey ? bar->currentIndex() : bar->tabAt(request->pos());
        const QPoint pos = byKey ? bar->tabRect(index).center() : request->pos();
        if (index >= 0)
            showMenu(index, bar->mapToGlobal(pos));
        return true;
    }
    if (event->type() == QEvent::DragMove || event->type() == QEvent::Drop)
        return takeDrag(watched, static_cast<QDropEvent *>(event));
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) {
        const auto *click = static_cast<QMouseEvent *>(event);
        if (click->button() == Qt::MiddleButton) {
            const int index = m_tabs->tabBar()->tabAt(click->pos());
            QWidget *page = m_tabs->widget(index);
            const QPointer<QWidget> pressed = m_pressed;
            m_pressed = event->type() == QEvent::MouseButtonPress ? page : nullptr;
            // As with other buttons, moving away before the release cancels the click.
            if (event->type() == QEvent::MouseButtonRelease && page != nullptr && page == pressed)
                Q_EMIT closeRequested(index);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

bool TabBarActions::takeDrag(QObject *bar, QDropEvent *event)
{
    const bool isOwn = event->source() != nullptr;
    if (event->type() == QEvent::DragMove) {
        // The bar waits for its moment, and says that nothing can be dropped on it.
        bar->event(event);
        event->setDropAction(Qt::CopyAction);
        event->setAccepted(isOwn ? m_tabs->tabBar()->tabAt(QtVersions::positionOf(*event)) >= 0
                                 : event->mimeData()->hasUrls());
        return true;
    }
    QDragLeaveEvent leaving;
    bar->event(&leaving);
    const int index = m_tabs->tabBar()->tabAt(QtVersions::positionOf(*event));
    if (!isOwn) {
        // Files from outside are the window's, wherever they are dropped.
        QCoreApplication::sendEvent(m_tabs->window(), event);
    } else if (index >= 0) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        Q_EMIT partDropped(index,
                           qobject_cast<QWidget *>(event->source()),
                           QtVersions::modifiersOf(*event).testFlag(Qt::ShiftModifier));
    }
    return true;
}

void TabBarActions::showMenu(int index, const QPoint &globalPos)
{
    m_page = m_tabs->widget(index);
    m_menu->actions().at(1)->setEnabled(m_tabs->count() > 1);
    m_menu->popup(globalPos);
}
