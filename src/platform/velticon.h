// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

/** Icons that are put together from theme icons. */
namespace VeltIcon
{
/**
 * The theme icon `base` with the theme icon `overlay` in its lower right corner; an empty `overlay` gives the base
 * alone. The result is cached, so that asking again for the same pair costs a look-up. Interface thread only.
 */
QIcon withOverlay(const QString &base, const QString &overlay);
} // namespace VeltIcon
