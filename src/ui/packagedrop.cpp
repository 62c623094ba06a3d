// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packagedrop.h"

#include <QMimeData>
#include <QUrl>

bool PackageDrop::accepts(const QMimeData *data)
{
    return data != nullptr && data->hasFormat(QStringLiteral("text/uri-list"));
}

QStringList PackageDrop::packageFiles(const QMimeData *data)
{
    QStringList files;
    if (!accepts(data))
        return files;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        const QString file = url.isLocalFile() ? url.toLocalFile() : QString();
        if (file.endsWith(QLatin1String(".deb")) || file.endsWith(QLatin1String(".udeb")))
            files.append(file);
    }
    files.removeDuplicates();
    return files;
}
