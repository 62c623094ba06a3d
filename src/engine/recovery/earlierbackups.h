// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

struct JobContext;

/**
 * Folders in which earlier versions of this program kept the files that a job replaced. A killed job of such a version
 * has left them.
 */
namespace EarlierBackups
{
QStringList folders(const QString &repoPath);
/**
 * Puts those of the files that the database needs back into the pool, and deletes their folders. Returns the folders
 * that are left.
 */
QStringList putBack(JobContext &context);
} // namespace EarlierBackups
