// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

class TarReader;

/**
 * Unpacks the packages of an archive into a folder, in one pass. It takes only regular files with the name of a
 * package, and uses only the last part of their names. So nothing is written outside the folder, whatever the archive
 * contains. The whole archive is read, so that damage is found before any package is used.
 */
class PackageExtractor
{
    Q_DECLARE_TR_FUNCTIONS(PackageExtractor)
public:
    using StopRequest = std::function<bool()>;
    /** The result of unpacking or copying. */
    enum class Result {
        Done,
        NoTar, ///< the file is not a tar archive, neither with gzip nor without compression
        Damaged, ///< also when the packages could not be written or need too much space; see error()
        Refused, ///< the archive unpacks to much more than its size, and the user did not consent
        Stopped
    };
    /** Called once when the packages become suspiciously large, with their size so far and the size of the archive. */
    using Consent = std::function<bool(qint64 unpacked, qint64 archive)>;
    /** Limits against archives of a few bytes that unpack to any size. */
    struct Limits
    {
        qint64 leastFree
            = 200 * 1000 * 1000; ///< bytes that stay free, but not more than half of the free space
        int freeShare = 10; ///< one part in this number of the free space stays free too
        qint64 unasked = 1000 * 1000 * 1000; ///< bytes that are unpacked without a question
        int ratio = 20; ///< no question below this many times the size of the archive

        /** The bytes that must stay free when `free` bytes are free at the start. */
        qint64 keptFree(qint64 free) const { return qMax(free / freeShare, qMin(leastFree, free / 2)); }
    };

    PackageExtractor(QString folder, StopRequest stopped);
    void setConsent(const Consent &consent) { m_consent = consent; }
    void setLimits(const Limits &limits) { m_limits = limits; }

    /** Reads a tar archive. */
    Result extract(const QString &archive);
    /** Copies package files, for other archives that are mounted as a folder. */
    Result copy(const QStringList &files);

    /** The paths of the packages, in the order of the archive. */
    QStringList files() const { return m_files; }
    /** The names of the packages in the archive, or of the copied files, by the paths in files(). */
    QHash<QString, QString> members() const;
    /** Names of packages in the archive that are links or the like and not files. */
    QStringList passedOver() const { return m_passedOver; }
    QString error() const { return m_error; }

private:
    QString m_folder;
    StopRequest m_stopped;
    Consent m_consent; ///< empty after the user has consented
    Limits m_limits;
    qint64 m_archiveSize = 0; ///< bytes
    qint64 m_written = 0; ///< bytes
    qint64 m_keptFree = -1; ///< bytes that must stay free; negative before the first write
    QStringList m_files;
    QStringList m_passedOver;
    QHash<QByteArray, QString> m_places; ///< by the whole name of the member
    QString m_error;

    Result take(TarReader *reader, const QByteArray &member);
    Result write(const QByteArray &member,
                 const std::function<int(char *data, int size)> &read,
                 const std::function<QString()> &readError);
    /** Whether this many more bytes may be written. */
    Result admit(qint64 size);
    QString placeFor(const QByteArray &member);
    Result damaged(const QString &reason);
};
