// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/repository/packagelist.h"
#include "files/scratchfolder.h"

#include <QHash>
#include <QString>

#include <memory>

/** A file on its way into the repository, for one or several architectures. */
struct AddedFile
{
    QString path;
    QString shownName; ///< what the user knows the file by: its path, unless it was unpacked or fetched
    bool isLast = false; ///< of the job's files
    QString source = {}; ///< what reprepro gets: the file, or its signed copy; empty until that is known
    QString origin = {}; ///< what the history says of where it came from; can be empty
    QString signingKey = {}; ///< text of the key that had signed the file before; mostly empty
    std::unique_ptr<ScratchFolder> signedFolder = nullptr;
    QHash<PackageKey, RepoEnums::ErrorCode> results
        = {}; ///< of the places that have the file; they can be more than were asked for

    /** The output of a program about the file, with the name that the user knows. */
    QString shownText(QString text) const
    {
        return (source.isEmpty() ? text : text.replace(source, path)).replace(path, shownName);
    }
};
