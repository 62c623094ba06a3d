// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>
#include <QStringList>

/** What the description of a repository must satisfy before it is created or changed. */
namespace NewRepoRules
{
enum class Refusal {
    None,
    MissingField, ///< a field that is needed is empty
    ArchitectureAll, ///< "all" is no architecture that a repository can have
    BadPath, ///< the parent folder is not an absolute path
    BadName ///< the name would lead to another folder, or is none for a distribution
};

/** The repository's directory: `name` in the folder `parent`, without doubled or trailing slashes. */
QString fullPath(const QString &parent, const QString &name);

/** The first rule that the fields break. */
Refusal check(const QString &parent, const RepoInfo &info);

/** A name for the repository that gets what is in this archive or folder. */
QString importName(const QString &source);

/** The entries of a file of choices, separated by line ends or blanks; `defaults` when it has none. */
QStringList choices(const QString &fileText, const QStringList &defaults);

QStringList defaultArchitectures();
QStringList defaultComponents();
} // namespace NewRepoRules
