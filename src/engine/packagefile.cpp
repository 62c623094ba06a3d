// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/packagefile.h"

#include "depends/dpkgoutput.h"
#include "depends/dpkgutils.h"
#include "engine/debarchive.h"

#include <QFileInfo>
#include <QtConcurrent>

#include <utility>

PackageFile PackageFile::read(const QString &path)
{
    DpkgUtils dpkg;
    if (!dpkg.packageInformation(path))
        return {path, {}, dpkg.errorText()};
    if (debArchiveState(path) != DebArchiveState::Whole)
        return {path, {}, tr("The file is damaged: its end is missing.")};
    const auto type = path.endsWith(QLatin1String(".udeb")) ? PackageType::Udeb : PackageType::Deb;
    if (const auto package = DpkgOutput::packageInfo(dpkg.output(), type))
        return {path, QSharedPointer<PackageInfo>::create(*package), QString()};
    return {path, {}, tr("Its control data lack the package's name, version or architecture.")};
}

PackageFileReader::PackageFileReader(QStringList paths)
    : m_paths(std::move(paths))
{
    startNext();
}

PackageFile PackageFileReader::next()
{
    // When no thread of the pool is free, this reads the file itself.
    PackageFile file = m_reading.result();
    startNext();
    return file;
}

void PackageFileReader::startNext()
{
    if (!m_paths.isEmpty())
        m_reading = QtConcurrent::run(&PackageFile::read, QFileInfo(m_paths.takeFirst()).absoluteFilePath());
}
