// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/desktopsetup.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QStandardPaths>
#include <QStringList>

// Not in a namespace: the macro declares a function of the resource compiler.
static void initIconResource()
{
    Q_INIT_RESOURCE(velticons);
}

namespace
{
bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}
} // namespace

void veltSetUpDesktop()
{
    QGuiApplication::setDesktopFileName(QCoreApplication::applicationName());
    initIconResource();
    // A platform without a desktop (offscreen) has no theme folders and no theme name.
    QStringList paths = QIcon::themeSearchPaths();
    const QStringList installed = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    for (const QString &path : installed) {
        if (!paths.contains(path))
            paths.append(path);
    }
    // Our folder is the last, so that our icons never hide the desktop's icons.
    const QString own = QStringLiteral(":/icons");
    paths.removeAll(own);
    paths.append(own);
    QIcon::setThemeSearchPaths(paths);

    const QString fallback
        = isDark(QGuiApplication::palette()) ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setFallbackThemeName(fallback);
    if (QIcon::themeName().isEmpty())
        QIcon::setThemeName(fallback);
}
