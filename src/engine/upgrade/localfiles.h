// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/packagefile.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

/** A file of a source on this computer, and what apt's list of the source says of it. */
struct LocalFile
{
    QString path;
    QByteArray sha256; ///< in hexadecimal
};

/**
 * Reads files of sources on this computer where they lie, while the job puts in others. Somebody else can change them
 * at any time: so only a run that compares them with their checksums may use them in place.
 */
class LocalFiles
{
public:
    /** Begins. The files are small ones, see suits(). `stopped` is called from several threads. */
    LocalFiles(QVector<LocalFile> files, const std::function<bool()> &stopped);

    /** Whether the file can be read in place. */
    static bool suits(const LocalFile &file);
    /** Waits for the files, in their order. Those that are not what the source lists have no package. */
    QVector<PackageFile> wait();
    /** The same file as a copy of our own in the folder, with apt's name for it; empty when it has changed. */
    static PackageFile copy(const PackageFile &file, const QString &folder);

private:
    QVector<LocalFile> m_files;
    PackageFileReader m_reader;
};
