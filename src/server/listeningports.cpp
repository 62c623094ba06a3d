// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/listeningports.h"

#include <QFile>
#include <QList>

QSet<int> ListeningPorts::parse(const QByteArray &table)
{
    QSet<int> ports;
    const QList<QByteArray> lines = table.split('\n');
    for (const QByteArray &line : lines) {
        // "sl: address:port remote:port state ...", in hexadecimal digits; 0A is TCP_LISTEN.
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() < 4 || words.at(3) != "0A")
            continue;
        const QByteArray &local = words.at(1);
        // The conversion gives 0 for a word that is no port.
        const int port = local.mid(local.lastIndexOf(':') + 1).toUShort(nullptr, 16);
        if (port > 0)
            ports += port;
    }
    return ports;
}

QSet<int> ListeningPorts::read()
{
    QSet<int> ports;
    for (const char *name : {"/proc/net/tcp", "/proc/net/tcp6"}) {
        QFile file(QString::fromLatin1(name));
        if (file.open(QIODevice::ReadOnly))
            ports += parse(file.readAll());
    }
    return ports;
}
