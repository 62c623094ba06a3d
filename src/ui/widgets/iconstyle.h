// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

/**
 * The desktop's style with icons that tell what can be used. The usual way to draw the icon of a disabled command
 * leaves it nearly as bright as the others on a dark background, and a selected row's tint swallows small badges. The
 * button that closes a tab is a plain cross: in many icon themes it looks like the badge of a package in error.
 */
class IconStyle : public QProxyStyle
{
    Q_OBJECT
public:
    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption *option,
                       QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    QPixmap
    generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap, const QStyleOption *option) const override;
};
