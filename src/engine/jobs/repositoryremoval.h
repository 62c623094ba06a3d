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

/** Directories of other repositories, with links resolved as far as that is known. */
struct Known
{
    QStringList open; ///< or being made
    QStringList remembered; ///< may be gone
};

/**
 * Why the repository in `path` cannot be deleted; empty when it can, or is gone already. May take long: not for the
 * interface thread.
 */
QString refusal(const QString &path, const Known &known);

/**
 * Deletes the directory `path` with everything in it, unless refusal() has a `reason` against that. What is left after
 * a failure is still a repository, so that it can be deleted again. May take long: not for the interface thread.
 */
Outcome remove(const QString &path, const Known &known, QString *reason);
} // namespace RepositoryRemoval
