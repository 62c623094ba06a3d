// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/elidedlabel.h"

#include "ui/widgets/tooltiptext.h"

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    // A long text must not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::setFullText(const QString &text)
{
    m_fullText = text.simplified();
    elide();
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    constexpr int LongestToolTip = 1000; // characters
    const QString shown = fontMetrics().elidedText(m_fullText, Qt::ElideRight, width());
    setText(shown);
    setToolTip(shown == m_fullText ? QString() : toolTipText(m_fullText.left(LongestToolTip)));
}
