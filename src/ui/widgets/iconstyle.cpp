// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/iconstyle.h"

#include <QPainter>
#include <QStyleOption>

void IconStyle::drawPrimitive(PrimitiveElement element,
                              const QStyleOption *option,
                              QPainter *painter,
                              const QWidget *widget) const
{
    if (element != PE_IndicatorTabClose) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    constexpr qreal Thickness = 1.5;
    constexpr qreal Arm = 3.5; // from the middle
    constexpr float Pointed = 0.15F;
    constexpr float Pressed = 0.3F;
    const bool isEnabled = option->state.testFlag(State_Enabled);
    QColor colour
        = option->palette.color(isEnabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(option->rect).center());
    painter->setPen(QPen(colour, Thickness, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(QPointF(-Arm, -Arm), QPointF(Arm, Arm));
    painter->drawLine(QPointF(-Arm, Arm), QPointF(Arm, -Arm));
    if (isEnabled && option->state.testFlag(State_MouseOver)) {
        const qreal side = qMin(option->rect.width(), option->rect.height());
        colour.setAlphaF(option->state.testFlag(State_Sunken) ? Pressed : Pointed);
        painter->setPen(Qt::NoPen);
        painter->setBrush(colour);
        painter->drawEllipse(QPointF(), side / 2, side / 2);
    }
    painter->restore();
}

QPixmap
IconStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap, const QStyleOption *option) const
{
    if (mode == QIcon::Selected)
        return pixmap;
    if (mode != QIcon::Disabled)
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    // Transparency shows the background, so the icon fades with light and dark palettes.
    constexpr qreal Faded = 0.35;
    QPixmap faded(pixmap.size());
    faded.setDevicePixelRatio(pixmap.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(Faded);
    painter.drawPixmap(0, 0, pixmap);
    return faded;
}
