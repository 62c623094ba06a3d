// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/databaseview.h"

#include "engine/history/pointfolders.h"
#include "files/regularfile.h"
#include "files/removetree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace
{
QString place(const QString &repoPath)
{
    return PointFolders::inDatabase(repoPath, QStringLiteral("velt-admin-repo.reading"));
}
} // namespace

DatabaseView::DatabaseView(const QString &repoPath, const QString &database)
{
    removeLeftovers(repoPath);
    const QDir source(database);
    const QString folder = place(repoPath);
    if (!QDir().mkdir(folder))
        return;
    m_path = folder;
    const QStringList files = PointFolders::databaseFiles(database);
    for (const QString &file : files) {
        const QString link = folder + QLatin1Char('/') + file;
        if (::link(QFile::encodeName(source.filePath(file)).constData(), QFile::encodeName(link).constData())
            != 0)
            RegularFile(source.filePath(file)).copy(link);
    }
}

DatabaseView::~DatabaseView()
{
    if (!m_path.isEmpty())
        removeTree(m_path);
}

bool DatabaseView::hasLeftovers(const QString &repoPath)
{
    return QFileInfo(place(repoPath)).isDir();
}

void DatabaseView::removeLeftovers(const QString &repoPath)
{
    removeTree(place(repoPath));
}
