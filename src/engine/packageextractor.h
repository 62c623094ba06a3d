// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

class TarReader;

/**
 * Takes the packages out of an archive in one pass into a folder. Only regular files with the name of a package are
 * taken, and of their names only the last part is used: nothing is written anywhere else, whatever the archive says.
 * The whole archive is read, so that a damaged one is found out before any of its packages is used.
 */
class PackageExtractor
{
public:
    using StopRequest = std::function<bool()>;
    enum class Result {
        Done,
        NoTar, ///< the file is no tar archive, compressed with gzip or not compressed
        Damaged, ///< also when the packages could not be written; see error()
        Stopped
    };

    PackageExtractor(QString folder, StopRequest stopped);

    /** Reads a tar archive. */
    Result extract(const QString &archive);
    /** Copies package files, for archives of other kinds that have been made accessible as a folder. */
    Result copy(const QStringList &files);

    /** The packages, in the order of the archive. */
    QStringList files() const { return m_files; }
    QString error() const { return m_error; }

private:
    QString m_folder;
    StopRequest m_stopped;
    QStringList m_files;
    QHash<QByteArray, QString> m_places; ///< by the member's whole name
    QString m_error;

    Result take(TarReader *reader, const QByteArray &member);
    Result write(const QByteArray &member,
                 const std::function<int(char *data, int size)> &read,
                 const std::function<QString()> &readError);
    QString placeFor(const QByteArray &member);
    Result damaged(const QString &reason);
};
