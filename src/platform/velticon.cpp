// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/velticon.h"

#include <QHash>
#include <QIconEngine>
#include <QPaintDevice>
#include <QPainter>
#include <QPair>
#include <QPixmap>
#include <QPixmapCache>

namespace
{
/** Composes at the size that is asked for, so that the result is sharp at any size and pixel ratio. */
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
        const QRect area(QPoint(0, 0), size);
        const QSize quarter((size.width() + 1) / 2, (size.height() + 1) / 2);
        const QRect corner(QPoint(size.width() - quarter.width(), size.height() - quarter.height()), quarter);
        m_base.paint(&painter, area, Qt::AlignCenter, mode, state);
        m_overlay.paint(&painter, corner, Qt::AlignCenter, mode, state);
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
    // A change of the desktop's theme makes every cached icon a picture of the old one.
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
