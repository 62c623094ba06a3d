// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

/** The configuration file of vsftpd, and the drop-in of its unit. */
namespace VsftpdConfig
{
/** The configuration that offers `path` on `port` to everybody, read-only. */
QString text(const QString &path, int port);
/**
 * The drop-in for the unit of the server. It shows clients the directory that was really at `path` when the server
 * started, even if somebody replaces it later, and takes away most other rights. The mount applies to text() only, also
 * with lines added to it. A server with another configuration starts as usual.
 */
QString guard(const QString &path);
/** Whether the configuration is exactly a result of text(). Any other one contains changes of the administrator. */
bool isOurs(const QString &config);
/**
 * Whether the configuration offers the directory of `guard` to everybody and to nobody else. Then it is a result of
 * text() with lines of the administrator. A server that lets users of this machine log in serves another purpose.
 */
bool isGuarded(const QString &config, const QString &guard);
/**
 * The lines that the administrator has added to a result of text(); the next configuration ends with them. Lines that
 * set a key of text() are left out. Empty for a configuration that is not based on text().
 */
QByteArray additions(const QByteArray &config, const QString &guard);
/** The directory that is offered to everybody; the port is 0 when none is named. */
PublishedRepo read(const QString &config);
/** Whether the configuration contains this port. The start of a longer number matches too. */
bool mentionsPort(const QString &config, int port);
} // namespace VsftpdConfig
