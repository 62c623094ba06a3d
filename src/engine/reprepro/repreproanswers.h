// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/**
 * What a reprepro run says of itself. Its exit codes overlap and 0 also means "nothing done", so the text of its
 * error output decides (always untranslated).
 */
namespace ReproAnswer
{
/** The repository could not be signed; the packages themselves are in. */
bool signingFailed(const QString &errorOutput);
/** The package has no Priority of its own and none was given. */
bool priorityMissing(const QString &errorOutput);
/** The repository does not have the component that the package is for. */
bool componentMissing(const QString &errorOutput);
/** It has the component, but not for packages for the installer. */
bool componentWithoutUdebs(const QString &errorOutput);
/** The run ended well, but left the file out because an equal or newer version is there. */
bool inclusionSkipped(const QString &errorOutput);
/** Another run holds the repository's database, or one that was killed left its lock behind. */
bool databaseLocked(const QString &errorOutput);
/** The database could not be written or is damaged; what the run has done is not certain, whatever its exit code. */
bool databaseTroubled(const QString &errorOutput);
/** The database has changed but the indices below dists have not. */
bool indicesOutdated(const QString &errorOutput);
/** A file could not be written because there is no room for it. */
bool diskFull(const QString &errorOutput);
/** The parts with packages that the description does not name, as clearvanished without --delete reports them. */
QStringList vanishedParts(const QString &output);
/** The package to remove was not there. */
bool nothingRemoved(const QString &errorOutput);
/** A file of that name but with other contents is still in the pool. */
bool otherFileInPool(const QString &errorOutput);
} // namespace ReproAnswer
