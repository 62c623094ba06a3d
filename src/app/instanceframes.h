// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QIODevice;

/**
 * The byte format of messages between instances of the program: a 32-bit big-endian length, followed by this number of
 * bytes of UTF-8. Messages follow one another. Other programs can write to the socket too, so nothing that is read may
 * be trusted.
 */
namespace InstanceFrames
{
/** Longest message in bytes. A longer length is refused before its message has arrived. */
constexpr int LongestMessage = 8 * 1024 * 1024;
constexpr int HeaderSize = 4;

/** The result of take(). */
struct Taken
{
    QStringList messages; ///< in the order of arrival
    QString fault; ///< text for the log when invalid data follows the messages; else empty
};

/** Takes the complete messages that have arrived; an incomplete message stays in the device. */
Taken take(QIODevice &device);

/** The bytes of a message; empty when it is too long. */
QByteArray frame(const QString &message);
} // namespace InstanceFrames
