// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagedrop.h"

#include "core/countof.h"
#include "core/packagenames.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

bool PackageDrop::accepts(const QMimeData *data)
{
    return data != nullptr && data->hasFormat(QStringLiteral("text/uri-list"));
}

QStringList PackageDrop::paths(const QMimeData *data)
{
    QStringList paths;
    if (!accepts(data))
        return paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    paths.removeDuplicates();
    return paths;
}

bool PackageDrop::isPackageName(const QString &path)
{
    return PackageNames::isPackageFile(path);
}

PackageDrop::Packages PackageDrop::packagesAt(const QStringList &paths)
{
    Packages packages;
    for (const QString &path : paths) {
        if (!QFileInfo(path).isDir()) {
            if (isPackageName(path))
                packages.files.append(path);
            continue;
        }
        QStringList found;
        QDirIterator walk(path,
                          {QStringLiteral("*.deb"), QStringLiteral("*.udeb")},
                          QDir::Files | QDir::CaseSensitive,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString file = walk.next();
            if (!PackageNames::isInRestorePoint(file.mid(path.size())))
                found.append(file);
        }
        // The order of a folder's entries depends on the file system.
        found.sort();
        packages.files += found;
        packages.inFolders += countOf(found);
        if (!found.isEmpty())
            packages.folders.append(path);
    }
    packages.files.removeDuplicates();
    return packages;
}
