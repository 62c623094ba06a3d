// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/repositorystamp.h"

#include "engine/repository/distributionsfile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <utility>

#include <sys/stat.h>

QByteArray RepositoryStamp::of(const QString &path, const QList<PackageInfoPtr> &packages)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QStringList files;
    const auto databases = QDir(path + QLatin1String("/db")).entryList({QStringLiteral("*.db")}, QDir::Files);
    for (const QString &name : databases)
        files.append(QLatin1String("/db/") + name);
    files << QStringLiteral("/packages.conf") << QStringLiteral("/conf/options");
    for (const QString &file : std::as_const(files)) {
        struct stat status = {};
        const bool isThere = ::stat(QFile::encodeName(path + file).constData(), &status) == 0;
        hash.addData(QStringLiteral("%1 %2 %3 %4\n")
                         .arg(file)
                         .arg(isThere ? static_cast<qint64>(status.st_size) : -1)
                         .arg(static_cast<qint64>(status.st_mtim.tv_sec))
                         .arg(static_cast<qint64>(status.st_mtim.tv_nsec))
                         .toUtf8());
    }
    hash.addData(DistributionsFile(path).readBytes().value_or(QByteArray()));
    for (const PackageInfoPtr &package : packages)
        hash.addData(QStringLiteral("%1 %2 %3 %4\n")
                         .arg(package->name, package->version, package->architecture, package->filePath())
                         .toUtf8());
    return hash.result().toHex();
}
