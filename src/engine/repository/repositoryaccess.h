// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Whether a repository can be read and written. */
namespace RepositoryAccess
{
/** Why a file that each run of reprepro reads must not be read, for example a pipe; empty when all can be read. */
QString refusal(const QString &repoPath);
/** Whether reprepro can write where it writes for any change. */
bool mayWrite(const QString &repoPath);
} // namespace RepositoryAccess
