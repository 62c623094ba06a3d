// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/** The size and the checksums of a file, as an index of packages lists them: in hexadecimal. */
struct FileChecksums
{
    qint64 size = -1; ///< in bytes; negative when the file was not read
    QByteArray md5;
    QByteArray sha1;
    QByteArray sha256;

    bool isValid() const { return size >= 0; }
    /** Reads the file, until `stopped` answers true. Invalid when it cannot be read. Thread-safe. */
    static FileChecksums of(const QString &path, const std::function<bool()> &stopped = {});
};
