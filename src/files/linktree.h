// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Makes the folder `to`, which must not exist, with hard links of all files below the folder `from`. Links of the tree
 * stay links and are not followed. False when something could not be linked, for example because the file system has
 * no hard links, or `to` is on another one; then a part of the tree is there.
 */
bool linkTree(const QString &from, const QString &to);
