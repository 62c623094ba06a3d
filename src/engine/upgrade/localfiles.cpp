// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/localfiles.h"

#include "apt/aptcommands.h"
#include "core/countof.h"
#include "files/regularfile.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace
{
QStringList pathsOf(const QVector<LocalFile> &files)
{
    QStringList paths;
    for (const LocalFile &file : files)
        paths.append(file.path);
    return paths;
}
} // namespace

LocalFiles::LocalFiles(QVector<LocalFile> files, const std::function<bool()> &stopped)
    : m_files(std::move(files))
    , m_reader(pathsOf(m_files), countOf(m_files), stopped, PackageFile::ForIndex)
{ }

bool LocalFiles::suits(const LocalFile &file)
{
    const QFileInfo info(file.path);
    return !file.sha256.isEmpty() && info.isFile() && info.size() <= PackageFile::LargestForIndex;
}

QVector<PackageFile> LocalFiles::wait()
{
    QVector<PackageFile> files = m_reader.next(countOf(m_files));
    for (int i = 0; i < files.size(); ++i)
        if (files.at(i).checksums.sha256 != m_files.at(i).sha256)
            files[i].package.reset();
    return files;
}

PackageFile LocalFiles::copy(const PackageFile &file, const QString &folder)
{
    PackageFile own = file;
    own.path = folder + QLatin1Char('/')
               + AptCommands::fileName(file.package->name, file.package->version, file.package->architecture);
    if (!RegularFile(file.path).copy(own.path))
        return {};
    if (FileChecksums::of(own.path).sha256 == file.checksums.sha256)
        return own;
    QFile::remove(own.path);
    return {};
}
