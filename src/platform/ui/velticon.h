// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

/** Icons that are composed of theme icons. */
namespace VeltIcon
{
/** A small sign in the upper left corner of an icon. */
struct Emblem
{
    QString name; ///< of a theme icon; empty: no sign
    bool isFaded = false; ///< for what was true some time ago
};

/**
 * The theme icon `base` with the theme icon `overlay` in its lower right corner, and with the emblem in the corner
 * opposite. An empty name adds nothing. The result is cached: a second call with the same names is only a look-up.
 * Interface thread only.
 */
QIcon withOverlay(const QString &base, const QString &overlay, const Emblem &emblem = {});
} // namespace VeltIcon
