// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

/**
 * The meaning of reprepro's output. Its exit codes overlap, and 0 also means "nothing done". So the text of the error
 * output decides; it is never translated.
 */
namespace ReproAnswer
{
/** The repository could not be signed, but the packages were added. */
bool signingFailed(const QString &errorOutput);
/** The package has no Priority field, and no priority was given. */
bool priorityMissing(const QString &errorOutput);
/** The repository does not have the component of the package. */
bool componentMissing(const QString &errorOutput);
/** The repository has the component, but not for installer packages. */
bool componentWithoutUdebs(const QString &errorOutput);
/** The run succeeded but skipped the file, because the repository has an equal or newer version. */
bool inclusionSkipped(const QString &errorOutput);
/** Another run holds the lock of the database, or a killed run has left it behind. */
bool databaseLocked(const QString &errorOutput);
/** The database could not be written or is damaged. The effect of the run is not known, whatever its exit code. */
bool databaseTroubled(const QString &errorOutput);
/** The database has changed, but not the indices below dists. */
bool indicesOutdated(const QString &errorOutput);
/** A file could not be written because the disk or the quota is full. */
bool diskFull(const QString &errorOutput);
/** The parts with packages that are not in the description, as reported by clearvanished without --delete. */
QStringList vanishedParts(const QString &output);
/** The package to remove was not in the repository. */
bool nothingRemoved(const QString &errorOutput);
/** The pool already has a file of this name with other contents. */
bool otherFileInPool(const QString &errorOutput);
/** The packages that a run has added, as place() names them. The run must have had the option --verbosedb. */
QSet<QString> addedPlaces(const QString &output);
/** A name for the package in its place of the database. */
QString
place(const QString &codename, const QString &component, const QString &architecture, const QString &name);
} // namespace ReproAnswer
