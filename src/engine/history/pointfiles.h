// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

/**
 * Finds the pool files of an earlier state. A restore point keeps the files that its job took out of the pool. So a
 * file of the state before a point is in the earliest point from there on that has it, or else in the pool.
 */
class PointFiles
{
public:
    /** Reads the names of the points: not for the interface's thread. */
    explicit PointFiles(const QString &repoPath);

    /** A pool file of an earlier state. */
    struct Wanted
    {
        QString file; ///< path below the repository
        QByteArray sha256; ///< in hexadecimal digits; empty: not known, then the file is not compared
        qint64 size = -1; ///< bytes; negative: not known
    };
    /**
     * The absolute path of the file in the state before `point`. Nothing when it is not there, or is another one: the
     * whole file is read, because anybody may have written to the repository.
     */
    std::optional<QString> fileOf(int point, const Wanted &wanted) const;
    /** The folder of a point; empty when there is none of this number. */
    QString folderOf(int point) const { return m_folders.value(point); }

private:
    QString m_repoPath;
    QMap<int, QString> m_folders; ///< of the points, by number
};
