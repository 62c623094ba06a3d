// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Decides which directories may be wiped or replaced. Nothing is deleted before one of these has agreed. */
namespace PathGuard
{
/**
 * Whether everything below `path` may be deleted, to make room for a repository or with the one that it is: it must be
 * an absolute path, not the root, a folder of the system or a home (or above one), not lie at or above one of
 * `openRepositories` (best given with links resolved, see writtenBelow()), and hold no other repository. Searches
 * folders: not for the interface thread.
 */
bool mayBeWiped(const QString &path, const QStringList &openRepositories);

/**
 * The repositories that lie below `path`, which may be one itself: those a few levels down, and those of `remembered`
 * wherever they are below it. Of these only those that are written as lying there are looked at, see writtenBelow().
 * Sorted. Searches folders: not for the interface thread.
 */
QStringList repositoriesBelow(const QString &path, const QStringList &remembered = {});

/**
 * Those of `paths` that are, as they are written, one of `folders` or lie below one. Touches no file: a path somewhere
 * else may lie on a disk that does not answer.
 */
QStringList writtenBelow(const QStringList &folders, const QStringList &paths);

/** Whether the directory is one of a repository. */
bool isRepository(const QString &path);

/** Whether `a` and `b` are one directory, or one lies inside the other, whatever their spelling. */
bool overlap(const QString &a, const QString &b);

/** The path with links resolved as far as it exists. */
QString resolved(const QString &path);
} // namespace PathGuard
