// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "files/scratchfolder.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>

/** The files that a preview was made from. */
struct PreviewSource
{
    /** A file at the time of the preview. */
    struct File
    {
        qint64 size = -1; ///< in bytes; negative when it could not be read
        qint64 changed = 0; ///< nanoseconds since 1970: of its contents, and of its inode
        qint64 inodeChanged = 0;
        quint64 inode = 0;
        QByteArray sha256; ///< in hexadecimal digits; empty when the file was not read

        static File of(const QString &path);
    };

    QStringList files; ///< in the order in which they go in
    QHash<QString, File> states; ///< by path
    QList<PackageInfo> fetched; ///< what has to be fetched
    QHash<QString, QString> shownNames; ///< names that the user knows, by path
    std::shared_ptr<ScratchFolder> folder; ///< holds unpacked files; null when there are none

    /** Takes the folder over. It is deleted with the last copy of the preview, on another thread. */
    void keepFolder(std::unique_ptr<ScratchFolder> unpacked);
    /** Whether all files are still those of the preview. Reads files that look changed. */
    bool isCurrent() const;
};
