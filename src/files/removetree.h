// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// Deleting of folders with all that is in them. Of a link the link alone goes: everything is done on open folders, so
// that a folder whose place is taken by a link meanwhile leads nowhere else. What is mounted inside stays. All answer
// true when nothing is left, also when there was nothing; false when something is left. They go on after a failure.

/** Deletes what lies at the path. The folders above it may be named through links. */
bool removeTree(const QString &path);

/** Deletes what `relative` names in the folder; false when the way from the folder to it goes through a link. */
bool removeBelow(const QString &folder, const QString &relative);

/** Deletes what has this name in the open folder. */
bool removeEntry(int folder, const QByteArray &name);

/** Deletes what is in the open folder, but for what has the name `except`. The folder must be open for reading. */
bool removeContents(int folder, const QByteArray &except = {});
