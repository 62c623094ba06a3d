// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

/** Icons that are composed of theme icons. */
namespace VeltIcon
{
/**
 * The theme icon `base` with the theme icon `overlay` in its lower right corner. With an empty `overlay` it is the base
 * alone. The result is cached: a second call with the same names is only a look-up. Interface thread only.
 */
QIcon withOverlay(const QString &base, const QString &overlay);
} // namespace VeltIcon
