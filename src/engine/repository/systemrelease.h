// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The release of the running system. */
namespace SystemRelease
{
/** The code name from lsb_release; empty when it cannot be read. Runs a program: not for the interface thread. */
QString codename();
/** The version of the distribution; empty when it is unknown. Some features of the interface depend on it. */
QString version();
/** The version in the text of the version file: the second word of exactly three, else the whole text. */
QString versionFromText(const QString &text);
} // namespace SystemRelease
