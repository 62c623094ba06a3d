// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/windowgeometry.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace
{
// Counted up when the tool bars or docks change so much that an old record no longer fits.
constexpr int stateVersion = 1;
const QLatin1String geometryKey("geometry");
const QLatin1String stateKey("state");

QString keyOf(const QWidget *window, const QLatin1String &key)
{
    return QString::fromLatin1(window->metaObject()->className()) + QLatin1Char('/') + key;
}

/** The screen that shows most of `rect`; the primary one when none does. */
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

QRect movedOnScreen(const QRect &wanted)
{
    const QRect screen = screenFor(wanted);
    QRect rect(wanted.topLeft(), wanted.size().boundedTo(screen.size()));
    rect.moveLeft(qBound(screen.left(), rect.left(), screen.right() - rect.width() + 1));
    rect.moveTop(qBound(screen.top(), rect.top(), screen.bottom() - rect.height() + 1));
    return rect;
}
} // namespace

void veltSaveGeometry(QWidget *window, QSettings &settings, bool saveState)
{
    settings.setValue(keyOf(window, geometryKey), window->saveGeometry());
    const auto *mainWindow = qobject_cast<const QMainWindow *>(window);
    if (saveState && mainWindow != nullptr)
        settings.setValue(keyOf(window, stateKey), mainWindow->saveState(stateVersion));
}

void veltRestoreGeometry(QWidget *window, QSettings &settings, const QRect &defaultRect, bool restoreState)
{
    const QByteArray geometry = settings.value(keyOf(window, geometryKey)).toByteArray();
    // Qt checks how a record begins but not where it ends: a cut one would give a window of no size.
    const bool restored
        = geometry.size() >= window->saveGeometry().size() && window->restoreGeometry(geometry);
    // A maximised window keeps its state: setting a rectangle would end it.
    const bool spansScreen = restored && (window->isMaximized() || window->isFullScreen());
    if (!spansScreen) {
        const QRect wanted = restored && window->geometry().isValid() ? window->geometry() : defaultRect;
        window->setGeometry(movedOnScreen(wanted));
    }
    auto *mainWindow = qobject_cast<QMainWindow *>(window);
    if (restoreState && mainWindow != nullptr)
        mainWindow->restoreState(settings.value(keyOf(window, stateKey)).toByteArray(), stateVersion);
}
