// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QString>
#include <QStringList>

/** Rules of conf/distributions: what a new description holds, how it is written and how it is read back. */
namespace Distributions
{
/** The description that a new repository for this release starts with; the code name may be empty. */
RepoInfo repoInfoForCodename(const QString &codename);

/** The text of conf/distributions for a description. */
QString text(const RepoInfo &info);

/** Reads a description back; `name` is what the repository is shown as. Fields that are absent stay empty. */
RepoInfo parse(const QString &text, const QString &name);

/** The value of the first line "name:value", the name's first letter in either case; empty when there is none.
 *  A Description takes all lines that follow. */
QString fieldValue(const QStringList &lines, const QString &fieldName);

/** The lines that a description of ours has no place for, so that rewriting the file loses them. */
QStringList foreignLines(const QString &text);

/** Whether the value of this field stands in the text, with a value that we do not write. */
bool losesField(const QString &text, const QString &fieldName);

/**
 * The first line that says of the packages' places what parse() does not read: a further line of a list, or an order
 * to include another file. Empty when there is none.
 */
QString unreadLine(const QString &text);

/** How many distributions the text describes; only repositories with one can be changed. */
int distributionCount(const QString &text);
} // namespace Distributions
