// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QByteArray;
class QFileDevice;

/**
 * Writing of files that are never found half written. On a full disk QSaveFile alone is not enough: in Qt 5 its
 * commit() does not notice when the last bytes, which stood in its buffer, or a part of a larger block, could not be
 * written, and puts the cut file in the place of the whole one.
 */
namespace WholeFile
{
/** Puts a file with these contents in the place of `path`; the text of the error, empty when it is done. */
QString replace(const QString &path, const QByteArray &contents);
/** Writes everything, past the buffer of the device; false when a part could not be written. */
bool writeOut(QFileDevice &device, const QByteArray &contents);
} // namespace WholeFile
