// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Deletes what lies at the path: a folder with all that is in it; of a link the link alone, where
 * QDir::removeRecursively() would empty the folder behind it. True also when there is nothing; false when something
 * is left.
 */
bool removeTree(const QString &path);
