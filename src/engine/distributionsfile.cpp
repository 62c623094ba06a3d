// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/distributionsfile.h"

#include "engine/distributions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

DistributionsFile::DistributionsFile(const QString &repoPath)
    : m_repoPath(repoPath)
    , m_fileName(repoPath + QLatin1String("/conf/distributions"))
{ }

std::optional<RepoInfo> DistributionsFile::read() const
{
    const auto bytes = readBytes();
    if (!bytes)
        return std::nullopt;
    return Distributions::parse(QString::fromLocal8Bit(*bytes),
                                QFileInfo(QDir::cleanPath(m_repoPath)).fileName());
}

std::optional<QByteArray> DistributionsFile::readBytes() const
{
    QFile file(m_fileName);
    // A folder opens as a file does, but there is nothing to read in it.
    if (!QFileInfo(m_fileName).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

bool DistributionsFile::write(const RepoInfo &info) const
{
    const auto old = readBytes();
    const QString kept = m_fileName + QLatin1String(".orig");
    if (old && Distributions::holdsMore(QString::fromLocal8Bit(*old)) && !QFile::exists(kept)
        && !QFile::copy(m_fileName, kept))
        return false;
    return restore(Distributions::text(info).toLocal8Bit());
}

bool DistributionsFile::restore(const QByteArray &bytes) const
{
    QSaveFile file(m_fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}
