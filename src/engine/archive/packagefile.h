// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>
#include <QFuture>
#include <QQueue>
#include <QStringList>
#include <QThreadPool>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>

/** A package file's control data, or why there are none. */
struct PackageFile
{
    Q_DECLARE_TR_FUNCTIONS(PackageFile)
public:
    QString path;
    PackageInfoPtr package; ///< null when the file cannot be taken into a repository
    QString reason; ///< why, for the user

    /** Runs dpkg and reads the whole file, until `stopped` answers true: not for the interface thread. */
    static PackageFile read(const QString &path, const std::function<bool()> &stopped = {});
};

/** Reads package files ahead of their use, so that dpkg works on the next ones while reprepro takes these in. */
class PackageFileReader
{
public:
    /** `stopped` is asked from several threads. */
    PackageFileReader(QStringList paths, int ahead, std::function<bool()> stopped);
    /** No program of a job outlives it. */
    ~PackageFileReader();
    PackageFileReader(const PackageFileReader &) = delete;
    PackageFileReader &operator=(const PackageFileReader &) = delete;

    /** The next files in their order, `most` or those that are left. */
    QVector<PackageFile> next(int most);

private:
    QStringList m_paths;
    int m_ahead;
    std::shared_ptr<std::atomic<bool>> m_abandoned = std::make_shared<std::atomic<bool>>(false);
    std::function<bool()> m_stopped;
    QThreadPool m_pool; ///< of its own: everything that is read costs the start of a program
    QQueue<QFuture<PackageFile>> m_reading;

    void startNext();
};
