// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSet>

/** The TCP ports of this machine on which some program waits for connections. */
namespace ListeningPorts
{
/** Those in a table of the form of /proc/net/tcp, see proc(5). A line of another form counts for nothing. */
QSet<int> parse(const QByteArray &table);
/** Those of this machine, IPv4 and IPv6. Reads files whose size grows with the number of connections. */
QSet<int> read();
} // namespace ListeningPorts
