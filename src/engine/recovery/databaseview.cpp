// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/databaseview.h"

#include "engine/history/pointfolders.h"
#include "files/regularfile.h"
#include "files/removetree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

#include <unistd.h>

namespace
{
QString place(const QString &repoPath)
{
    return PointFolders::inDatabase(repoPath, QStringLiteral("velt-admin-repo.reading"));
}
} // namespace

DatabaseView::DatabaseView(const QString &repoPath, const QString &database)
    : m_path(place(repoPath))
{
    removeLeftovers(repoPath);
    m_isMade = QDir().mkdir(m_path) && fill(m_path, database);
    if (m_isMade)
        return;
    removeTree(m_path);
    m_elsewhere = std::make_unique<QTemporaryDir>();
    m_path = m_elsewhere->path();
    m_isMade = m_elsewhere->isValid() && fill(m_path, database);
}

DatabaseView::~DatabaseView()
{
    if (!m_elsewhere)
        removeTree(m_path);
}

bool DatabaseView::fill(const QString &folder, const QString &database)
{
    const QStringList files = PointFolders::databaseFiles(database);
    return std::all_of(files.cbegin(), files.cend(), [&](const QString &file) {
        const QString source = database + QLatin1Char('/') + file;
        const QString target = folder + QLatin1Char('/') + file;
        return ::link(QFile::encodeName(source).constData(), QFile::encodeName(target).constData()) == 0
               || RegularFile(source).copy(target);
    });
}

bool DatabaseView::hasLeftovers(const QString &repoPath)
{
    return QFileInfo(place(repoPath)).isDir();
}

void DatabaseView::removeLeftovers(const QString &repoPath)
{
    removeTree(place(repoPath));
}
