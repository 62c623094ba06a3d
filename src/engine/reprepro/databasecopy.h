// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

/**
 * A copy of a repository's database, kept beside it while a job changes it: reprepro writes in place, and when a write
 * fails it can neither mend its database nor always tell that packages have gone from it. The record of the signed
 * packages goes with it, and while the description of the repository changes, the earlier one does too. A job that
 * makes room on a full disk has its copy on another one (CopyElsewhere).
 */
namespace DatabaseCopy
{
enum class Outcome {
    Made, ///< or there was one, or there is nothing yet to copy
    Locked, ///< somebody else works with the database, or a lock was left behind
    Failed ///< nothing is left of it
};
enum class Place {
    Beside, ///< in the folder of the database
    OtherDisk, ///< on another one when the repository's own has no room for the copy and a job
    Memory ///< which keeps nothing when the power fails
};

/** Holds reprepro's lock meanwhile. Where the folder cannot be written no copy is made: no job can change it either. */
Outcome make(const QString &repoPath, Place place = Place::Beside);
/** The bytes that have to be free on the disk of the repository for a copy beside the database, and a job. */
qint64 roomNeeded(const QString &repoPath);
bool exists(const QString &repoPath);
/** Folder of the copy, for reprepro's --dbdir. */
QString folder(const QString &repoPath);
/** When it was made. */
QDateTime time(const QString &repoPath);

/** Says for whoever opens the repository next that the database must not be used any more. */
void condemn(const QString &repoPath);
bool isCondemned(const QString &repoPath);
/** The copy takes the place of the database, which goes to asideFolder(). When it is cut short it can be done again. */
bool putBack(const QString &repoPath);
/** Where the last database lies that a copy has replaced: it may know of changes that nobody else does. */
QString asideFolder(const QString &repoPath);
void drop(const QString &repoPath);
/** Whether one was killed that made a copy; drop() deletes what is there of it. */
bool isUnfinished(const QString &repoPath);
/** Whether there was one on another disk, which is not there, or not for this user. */
bool isLost(const QString &repoPath);

/**
 * Keeps the description (conf/distributions) that goes with the copy, before another one takes its place; also where
 * there was no database to copy. False when it cannot be written.
 */
bool keepDescription(const QString &repoPath, const QByteArray &bytes);
/** What is kept; none when the database is that of the description in force. */
std::optional<QByteArray> description(const QString &repoPath);
/** The database has followed the new description: from now on the kept one counts no more... */
void setDescriptionDone(const QString &repoPath);
/** ... but when the whole change has to be taken back. */
void setDescriptionDue(const QString &repoPath);
/** The kept description takes the place of the new one; true also when there is none. */
bool putDescriptionBack(const QString &repoPath);
} // namespace DatabaseCopy
