// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Decides which directories may be wiped or replaced. Ask one of these functions before a directory is deleted. */
namespace PathGuard
{
/**
 * Whether everything below `path` may be deleted, to make room for a repository or to delete a repository. The path
 * must be absolute. It must not be the root, a folder of the system, a home or a folder above a home. It must not be or
 * contain one of `openRepositories` (best given with links resolved, see writtenBelow()), and must not contain another
 * repository. Searches folders: not for the interface thread.
 */
bool mayBeWiped(const QString &path, const QStringList &openRepositories);

/**
 * The repositories below `path`, sorted; `path` itself may be a repository. Finds repositories a few levels down, and
 * those of `remembered` at any level. Looks only at remembered paths that are below `path` as they are written, see
 * writtenBelow(). Searches folders: not for the interface thread.
 */
QStringList repositoriesBelow(const QString &path, const QStringList &remembered = {});

/**
 * The members of `paths` that are one of `folders` or lie below one, as they are written. Accesses no file, because
 * another path may be on a disk that does not answer.
 */
QStringList writtenBelow(const QStringList &folders, const QStringList &paths);

/** Whether the directory holds a repository. */
bool isRepository(const QString &path);

/** Whether `a` and `b` are the same directory, or one contains the other. Links are resolved. */
bool overlap(const QString &a, const QString &b);

/** The path with all links resolved in its existing part. */
QString resolved(const QString &path);
} // namespace PathGuard
