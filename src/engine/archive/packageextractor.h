// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
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
    Q_DECLARE_TR_FUNCTIONS(PackageExtractor)
public:
    using StopRequest = std::function<bool()>;
    enum class Result {
        Done,
        NoTar, ///< the file is no tar archive, compressed with gzip or not compressed
        Damaged, ///< also when the packages could not be written, or need too much room; see error()
        Refused, ///< the archive holds much more than it looks like, which was not agreed to
        Stopped
    };
    /** Asked once, when the packages become suspiciously large; gets their size so far and that of the archive. */
    using Consent = std::function<bool(qint64 unpacked, qint64 archive)>;
    /** A few bytes can be made that unpack to as many as one likes. */
    struct Limits
    {
        qint64 leastFree
            = 200 * 1000 * 1000; ///< bytes that stay free, unless it is over half of what was free
        int freeShare = 10; ///< one part in so many of what was free stays so too
        qint64 unasked = 1000 * 1000 * 1000; ///< bytes that are taken without a question...
        int ratio = 20; ///< ... and so many times the archive's size

        /** The bytes that have to stay free where so many were. */
        qint64 keptFree(qint64 free) const { return qMax(free / freeShare, qMin(leastFree, free / 2)); }
    };

    PackageExtractor(QString folder, StopRequest stopped);
    void setConsent(const Consent &consent) { m_consent = consent; }
    void setLimits(const Limits &limits) { m_limits = limits; }

    /** Reads a tar archive. */
    Result extract(const QString &archive);
    /** Copies package files, for archives of other kinds that have been made accessible as a folder. */
    Result copy(const QStringList &files);

    /** The packages, in the order of the archive. */
    QStringList files() const { return m_files; }
    /** By these, the names of the packages in the archive, or of the files that were copied. */
    QHash<QString, QString> members() const;
    /** Names of packages in the archive that are no files there, but links or the like. */
    QStringList passedOver() const { return m_passedOver; }
    QString error() const { return m_error; }

private:
    QString m_folder;
    StopRequest m_stopped;
    Consent m_consent; ///< none when it was given
    Limits m_limits;
    qint64 m_archiveSize = 0; ///< bytes
    qint64 m_written = 0; ///< bytes
    qint64 m_keptFree = -1; ///< bytes; unknown before the first are written
    QStringList m_files;
    QStringList m_passedOver;
    QHash<QByteArray, QString> m_places; ///< by the member's whole name
    QString m_error;

    Result take(TarReader *reader, const QByteArray &member);
    Result write(const QByteArray &member,
                 const std::function<int(char *data, int size)> &read,
                 const std::function<QString()> &readError);
    /** Whether so many more bytes may be written. */
    Result admit(qint64 size);
    QString placeFor(const QByteArray &member);
    Result damaged(const QString &reason);
};
