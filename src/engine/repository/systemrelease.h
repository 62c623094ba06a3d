// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The release of the running system. */
namespace SystemRelease
{
/** The code name as lsb_release tells it; empty when it cannot. Runs a program: not for the interface thread. */
QString codename();
/** The distribution's version; empty when the system does not say. It switches features of the interface. */
QString version();
/** The version in the text of the version file: the second of exactly three words, else the whole text. */
QString versionFromText(const QString &text);
} // namespace SystemRelease
