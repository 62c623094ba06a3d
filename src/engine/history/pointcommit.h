// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QString>

/**
 * Turns the running point into a point of the history. The record, which is written last into the running point, is the
 * commit: after a kill before it the job is undone, after it the next opening finishes the commit.
 */
namespace PointCommit
{
/** Writes the record, with the next number. False when it cannot be written; then the job is not committed. */
bool write(const QString &repoPath, RestorePoint record);
/** Whether the record is written and finish() has still to be called. */
bool isPending(const QString &repoPath);
/**
 * Moves the running point and the kept files into the history. Of a point that is not kept only the record goes in; its
 * kept files go into the newest point with a state. It can be repeated after an interruption. What cannot be moved is
 * deleted, so that no job stays unfinished. Returns the number of the point; 0 when none was made.
 */
int finish(const QString &repoPath);
/** Whether the history has a point with a state, which can need files that later jobs take out. */
bool hasState(const QString &repoPath);
/** Ends a job that leaves no point: the running point goes, and kept files go into the newest point that has any. */
void giveUp(const QString &repoPath);
} // namespace PointCommit
