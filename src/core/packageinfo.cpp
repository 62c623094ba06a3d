// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packageinfo.h"

#include "core/packagefields.h"

QStringList PackageInfo::depends() const
{
    return PackageField::dependsEntries(control.field("Depends"));
}

QString PackageInfo::filePath() const
{
    QString file = poolFile.isEmpty() ? control.field("Filename") : poolFile;
    if (file.isEmpty() || root.isEmpty())
        return file;
    return root + QLatin1Char('/') + file;
}

QString PackageInfo::fileName() const
{
    const QString file = poolFile.isEmpty() ? control.field("Filename") : poolFile;
    return file.mid(file.lastIndexOf(QLatin1Char('/')) + 1);
}

QString displayFileName(const PackageInfo &package)
{
    const QString file = package.fileName();
    return file.isEmpty() ? package.name : file;
}
