// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Sets the names, version and organisation of the application, so that its settings are in
 * ~/.config/corvana/velt-admin-repo.conf. Installs our translation for the user's language, and Qt's translation for
 * the same language. Call it once, directly after creating the application object.
 */
void veltInit(const QString &version, const QString &displayName);

/** The display name that was passed to veltInit(). */
QString veltDisplayName();

/** Language of the program's texts, such as "de"; "en" when there is no translation for the user's language. */
QString veltLanguage();

/** A translated one-line description of the program. */
QString veltAppDescription();

/**
 * Absolute path of an installed file. The argument is relative to the data folder (for example "velt-admin-repo/x").
 * The folder beside the running program is searched first, so that an installation with any prefix finds its own files,
 * then the system's data folders. Empty when there is no such file.
 */
QString veltDataFile(const QString &relativePath);
