// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/packagebackup.h"

#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

PackageBackup::PackageBackup(const QString &repoPath, const PackageInfo &package)
    : m_folder(std::make_unique<QTemporaryDir>(repoPath + QLatin1String("/.replaced-XXXXXX")))
{
    const QString source = package.filePath();
    if (!m_folder->isValid() || source.isEmpty())
        return;
    const QString target = m_folder->filePath(package.fileName());
    if (::link(QFile::encodeName(source).constData(), QFile::encodeName(target).constData()) == 0
        || QFile::copy(source, target))
        m_file = target;
}

PackageBackup::~PackageBackup() = default;

void PackageBackup::keep()
{
    m_folder->setAutoRemove(m_file.isEmpty());
}
