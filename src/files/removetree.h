// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// These functions delete folders with all their contents. They delete a link itself, never its target. They work on
// open folders: if somebody replaces a folder by a link meanwhile, the link is not followed. A mount inside a folder
// stays. Each returns true when nothing is left, also when there was nothing, and false when something is left. They
// continue after a failure.

/** Deletes the file or folder at the path. The path of its parent may contain links. */
bool removeTree(const QString &path);

/** Deletes the entry `relative` of the folder. False when a part of the path below the folder is a link. */
bool removeBelow(const QString &folder, const QString &relative);

/** Deletes the entry of this name in the open folder. */
bool removeEntry(int folder, const QByteArray &name);

/** Deletes all entries of the open folder except the entry `except`. The folder must be open for reading. */
bool removeContents(int folder, const QByteArray &except = {});
