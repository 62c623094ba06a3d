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

/** Directories of other repositories. */
struct Known
{
    QStringList open; ///< or being made
    QStringList remembered; ///< may be gone
};

/**
 * Deletes the directory `path` with everything in it. Only a directory that is a repository, and holds no other one, is
 * deleted. `reason` tells why one is refused. What is left after a failure is still a repository, so that it can be
 * deleted again. May take long: not for the interface thread.
 */
Outcome remove(const QString &path, const Known &known, QString *reason);
} // namespace RepositoryRemoval
