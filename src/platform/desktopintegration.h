// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Gives the application its names, version and organisation, so that settings live in
 * ~/.config/corvana/velt-admin-repo.conf, and installs our translation that fits the user's languages, with the
 * toolkit's own of the same language. With a graphical application it also sets up the icon themes. Call it once,
 * right after the application object has been made.
 */
void veltInit(const QString &version, const QString &displayName);

/** The name that veltInit() was given, as a reader sees it in texts. */
QString veltDisplayName();

/** Language of the program's texts, as "de"; English when the user's has no translation. */
QString veltLanguage();

/** One line, translated, that says what the program is. */
QString veltAppDescription();

/**
 * Makes every icon name that the program uses resolvable: the desktop's theme answers first, then breeze (its dark
 * form when the palette is dark), and our own drawings for names that no theme has. Needs a graphical application.
 */
void veltSetUpIconThemes();

/**
 * Absolute path of an installed file, given relative to the data folder (for example "velt-admin-repo/x"): beside
 * the running program first, so that a tree installed to any prefix finds its own files, then in the system's data
 * folders. Empty when there is none.
 */
QString veltDataFile(const QString &relativePath);
