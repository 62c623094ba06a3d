// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>
#include <QFuture>
#include <QStringList>

/** A package file's control data, or why there are none. */
struct PackageFile
{
    Q_DECLARE_TR_FUNCTIONS(PackageFile)
public:
    QString path;
    PackageInfoPtr package; ///< null when the file cannot be taken into a repository
    QString reason; ///< why, for the user

    /** Runs dpkg: not for the interface thread. */
    static PackageFile read(const QString &path);
};

/** Reads package files one ahead of their use, so that dpkg works on the next while reprepro takes this one in. */
class PackageFileReader
{
public:
    explicit PackageFileReader(QStringList paths);
    /** No program of a job outlives it. */
    ~PackageFileReader() { m_reading.waitForFinished(); }
    PackageFileReader(const PackageFileReader &) = delete;
    PackageFileReader &operator=(const PackageFileReader &) = delete;

    /** The files in their order; to be called once for each. */
    PackageFile next();

private:
    QStringList m_paths;
    QFuture<PackageFile> m_reading;

    void startNext();
};
