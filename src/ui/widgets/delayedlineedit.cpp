// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/delayedlineedit.h"

#include <QKeyEvent>

DelayedLineEdit::DelayedLineEdit(QWidget *parent)
    : QLineEdit(parent)
{
    constexpr int Delay = 300; // milliseconds
    m_timer.setInterval(Delay);
    m_timer.setSingleShot(true);
    connect(this, &QLineEdit::textEdited, this, [this] { m_timer.start(); });
    connect(&m_timer, &QTimer::timeout, this, [this] { Q_EMIT textEditingStoped(text()); });
}

void DelayedLineEdit::keyPressEvent(QKeyEvent *event)
{
    QLineEdit::keyPressEvent(event);
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return;
    event->accept();
    if (m_timer.isActive()) {
        m_timer.stop();
        Q_EMIT textEditingStoped(text());
    }
}
