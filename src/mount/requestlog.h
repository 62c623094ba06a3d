// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

/**
 * Takes the log of a server to the standard error output, and no more of it than a maximum size. The server writes to a
 * FIFO: it may not open the log, and newer versions of lighttpd close all other files for a program that they start to
 * write the log.
 */
namespace RequestLog
{
/** The FIFO, in the root directory of the server. */
inline constexpr const char *Path = "/dev/requests";

/** Makes the FIFO at this path, below which the server's root directory is still being made. False with errno set. */
bool make(const char *path);

/**
 * Starts a process that reads the FIFO, with the rights of this user and group. What this process and the programs that
 * it becomes write to the standard error output goes the same way from now on. The reader is no child of the server,
 * because the server does not expect one. It ends when nobody writes any more. False with errno set.
 */
bool start(uid_t user, gid_t group);
} // namespace RequestLog
