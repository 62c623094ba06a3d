// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/**
 * The restore point of the running job: the repository as it was before the job. reprepro writes its database in place
 * and cannot repair it, so the database is copied before the first change, with the record of the signed packages, the
 * description, and hard links of all index files (reprepro replaces these by rename). After a kill the next opening
 * makes the repository equal to it; a job that ends well turns it into a point of the history (PointCommit). The files
 * that the job takes out of the pool are beside it (KeptFiles).
 *
 * When the disk is full, the copy can be on another disk or in memory (CopyElsewhere). Then it has no index files, and
 * never becomes a point of the history.
 */
namespace RunningPoint
{
/** The result of make(). */
enum class Outcome {
    Made, ///< made, or it existed already, or there is no database yet
    Locked, ///< somebody else uses the database, or a lock was left behind
    Failed ///< no copy was made, and nothing is left of the attempt
};
/** Where the copy is made. */
enum class Place {
    Beside, ///< in the folder of the database
    OtherDisk, ///< on another disk, if the repository's disk has no space for the copy and a job
    Memory ///< in memory; it is lost at a power failure
};

/** Holds reprepro's lock meanwhile. When the folder cannot be written, no copy is made; no job can change it either. */
Outcome make(const QString &repoPath, Place where = Place::Beside);
/** The bytes that must be free on the disk of the repository for a copy beside the database and for a job. */
qint64 roomNeeded(const QString &repoPath);
/** Whether there is a complete copy, made by a user who may change the database. */
bool exists(const QString &repoPath);
/** Folder of the copy, for reprepro's --dbdir. */
QString folder(const QString &repoPath);
/** Whether the copy is on another disk or in memory. */
bool isElsewhere(const QString &repoPath);

/** Marks the database as unusable. A program that opens the repository later must restore the copy. */
void condemn(const QString &repoPath);
/** Whether condemn() was called and the copy is not restored yet. */
bool isCondemned(const QString &repoPath);
/**
 * Replaces the database and the record of the signed packages with the copy; the database goes to asideFolder(). It
 * can be repeated after an interruption. The rest of the copy stays.
 */
bool putDatabaseBack(const QString &repoPath);
/** The folder for the last database that a copy has replaced. It may contain changes that exist nowhere else. */
QString asideFolder(const QString &repoPath);
/** Deletes the copy and the remainders of unfinished copies. Deleting begins with a rename, after which exists() is
 *  false. The kept files stay. */
void drop(const QString &repoPath);
/** Whether a program was killed while it made a copy; drop() deletes the remainder. */
bool isUnfinished(const QString &repoPath);
/** Whether the copy was on another disk and is not there, or not accessible to this user. */
bool isLost(const QString &repoPath);

/** The folder with the hard links of the index files; it stands for dists/ of the repository. Empty when the copy has
 *  none, because the file system has no links or the copy is elsewhere. */
QString indicesFolder(const QString &repoPath);

/** The description (conf/distributions) of the time when the copy was made; none without a copy. */
std::optional<QByteArray> description(const QString &repoPath);
/**
 * Records that the job replaces the description, which this program otherwise leaves to others. Makes a folder for the
 * copy when there is no database. False when it cannot be written.
 */
bool setChangesDescription(const QString &repoPath, const QByteArray &present, const QByteArray &wanted);
/** The description that the job wants, as far as it has one. */
std::optional<QByteArray> wantedDescription(const QString &repoPath);
/** Whether setChangesDescription() was called. */
bool changesDescription(const QString &repoPath);
/** Replaces the description of a job that changes it with the kept one. True also when the job changes none. */
bool putDescriptionBack(const QString &repoPath);
} // namespace RunningPoint
