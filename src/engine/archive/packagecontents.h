// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/debfiles.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

/** What a package file holds, for a reader: its list of files, and those of its texts that people read. */
struct PackageContents
{
    /** A text of the package. */
    struct Text
    {
        QString path; ///< in the package; empty: there is none
        QString text;
        bool isCut = false; ///< only the beginning is here
        bool isBinary = false; ///< no text, so nothing of it is here
    };

    QVector<DebFile> files;
    QVector<Text> control; ///< conffiles, maintainer scripts and the other control files
    Text changelog;
    Text copyright;
    QString otherPackage; ///< the package that has the documentation, when this one has only a link to it
    bool isRead = false; ///< false: the file is no package, is damaged, or cannot be read
    bool isCut = false; ///< reading ended at a limit of size or time, and the rest is missing

    /**
     * Reads the package file until `stopped` answers true: not for the interface thread. `package` is its name, which
     * tells its folder of documentation (Debian Policy, 12.3, 12.5 and 12.7). After a minute it ends with what it has.
     */
    static PackageContents
    of(const QString &fileName, const QString &package, const std::function<bool()> &stopped);

    /**
     * The bytes as a text that can be shown: at most 1 MiB in lines of at most 2000 characters, without characters that
     * control a terminal or the direction of writing. Compressed bytes (gzip) are unpacked first.
     */
    static Text readable(const QString &path, const QByteArray &bytes);
};
