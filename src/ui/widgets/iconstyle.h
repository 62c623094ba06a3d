// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

/**
 * The desktop's style, with icons whose state is easy to see. On a dark background, the usual icon of a disabled
 * command is nearly as bright as the others. The tint of a selected row hides small badges. The button that closes a
 * tab is a plain cross, because its usual icon looks like the badge of a package with errors in many icon themes.
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
