// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/repositoryaccess.h"

#include "files/regularfile.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

QString RepositoryAccess::refusal(const QString &repoPath)
{
    for (const char *name : {"conf/distributions",
                             "conf/options",
                             "packages.conf",
                             "db/version",
                             "db/packages.db",
                             "db/references.db",
                             "db/checksums.db"}) {
        const QString reason = RegularFile::refusal(repoPath + QLatin1Char('/') + QLatin1String(name));
        if (!reason.isEmpty())
            return reason;
    }
    return {};
}

bool RepositoryAccess::mayWrite(const QString &repoPath)
{
    const QStringList folders{QStringLiteral("/db"), QStringLiteral("/dists"), QStringLiteral("/pool")};
    return std::all_of(folders.cbegin(), folders.cend(), [&repoPath](const QString &name) {
        const QFileInfo folder(repoPath + name);
        return folder.exists() ? folder.isWritable() : QFileInfo(repoPath).isWritable();
    });
}
