// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Which directories may be served. What a server's files hold of a path is what this lets through. */
namespace PublicationPath
{
/**
 * Whether the path is absolute and clean and made of letters of any script, digits, "/._+~@:-" and blanks inside
 * names: nothing that a unit file or another configuration gives a meaning to.
 */
bool isWellFormed(const QString &path);
/** Whether it lies below /tmp or /var/tmp, of which the helper and the servers have their own. */
bool isTemporary(const QString &path);
/**
 * Whether `path` is well-formed, canonical (no link in it), and an existing directory that holds a repository's
 * conf/distributions. Reads the file system.
 */
bool isPublishable(const QString &path);
} // namespace PublicationPath
