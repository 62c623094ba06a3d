// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/windowgeometry.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace
{
// Increase it when tool bars or docks change so much that an old record no longer fits.
constexpr int stateVersion = 1;
const QLatin1String geometryKey("geometry");
const QLatin1String stateKey("state");
const QLatin1String frameKey("frame");

QString keyOf(const QWidget *window, const QLatin1String &key)
{
    return QString::fromLatin1(window->metaObject()->className()) + QLatin1Char('/') + key;
}

/** The screen that shows most of `rect`; the primary screen when none shows it. */
QRect screenFor(const QRect &rect)
{
    QRect best = QGuiApplication::primaryScreen()->availableGeometry();
    int bestArea = 0;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        const QRect shown = screen->availableGeometry() & rect;
        const int area = shown.isEmpty() ? 0 : shown.width() * shown.height();
        if (area > bestArea) {
            bestArea = area;
            best = screen->availableGeometry();
        }
    }
    return best;
}

/** Widths of the window frame that the desktop draws: left, top, right, bottom. */
QVariantList frameOf(const QWidget &window)
{
    const QRect inner = window.geometry();
    const QRect outer = window.frameGeometry();
    return {inner.left() - outer.left(),
            inner.top() - outer.top(),
            outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

/**
 * The frame that a window will get. It is not known before the window is shown, so the last frame or a usual one is
 * used.
 */
QMargins expectedFrame(const QVariantList &lastFrame)
{
    constexpr int MostPixels = 200;
    QVector<int> widths;
    for (const QVariant &width : lastFrame) {
        const int pixels = width.toInt();
        if (pixels >= 0 && pixels <= MostPixels)
            widths.append(pixels);
    }
    if (widths.size() == 4)
        return {widths[0], widths[1], widths[2], widths[3]};
    return {1, 24, 1, 5};
}

/** `wanted` (without its frame), moved and if necessary made smaller, so that the frame is on a screen too. */
QRect movedOnScreen(const QRect &wanted, const QMargins &frame)
{
    const QRect screen = screenFor(wanted).marginsRemoved(frame);
    QRect rect(wanted.topLeft(), wanted.size().boundedTo(screen.size()));
    rect.moveLeft(qBound(screen.left(), rect.left(), screen.right() - rect.width() + 1));
    rect.moveTop(qBound(screen.top(), rect.top(), screen.bottom() - rect.height() + 1));
    return rect;
}

/** A damaged record can give a window of nearly no size. */
bool isUsable(const QRect &rect)
{
    constexpr int LeastPixels = 50;
    return rect.width() >= LeastPixels && rect.height() >= LeastPixels;
}
} // namespace

void veltSaveGeometry(QWidget *window, QSettings &settings, bool saveState)
{
    settings.setValue(keyOf(window, geometryKey), window->saveGeometry());
    if (window->isVisible())
        settings.setValue(keyOf(window, frameKey), frameOf(*window));
    const auto *mainWindow = qobject_cast<const QMainWindow *>(window);
    if (saveState && mainWindow != nullptr)
        settings.setValue(keyOf(window, stateKey), mainWindow->saveState(stateVersion));
}

void veltRestoreGeometry(QWidget *window, QSettings &settings, const QRect &defaultRect, bool restoreState)
{
    const QByteArray geometry = settings.value(keyOf(window, geometryKey)).toByteArray();
    // Qt checks the start of a record but not its end: a truncated record would give a window without size.
    const bool restored
        = geometry.size() >= window->saveGeometry().size() && window->restoreGeometry(geometry);
    // A maximised window must stay maximised: setting a rectangle would end this state.
    const bool spansScreen = restored && (window->isMaximized() || window->isFullScreen());
    if (!spansScreen) {
        const QRect wanted = restored && isUsable(window->geometry()) ? window->geometry() : defaultRect;
        const QVariantList lastFrame = settings.value(keyOf(window, frameKey)).toList();
        window->setGeometry(movedOnScreen(wanted, expectedFrame(lastFrame)));
    }
    auto *mainWindow = qobject_cast<QMainWindow *>(window);
    if (restoreState && mainWindow != nullptr)
        mainWindow->restoreState(settings.value(keyOf(window, stateKey)).toByteArray(), stateVersion);
}
