// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/**
 * Chooses the folder where the packages of an archive are unpacked: the system's temporary folder, which can be small
 * and in memory, or else the folder of the repository or the folder that contains it.
 */
namespace UnpackPlace
{
/** A possible folder. */
struct Candidate
{
    QString folder;
    qint64 free = -1; ///< bytes; negative when the size is not known
};

/** The folders in order of preference. Folders where other users could exchange files are left out. */
QVector<Candidate> candidates(const QString &repoPath);
/**
 * The first folder with enough space for this many bytes and for the space that must stay free; empty when there is
 * none.
 */
QString choose(const QVector<Candidate> &candidates, qint64 needed);
/** Folders where a killed program may have left unpacked packages of this repository. */
QStringList besideRepository(const QString &repoPath);
} // namespace UnpackPlace
