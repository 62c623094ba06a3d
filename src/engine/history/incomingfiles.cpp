// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/incomingfiles.h"

#include "engine/history/keptfiles.h"
#include "files/openfolder.h"
#include "files/removetree.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

IncomingFiles::IncomingFiles(const QString &repoPath)
    : m_keptFolder(KeptFiles::folder(repoPath))
    , m_folder(m_keptFolder + QLatin1String("/incoming"))
    , m_isMade(KeptFiles::makeFolder(repoPath))
{
    if (!m_isMade)
        return;
    removeTree(m_folder);
    m_isMade = QDir().mkdir(m_folder);
}

IncomingFiles::~IncomingFiles()
{
    if (!m_isMade)
        return;
    removeTree(m_folder);
    // Where files are kept, this fails.
    QDir().rmdir(m_keptFolder);
}

QString IncomingFiles::add(const QString &path, qint64 limit)
{
    const auto bytes
        = m_isMade ? OpenFolder::readFile(path, limit, OpenFolder::Follow) : std::optional<QByteArray>();
    QString name = QString::number(m_count) + QLatin1String(".deb");
    QFile copy(m_folder + QLatin1Char('/') + name);
    if (!bytes || !copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)
        || copy.write(*bytes) != bytes->size()
        || !copy.setFileTime(QFileInfo(path).lastModified(), QFileDevice::FileModificationTime))
        return {};
    ++m_count;
    return name;
}
