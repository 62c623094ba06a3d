// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/itemmenukeys.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QKeyEvent>

namespace
{
bool isMenuKey(QEvent *event)
{
    if (event->type() == QEvent::ContextMenu)
        return static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard;
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    return key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier;
}
} // namespace

ItemMenuKeys::ItemMenuKeys(QAbstractItemView *view)
    : QObject(view)
    , m_view(view)
{
    view->installEventFilter(this);
}

bool ItemMenuKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (!isMenuKey(event))
        return QObject::eventFilter(watched, event);
    const QModelIndex current = m_view->currentIndex();
    m_view->scrollTo(current);
    const QRect viewport = m_view->viewport()->rect();
    const QRect item = m_view->visualRect(current) & viewport;
    Q_EMIT m_view->customContextMenuRequested((item.isEmpty() ? viewport : item).center());
    event->accept();
    return true;
}
