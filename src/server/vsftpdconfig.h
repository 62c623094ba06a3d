// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

/** The text of vsftpd's configuration file. */
namespace VsftpdConfig
{
/** The one that offers `path` on `port` to everybody, read-only. */
QString text(const QString &path, int port);
/**
 * What is added to the server's unit: it shows what clients may see of the directory that was truly at `path` when it
 * started, whatever is put in its place afterwards, and can do little else. What is shown holds for text() only, also
 * with lines behind it: a server with another configuration is started as ever.
 */
QString guard(const QString &path);
/** Whether it is one that text() gives; any other holds something of the machine's administrator. */
bool isOurs(const QString &config);
/**
 * Whether it offers, to everybody and to nobody else, the directory that `guard` is for: it is one that text() gave,
 * with lines of the administrator's. Users of this machine who are let in use the server for something else.
 */
bool isGuarded(const QString &config, const QString &guard);
/**
 * The lines that the administrator has added to what text() gave, for the next one to end with. Those that give
 * other values to its keys are none of them. Empty for a configuration that is not made of text().
 */
QByteArray additions(const QByteArray &config, const QString &guard);
/** What it offers to everybody; the port is 0 when none is named. */
PublishedRepo read(const QString &config);
/** Whether it speaks of this port. The start of a longer number counts too. */
bool mentionsPort(const QString &config, int port);
} // namespace VsftpdConfig
