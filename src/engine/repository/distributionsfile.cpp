// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/distributionsfile.h"

#include "engine/repository/distributions.h"
#include "files/openfolder.h"
#include "files/regularfile.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

DistributionsFile::DistributionsFile(const QString &repoPath)
    : m_repoPath(repoPath)
    , m_fileName(repoPath + QLatin1String("/conf/distributions"))
{ }

std::optional<RepoInfo> DistributionsFile::read() const
{
    const auto bytes = readBytes();
    if (!bytes)
        return std::nullopt;
    return parsed(*bytes);
}

std::optional<QByteArray> DistributionsFile::readBytes() const
{
    constexpr qint64 LargestDescription = 16 << 20;
    return OpenFolder::readFile(m_fileName, LargestDescription, OpenFolder::Follow);
}

RepoInfo DistributionsFile::parsed(const QByteArray &bytes) const
{
    return Distributions::parse(QString::fromUtf8(bytes), QFileInfo(QDir::cleanPath(m_repoPath)).fileName());
}

bool DistributionsFile::write(const RepoInfo &info) const
{
    const auto old = readBytes();
    if (old && !Distributions::lostLines(QString::fromUtf8(*old), info).isEmpty() && !keep(*old))
        return false;
    return restore(Distributions::text(info).toUtf8());
}

QString DistributionsFile::keptAs(const QByteArray &bytes) const
{
    const QString first = m_fileName + QLatin1String(".orig");
    QString name = first;
    for (int number = 1; QFile::exists(name); ++number) {
        RegularFile kept(name);
        if (kept.open(QIODevice::ReadOnly) && kept.readAll() == bytes)
            break;
        name = QStringLiteral("%1.%2").arg(first).arg(number);
    }
    return QFileInfo(name).fileName();
}

bool DistributionsFile::keep(const QByteArray &bytes) const
{
    const QString name = QFileInfo(m_fileName).dir().filePath(keptAs(bytes));
    return QFile::exists(name) || WholeFile::replace(name, bytes).isEmpty();
}

bool DistributionsFile::restore(const QByteArray &bytes) const
{
    return WholeFile::replace(m_fileName, bytes).isEmpty();
}
