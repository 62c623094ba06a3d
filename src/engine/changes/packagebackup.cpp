// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packagebackup.h"

#include "core/packagenames.h"
#include "files/openfolder.h"
#include "files/regularfile.h"
#include "files/removetree.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

namespace
{
/** Name of the file that describes the packages: one on each line, with tabs between the fields of recordLine(). */
const QString PackagesFile = QStringLiteral("packages");
constexpr int FieldCount = 8;

QString recordLine(const PackageInfo &package)
{
    return QStringList{package.name,
                       PackageNames::suffix(package.type),
                       package.architecture,
                       package.indexComponent,
                       package.component,
                       package.section,
                       package.filePath().mid(package.root.size() + 1),
                       package.signingKey}
        .join(QLatin1Char('\t'));
}
} // namespace

PackageBackup::PackageBackup(const QString &repoPath,
                             const PackageInfo &package,
                             const QList<PackageInfoPtr> &removed)
    : m_folder(std::make_unique<QTemporaryDir>(repoPath + QLatin1String("/.replaced-XXXXXX")))
{
    m_folder->setAutoRemove(false);
    const QString source = package.filePath();
    if (!m_folder->isValid() || source.isEmpty())
        return;
    QFile description(m_folder->filePath(PackagesFile));
    if (!description.open(QIODevice::WriteOnly))
        return;
    for (const PackageInfoPtr &other : removed)
        description.write((recordLine(*other) + QLatin1Char('\n')).toUtf8());
    if (!description.flush())
        return;
    const QString target = m_folder->filePath(package.fileName());
    if (::link(QFile::encodeName(source).constData(), QFile::encodeName(target).constData()) == 0
        || RegularFile(source).copy(target))
        m_file = target;
}

PackageBackup::PackageBackup(PackageBackup &&other) noexcept = default;

PackageBackup::~PackageBackup()
{
    if (m_folder && m_folder->isValid() && !m_isKept)
        removeTree(m_folder->path());
}

void PackageBackup::keep()
{
    m_isKept = !m_file.isEmpty();
}

QStringList PackageBackup::leftovers(const QString &repoPath)
{
    QStringList folders;
    const QStringList names = QDir(repoPath).entryList({QStringLiteral(".replaced-*")},
                                                       QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &name : names)
        folders.append(repoPath + QLatin1Char('/') + name);
    return folders;
}

QList<PackageInfo> PackageBackup::packagesIn(const QString &folder, const QString &repoPath)
{
    constexpr qint64 LargestDescription = 16 << 20;
    const auto description
        = OpenFolder::readFile(folder + QLatin1Char('/') + PackagesFile, LargestDescription);
    if (!description)
        return {};
    QList<PackageInfo> packages;
    const QStringList lines = QString::fromUtf8(*description).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        // Anybody may have written the description, and the repository is written by it.
        if (fields.size() != FieldCount || !fields[6].startsWith(QLatin1String("pool/"))
            || QDir::cleanPath(fields[6]) != fields[6])
            return {};
        PackageInfo package;
        package.name = fields[0];
        package.type = PackageNames::typeOfSuffix(fields[1]);
        package.architecture = fields[2];
        package.indexComponent = fields[3];
        package.component = fields[4];
        package.section = fields[5];
        package.poolFile = fields[6];
        package.signingKey = fields[7];
        package.root = repoPath;
        packages.append(package);
    }
    return packages;
}

QString PackageBackup::fileIn(const QString &folder)
{
    const QStringList files = QDir(folder).entryList({QStringLiteral("*.deb"), QStringLiteral("*.udeb")},
                                                     QDir::Files | QDir::NoSymLinks);
    return files.size() == 1 ? folder + QLatin1Char('/') + files.first() : QString();
}
