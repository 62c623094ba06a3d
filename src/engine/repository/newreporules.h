// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>
#include <QStringList>

/** Rules for the description of a repository, checked before it is created or changed. */
namespace NewRepoRules
{
/** The rule that a description violates. */
enum class Refusal {
    None,
    MissingField, ///< a required field is empty
    ArchitectureAll, ///< a repository cannot have the architecture "all"
    BadPath, ///< the parent folder is not an absolute path
    BadName ///< the name leads to another folder, or the code name is not valid
};

/** The repository's directory: `name` in the folder `parent`, without double slashes or a slash at the end. */
QString fullPath(const QString &parent, const QString &name);

/** The first rule that the fields violate. */
Refusal check(const QString &parent, const RepoInfo &info);

/** A repository name for the import of this archive or folder. */
QString importName(const QString &source);

/** The words of a file of choices; `defaults` when it has none. */
QStringList choices(const QString &fileText, const QStringList &defaults);

QStringList defaultArchitectures();
QStringList defaultComponents();
} // namespace NewRepoRules
