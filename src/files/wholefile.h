// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QByteArray;
class QFileDevice;

/**
 * Writes files so that nobody ever finds a half-written file. QSaveFile alone is not enough on a full disk: in Qt 5 its
 * commit() does not notice when the last bytes of its buffer could not be written, and it replaces the complete file
 * with a truncated one.
 */
namespace WholeFile
{
/** Replaces the file `path` by one with these contents. Returns the error text; empty on success. */
QString replace(const QString &path, const QByteArray &contents);
/** Writes everything and flushes the buffer of the device; false when a part could not be written. */
bool writeOut(QFileDevice &device, const QByteArray &contents);
} // namespace WholeFile
