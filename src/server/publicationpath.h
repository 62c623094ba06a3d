// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Decides which directories may be served. Only paths that pass here are written to the files of a server. */
namespace PublicationPath
{
/**
 * Whether the path is absolute and clean, and consists of letters of any script, digits, "/._+~@:-" and blanks inside
 * names. No such character has a meaning in a unit file or another configuration.
 */
bool isWellFormed(const QString &path);
/** Whether the path is below /tmp or /var/tmp. The helper and the servers have private instances of these folders. */
bool isTemporary(const QString &path);
/**
 * Whether `path` is well-formed, canonical (without links), and an existing directory with the conf/distributions of a
 * repository. Reads the file system.
 */
bool isPublishable(const QString &path);
} // namespace PublicationPath
