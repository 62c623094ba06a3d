// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/delayedlineedit.h"

DelayedLineEdit::DelayedLineEdit(QWidget *parent)
    : QLineEdit(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(DelayMilliseconds);
    connect(this, &QLineEdit::textEdited, &m_timer, qOverload<>(&QTimer::start));
    connect(&m_timer, &QTimer::timeout, this, [this] { Q_EMIT delayedTextChanged(text()); });
}
