// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSet>

/** The TCP ports of this machine on which a program waits for connections. */
namespace ListeningPorts
{
/** The ports in a table in the format of /proc/net/tcp, see proc(5). Lines in another format are ignored. */
QSet<int> parse(const QByteArray &table);
/** The ports of this machine, IPv4 and IPv6. Reads files whose size grows with the number of connections. */
QSet<int> read();
} // namespace ListeningPorts
