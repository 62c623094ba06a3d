// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/velticon.h"

#include <QHash>
#include <QIconEngine>
#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QStringList>

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

/** Makes a gap around `image`, which separates it from what lies below it, and paints it there. */
void paintApart(QPainter &painter, const QPoint &place, const QImage &image, int gap, qreal opacity = 1)
{
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawImage(place - QPoint(gap, gap), emboldened(image, 2 * gap));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setOpacity(opacity);
    painter.drawImage(place, image);
    painter.setOpacity(1);
}

/** The emblem for an icon of `size`. It leaves the overlay in the other corner as it is. */
QImage emblemImage(const QIcon &emblem, const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    constexpr qreal Share = 0.44;
    QImage image(size * Share, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    emblem.paint(&painter, image.rect(), Qt::AlignCenter, mode, state);
    return image;
}

/** Composes the icon at the requested size, so that it is sharp at every size and pixel ratio. */
class OverlayEngine : public QIconEngine
{
public:
    OverlayEngine(QIcon base, QIcon overlay, QIcon emblem, bool isFaded)
        : m_base(std::move(base))
        , m_overlay(std::move(overlay))
        , m_emblem(std::move(emblem))
        , m_isFaded(isFaded)
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
        const QString key = QStringLiteral("veltoverlay/%1/%2/%3/%4/%5x%6/%7/%8")
                                .arg(m_base.cacheKey())
                                .arg(m_overlay.cacheKey())
                                .arg(m_emblem.cacheKey())
                                .arg(m_isFaded)
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
        const int gap = qMax(1, size.width() / 16);
        if (!m_emblem.isNull()) {
            constexpr qreal Faded = 0.45;
            paintApart(
                painter, QPoint(0, 0), emblemImage(m_emblem, size, mode, state), gap, m_isFaded ? Faded : 1);
        }
        if (!m_overlay.isNull()) {
            const QImage overlay = overlayImage(m_overlay, size, mode, state);
            const QPoint corner(size.width() - overlay.width(), size.height() - overlay.height());
            paintApart(painter, corner, overlay, gap);
        }
        painter.end();
        QPixmapCache::insert(key, composed);
        return composed;
    }

    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_base.actualSize(size, mode, state);
    }

    bool isEmpty() const { return m_base.isNull() && m_overlay.isNull() && m_emblem.isNull(); }

    void virtual_hook(int id, void *data) override
    {
        if (id == QIconEngine::IsNullHook)
            *static_cast<bool *>(data) = isEmpty();
        else
            QIconEngine::virtual_hook(id, data);
    }

    QIconEngine *clone() const override { return new OverlayEngine(m_base, m_overlay, m_emblem, m_isFaded); }

private:
    QIcon m_base;
    QIcon m_overlay;
    QIcon m_emblem;
    bool m_isFaded;
};
} // namespace

QIcon VeltIcon::withOverlay(const QString &base, const QString &overlay, const Emblem &emblem)
{
    static QHash<QStringList, QIcon> cache;
    static QString cachedTheme;
    // After a change of the desktop's theme, all cached icons belong to the old theme.
    if (cachedTheme != QIcon::themeName()) {
        cachedTheme = QIcon::themeName();
        cache.clear();
    }
    const QStringList key{base, overlay, emblem.name, emblem.isFaded ? QStringLiteral("faded") : QString()};
    const auto known = cache.constFind(key);
    if (known != cache.constEnd())
        return *known;
    const auto themed = [](const QString &name) { return name.isEmpty() ? QIcon() : QIcon::fromTheme(name); };
    QIcon icon = themed(base);
    if (!overlay.isEmpty() || !emblem.name.isEmpty())
        icon = QIcon(new OverlayEngine(icon, themed(overlay), themed(emblem.name), emblem.isFaded));
    cache.insert(key, icon);
    return icon;
}
