// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/velticon.h"

#include <QHash>
#include <QIconEngine>
#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QPair>
#include <QPixmap>
#include <QPixmapCache>

namespace
{
/** Up to this size in pixels, an overlay needs more than a quarter of the icon, and bolder lines. */
constexpr int smallIcon = 32;

/** The part of `image` that is not transparent. */
QImage trimmed(const QImage &image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            constexpr int Visible = 32;
            if (qAlpha(image.pixel(x, y)) >= Visible)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds.isEmpty() ? image : image.copy(bounds);
}

/** Whether `image` consists of lines, like a check mark, and is not a filled shape. */
bool isLineDrawing(const QImage &image)
{
    qint64 covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y));
    }
    constexpr qint64 Opaque = 255;
    return covered * 2 < Opaque * image.width() * image.height();
}

/** `image` painted at each offset from 0 to `reach` pixels. Its lines become broader by `reach`. */
QImage emboldened(const QImage &image, int reach)
{
    QImage bold(image.size() + QSize(reach, reach), QImage::Format_ARGB32_Premultiplied);
    bold.fill(Qt::transparent);
    QPainter painter(&bold);
    for (int y = 0; y <= reach; ++y) {
        for (int x = 0; x <= reach; ++x)
            painter.drawImage(x, y, image);
    }
    return bold;
}

/** The overlay for an icon of `size`, without empty borders, so that it uses all of its few pixels. */
QImage overlayImage(const QIcon &overlay, const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    const bool isSmall = qMax(size.width(), size.height()) <= smallIcon;
    const QSize room = size * (isSmall ? 0.6 : 0.5);
    // Themes have no drawings for smaller sizes.
    constexpr int LeastSource = 22;
    const int side = qMax(LeastSource, qMax(room.width(), room.height()));
    QImage source(side, side, QImage::Format_ARGB32_Premultiplied);
    source.fill(Qt::transparent);
    QPainter painter(&source);
    overlay.paint(&painter, source.rect(), Qt::AlignCenter, mode, state);
    painter.end();
    QImage shape = trimmed(source);
    if (isSmall && isLineDrawing(shape))
        shape = emboldened(shape, 2);
    return shape.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/** Composes the icon at the requested size, so that it is sharp at every size and pixel ratio. */
class OverlayEngine : public QIconEngine
{
public:
    OverlayEngine(QIcon base, QIcon overlay)
        : m_base(std::move(base))
        , m_overlay(std::move(overlay))
    { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() != nullptr ? painter->device()->devicePixelRatioF() : 1.0;
        QPixmap composed = pixmap(rect.size() * ratio, mode, state);
        composed.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, composed);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const QString key = QStringLiteral("veltoverlay/%1/%2/%3x%4/%5/%6")
                                .arg(m_base.cacheKey())
                                .arg(m_overlay.cacheKey())
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode)
                                .arg(state);
        QPixmap composed;
        if (QPixmapCache::find(key, &composed))
            return composed;
        composed = QPixmap(size);
        composed.fill(Qt::transparent);
        QPainter painter(&composed);
        m_base.paint(&painter, QRect(QPoint(0, 0), size), Qt::AlignCenter, mode, state);
        const QImage overlay = overlayImage(m_overlay, size, mode, state);
        const QPoint corner(size.width() - overlay.width(), size.height() - overlay.height());
        // A gap around the overlay separates it from the base, whatever their colours.
        const int gap = qMax(1, size.width() / 16);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        painter.drawImage(corner - QPoint(gap, gap), emboldened(overlay, 2 * gap));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.drawImage(corner, overlay);
        painter.end();
        QPixmapCache::insert(key, composed);
        return composed;
    }

    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_base.actualSize(size, mode, state);
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) const override
    {
        return m_base.availableSizes(mode, state);
    }

    bool isNull() const { return m_base.isNull() && m_overlay.isNull(); }

    void virtual_hook(int id, void *data) override
    {
        if (id == QIconEngine::IsNullHook)
            *static_cast<bool *>(data) = isNull();
        else
            QIconEngine::virtual_hook(id, data);
    }

    QIconEngine *clone() const override { return new OverlayEngine(m_base, m_overlay); }

private:
    QIcon m_base;
    QIcon m_overlay;
};
} // namespace

QIcon VeltIcon::withOverlay(const QString &base, const QString &overlay)
{
    static QHash<QPair<QString, QString>, QIcon> cache;
    static QString cachedTheme;
    // After a change of the desktop's theme, all cached icons belong to the old theme.
    if (cachedTheme != QIcon::themeName()) {
        cachedTheme = QIcon::themeName();
        cache.clear();
    }
    const QPair<QString, QString> key(base, overlay);
    const auto known = cache.constFind(key);
    if (known != cache.constEnd())
        return *known;
    const QIcon baseIcon = QIcon::fromTheme(base);
    QIcon icon = overlay.isEmpty() ? baseIcon : QIcon(new OverlayEngine(baseIcon, QIcon::fromTheme(overlay)));
    cache.insert(key, icon);
    return icon;
}
