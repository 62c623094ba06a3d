// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/iconstyle.h"

#include <QPainter>

QPixmap
IconStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap, const QStyleOption *option) const
{
    if (mode == QIcon::Selected)
        return pixmap;
    if (mode != QIcon::Disabled)
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    // What shines through is the background, so it fades with a light palette and with a dark one.
    constexpr qreal Faded = 0.35;
    QPixmap faded(pixmap.size());
    faded.setDevicePixelRatio(pixmap.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(Faded);
    painter.drawPixmap(0, 0, pixmap);
    return faded;
}
