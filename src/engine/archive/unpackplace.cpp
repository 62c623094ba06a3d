// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/unpackplace.h"

#include "engine/archive/packageextractor.h"
#include "files/freespace.h"
#include "files/scratchfolder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

QStringList UnpackPlace::besideRepository(const QString &repoPath)
{
    // A user who may change the repository may not be allowed to write to the folder that contains it.
    return {QFileInfo(QFileInfo(repoPath).canonicalFilePath()).path(), repoPath};
}

QVector<UnpackPlace::Candidate> UnpackPlace::candidates(const QString &repoPath)
{
    QVector<Candidate> found;
    QStringList folders = QStringList{QDir::tempPath()} + besideRepository(repoPath);
    folders.removeDuplicates();
    for (const QString &folder : std::as_const(folders))
        if (QFileInfo(folder).isWritable() && ScratchFolder::isSafePlace(folder))
            found.append({folder, freeSpace(folder)});
    return found;
}

QString UnpackPlace::choose(const QVector<Candidate> &candidates, qint64 needed)
{
    const auto hasRoom = [needed](const Candidate &candidate) {
        return candidate.free < 0
               || candidate.free - needed >= PackageExtractor::Limits().keptFree(candidate.free);
    };
    const auto chosen = std::find_if(candidates.cbegin(), candidates.cend(), hasRoom);
    return chosen == candidates.cend() ? QString() : chosen->folder;
}
