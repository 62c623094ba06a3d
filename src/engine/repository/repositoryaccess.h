// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Whether a repository can be read and written. */
namespace RepositoryAccess
{
/** What is wrong with a file that each run of reprepro reads; empty when nothing is. It would wait for a pipe for ever. */
QString refusal(const QString &repoPath);
/** Whether reprepro can write where it writes for any change. */
bool mayWrite(const QString &repoPath);
} // namespace RepositoryAccess
