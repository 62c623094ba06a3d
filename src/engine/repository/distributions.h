// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>
#include <QStringList>

/** Rules of conf/distributions: the contents of a new description, its text, and how the text is parsed. */
namespace Distributions
{
/** The initial description of a new repository for this release; the code name may be empty. */
RepoInfo repoInfoForCodename(const QString &codename);

/** The text of conf/distributions for a description. Of its other lines, those that reprepro accepts with it. */
QString text(const RepoInfo &info);

/** Parses a description; `name` is the display name of the repository. Missing fields stay empty or at their
 *  default. */
RepoInfo parse(const QString &text, const QString &name);

/**
 * The value of the first line "name:value". The first letter of the name may have either case. Empty when there is no
 * such line. The value of Description includes all further lines.
 */
QString fieldValue(const QStringList &lines, const QString &fieldName);

/**
 * The lines of `text` that the new description does not have any more: reprepro would not accept them together with it,
 * or they are not in its otherLines.
 */
QStringList lostLines(const QString &text, const RepoInfo &after);

/** Whether the new description lacks a line of `text` with this field. */
bool losesField(const QString &text, const RepoInfo &after, const QString &fieldName);

/** The value of this field, which may continue on further lines. The case of the name does not matter. */
QString wholeValue(const QString &text, const QString &fieldName);

/** The description without its signature, also without one that RepoInfo cannot hold. */
RepoInfo unsignedInfo(RepoInfo info);

/**
 * The first line that affects the components or architectures and that parse() does not read: a continuation line of a
 * list, or a line that includes another file. Empty when there is none.
 */
QString unreadLine(const QString &text);

/** The number of distributions in the text. Only a repository with one distribution can be changed. */
int distributionCount(const QString &text);
} // namespace Distributions
