// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packageinfo.h"

#include "core/packagefields.h"

QStringList PackageInfo::depends() const
{
    std::string buffer;
    const auto field = unfoldedField(control.text(), "Depends", buffer);
    QString value = QString::fromUtf8(field.data(), static_cast<int>(field.size()));
    // In a folded field, a newline can stand for the blank between two entries.
    if (!buffer.empty())
        value = value.simplified().replace(QLatin1String(" ,"), QLatin1String(","));
    return PackageField::dependsEntries(value);
}

QString PackageInfo::ownArchitecture() const
{
    const QString own = control.field("Architecture");
    return own.isEmpty() ? architecture : own;
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
