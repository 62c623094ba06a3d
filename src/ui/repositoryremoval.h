// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Deleting a whole repository. */
namespace RepositoryRemoval
{
enum class Outcome {
    Deleted,
    Absent, ///< there was nothing to delete: the directory is gone already, or its disk is absent
    Refused ///< nothing or not everything was deleted
};

/**
 * Deletes the directory `path` with everything in it. Only a directory that is a repository, and holds none of
 * `openRepositories`, is deleted. `reason` tells why one is refused. May take long: not for the interface
 * thread.
 */
Outcome remove(const QString &path, const QStringList &openRepositories, QString *reason);
} // namespace RepositoryRemoval
