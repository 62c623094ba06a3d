// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

/** One member of the archives in a package. */
struct DebFile
{
    QByteArray path; ///< without "./" at its start
    char type = '0'; ///< as in tar(5): '0' a file, '2' a symbolic link, '5' a folder
    QByteArray mode; ///< octal digits
    qint64 size = 0; ///< of the contents, in bytes
    QByteArray sha256; ///< of a file's contents, in hexadecimal digits
    QByteArray target; ///< of a link
    QByteArray contents; ///< of a file whose contents were asked for, up to LargestKept bytes

    static constexpr qint64 LargestKept = 4 << 20;

    bool operator==(const DebFile &other) const
    {
        return path == other.path && type == other.type && mode == other.mode && size == other.size
               && sha256 == other.sha256 && target == other.target;
    }
};

/** What a package holds: the files that dpkg unpacks, and those that control the installation. */
struct DebFiles
{
    QVector<DebFile> files;
    QVector<DebFile> control;
    bool isWhole = false; ///< everything was read
    bool isTooLarge = false; ///< reading ended at a limit

    /** Whether the contents of the file at this path are kept. */
    using Keep = std::function<bool(const QByteArray &path)>;

    /**
     * Reads the whole package, until `stopped` answers true: not for the interface thread. A package that unpacks to
     * more than 8 GiB, or holds more than 200,000 files or 64 MiB of paths, is not read to its end. With `keep`, the
     * contents of all control files are kept, and those of the files that it chooses, up to 32 MiB together.
     */
    static DebFiles of(const QString &fileName, const std::function<bool()> &stopped, const Keep &keep = {});
};
