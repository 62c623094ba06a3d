// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/**
 * Where the packages of an archive are unpacked: in the system's temporary folder, which can be a small one in memory,
 * or else beside the repository.
 */
namespace UnpackPlace
{
struct Candidate
{
    QString folder;
    qint64 free = -1; ///< bytes; negative when that is not told
};

/** The folders in the order in which they are taken, but for those where others could exchange what lies in them. */
QVector<Candidate> candidates(const QString &repoPath);
/** The first with room for so many bytes, and for what has to stay free; empty when there is none. */
QString choose(const QVector<Candidate> &candidates, qint64 needed);
/** Folders where a killed program may have left what it had unpacked for this repository. */
QStringList besideRepository(const QString &repoPath);
} // namespace UnpackPlace
