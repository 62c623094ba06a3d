// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Deleting a whole repository. */
namespace RepositoryRemoval
{
/**
 * Deletes the directory `path` with everything in it. Only a directory that is a repository, and holds none of
 * `openRepositories`, is deleted. False, with the reason, when nothing or not everything was deleted. May take long:
 * not for the interface thread.
 */
bool remove(const QString &path, const QStringList &openRepositories, QString *reason);
} // namespace RepositoryRemoval
