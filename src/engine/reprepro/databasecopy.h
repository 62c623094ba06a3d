// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

/**
 * A copy of a repository's database, kept while a job changes the database. reprepro writes in place. When a write
 * fails, it cannot repair its database, and cannot always tell which packages are lost. The copy contains the record of
 * the signed packages too and, while the description of the repository changes, the earlier description. When the disk
 * is full, the copy can be on another disk (CopyElsewhere).
 */
namespace DatabaseCopy
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
Outcome make(const QString &repoPath, Place place = Place::Beside);
/** The bytes that must be free on the disk of the repository for a copy beside the database and for a job. */
qint64 roomNeeded(const QString &repoPath);
/** Whether there is a complete copy, made by a user who may change the database. */
bool exists(const QString &repoPath);
/** Folder of the copy, for reprepro's --dbdir. */
QString folder(const QString &repoPath);
/** When the copy was made. */
QDateTime time(const QString &repoPath);

/** Marks the database as unusable. A program that opens the repository later must restore the copy. */
void condemn(const QString &repoPath);
/** Whether condemn() was called and the copy is not restored yet. */
bool isCondemned(const QString &repoPath);
/**
 * Replaces the database with the copy; the database goes to asideFolder(). It can be repeated after an interruption.
 */
bool putBack(const QString &repoPath);
/** The folder for the last database that a copy has replaced. It may contain changes that exist nowhere else. */
QString asideFolder(const QString &repoPath);
/** Deletes the copy and the remainders of unfinished copies. */
void drop(const QString &repoPath);
/** Whether a program was killed while it made a copy; drop() deletes the remainder. */
bool isUnfinished(const QString &repoPath);
/** Whether the copy was on another disk and is not there, or not accessible to this user. */
bool isLost(const QString &repoPath);

/**
 * Stores the description (conf/distributions) that belongs to the copy, before a new description replaces it. Works
 * also without a copy of the database. False when it cannot be written.
 */
bool keepDescription(const QString &repoPath, const QByteArray &bytes);
/** The stored description; none when the database belongs to the present description. */
std::optional<QByteArray> description(const QString &repoPath);
/** Call it when the database belongs to the new description: the stored one is no longer used. */
void setDescriptionDone(const QString &repoPath);
/** Makes the stored description valid again, because the whole change is undone. */
void setDescriptionDue(const QString &repoPath);
/** Replaces the new description with the stored one. True also when nothing is stored. */
bool putDescriptionBack(const QString &repoPath);
} // namespace DatabaseCopy
