// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QIODevice;

/**
 * The messages between starts of the program as bytes: a 32-bit big-endian length and that many bytes of UTF-8, one
 * after the other. Other programs can write to the socket too: nothing of what is read may be trusted.
 */
namespace InstanceFrames
{
/** Longest message in bytes; what claims to be longer is refused before it has come. */
constexpr int LongestMessage = 8 * 1024 * 1024;
constexpr int HeaderSize = 4;

struct Taken
{
    QStringList messages; ///< in their order
    QString fault; ///< for the log: what follows them is no message; otherwise empty
};

/** Takes the whole messages that have come; what may still become one is left. */
Taken take(QIODevice &device);

/** The bytes of a message; none when it is too long to be sent. */
QByteArray frame(const QString &message);
} // namespace InstanceFrames
