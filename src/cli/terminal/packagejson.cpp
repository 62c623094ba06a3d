// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal/packagejson.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonObject>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace
{
/** The record of a package that was added just now comes from its file, which has no sum of itself. */
QString sha256Of(const PackageInfo &package)
{
    const QString listed = package.control.field("SHA256");
    QFile file(package.filePath());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!listed.isEmpty() || !file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return listed;
    return QString::fromLatin1(hash.result().toHex());
}

/** Calls `take` with the name and the value of each member. */
template <typename Take>
void eachMember(const PackageInfo &package, const Take &take)
{
    take("package", package.name);
    take("version", package.version);
    take("architecture", package.architecture);
    take("component", package.indexComponent);
    take("section", package.section);
    take("filename",
         package.root.isEmpty() ? package.fileName() : package.filePath().mid(package.root.size() + 1));
    take("sha256", sha256Of(package));
}
} // namespace

QString shownPackage(const PackageInfo &package)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(package.name, package.version, package.architecture, package.indexComponent);
}

QJsonArray PackageJson::array(const QList<PackageInfoPtr> &packages)
{
    QJsonArray array;
    for (const PackageInfoPtr &package : packages) {
        QJsonObject object;
        eachMember(*package, [&](const char *name, const QString &value) {
            object.insert(QLatin1String(name), value);
        });
        array.append(object);
    }
    return array;
}

QByteArray PackageJson::text(const QList<PackageInfoPtr> &packages)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    writer.StartArray();
    for (const PackageInfoPtr &package : packages) {
        writer.StartObject();
        eachMember(*package, [&](const char *name, const QString &value) {
            writer.Key(name);
            const QByteArray utf8 = value.toUtf8();
            writer.String(utf8.constData(), static_cast<rapidjson::SizeType>(utf8.size()));
        });
        writer.EndObject();
    }
    writer.EndArray();
    return QByteArray(buffer.GetString(), static_cast<int>(buffer.GetSize())) + '\n';
}
