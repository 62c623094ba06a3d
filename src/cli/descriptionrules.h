// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>
#include <QStringList>

/** The description of a repository as the command line has it: fields with values. */
namespace DescriptionRules
{
/** codename, suite and so on, without the path of the repository. */
QStringList fields();

/** Why the field cannot have this value, for the user; empty when it can. */
QString refusal(const QString &field, const QString &value);

/** Why a repository cannot be at this absolute path with this description, for the user; empty when it can. */
QString refusal(const QString &path, const RepoInfo &info);

/** Sets the field to a value that is not refused. */
void set(RepoInfo *info, const QString &field, const QString &value);
} // namespace DescriptionRules
