// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/archive/filechecksums.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFuture>
#include <QQueue>
#include <QStringList>
#include <QThreadPool>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>

/** The control data of a package file, or the reason why there is none. */
struct PackageFile
{
    Q_DECLARE_TR_FUNCTIONS(PackageFile)
public:
    QString path;
    PackageInfoPtr package; ///< null when the file cannot be added to a repository
    QString reason; ///< text for the user about a null package
    QByteArray control = {}; ///< the bytes of its control file; see ForIndex
    FileChecksums checksums = {}; ///< see ForIndex

    /**
     * Bytes. A run of reprepro that needs the checksums reads the file twice more than an inclusion does, so that they
     * save time for small files only.
     */
    static constexpr qint64 LargestForIndex = 1 << 20;

    enum Purpose {
        ForRecord,
        ForIndex, ///< control and checksums too, unless the file is large or unusual
        ForComparison ///< the same, with the checksums of all files
    };

    /**
     * Reads the whole file, until `stopped` answers true, and runs dpkg where its control data are unusual: not for
     * the interface thread.
     */
    static PackageFile
    read(const QString &path, const std::function<bool()> &stopped = {}, Purpose purpose = ForRecord);
};

/** Reads package files ahead of their use, on all processors, while reprepro takes in those before. */
class PackageFileReader
{
public:
    /** `stopped` is called from several threads. */
    PackageFileReader(QStringList paths,
                      int ahead,
                      std::function<bool()> stopped,
                      PackageFile::Purpose purpose = PackageFile::ForRecord);
    /** Waits until all programs of the job have ended. */
    ~PackageFileReader();
    PackageFileReader(const PackageFileReader &) = delete;
    PackageFileReader &operator=(const PackageFileReader &) = delete;

    /** The next files in their order: `most` files, or all that are left. */
    QVector<PackageFile> next(int most);

private:
    QStringList m_paths;
    int m_ahead;
    PackageFile::Purpose m_purpose;
    std::shared_ptr<std::atomic<bool>> m_abandoned = std::make_shared<std::atomic<bool>>(false);
    std::function<bool()> m_stopped;
    QThreadPool m_pool; ///< own pool, because reading waits for the disk and for dpkg
    QQueue<QFuture<PackageFile>> m_reading;

    void startNext();
};
