// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct JobContext;

/** What others have changed in a repository between two jobs of this program. */
namespace OutsideChange
{
/**
 * Makes a restore point of it, when a repository is read. Takes the lock of the job for it. Does nothing while
 * another job works, after one that was interrupted, and where the repository belongs to somebody else.
 */
void note(JobContext &context);
} // namespace OutsideChange
