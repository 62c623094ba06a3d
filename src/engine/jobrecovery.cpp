// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobrecovery.h"

#include "engine/exportsession.h"
#include "engine/jobcontext.h"
#include "engine/packagebackup.h"
#include "engine/packageinclusion.h"
#include "engine/privateconfig.h"
#include "engine/repreprocommands.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace
{
QStringList linesOf(const QString &text)
{
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
} // namespace

void JobRecovery::run()
{
    const QString path = m_context.path();
    // Restoring ends with indices that are right, and so with the marker gone.
    const QStringList files = ExportSession::filesLeft(path);
    const QStringList kept = restoreReplaced();
    if (ExportSession::isExportOwed(path) && !repair(files))
        m_context.critical(
            tr("An earlier job was interrupted, and the indices of the repository could not be "
               "brought up to date. The packages shown may not be all that it holds."),
            m_context.lastErrorOutput(),
            WARNING);
    if (!kept.isEmpty())
        m_context.critical(
            tr("An earlier job was interrupted while it replaced a package. The replaced files are kept "
               "in %1; add them again if they are missing.")
                .arg(kept.first()),
            QString(),
            WARNING);
}

bool JobRecovery::repair(const QStringList &filesLeft)
{
    const QString path = m_context.path();
    // A file whose reference was lost would be deleted with those that nobody needs.
    if (m_context.runReprepro(ReproCommand::rereference()) != 0
        || m_context.runReprepro(ReproCommand::exportIndices()) != 0)
        return false;
    // Not earlier: the old indices may have named them.
    dropFiles(filesLeft + ExportSession::filesLeft(path));
    ExportSession::clearMarker(path);
    return true;
}

QStringList JobRecovery::restoreReplaced()
{
    QStringList kept;
    const QStringList folders = PackageBackup::leftovers(m_context.path());
    for (const QString &folder : folders)
        if (!restore(folder) || !QDir(folder).removeRecursively())
            kept.append(folder);
    return kept;
}

bool JobRecovery::restore(const QString &folder)
{
    const QString file = PackageBackup::fileIn(folder);
    const QList<PackageInfo> packages = PackageBackup::packagesIn(folder, m_context.path());
    // The file comes last into the folder, and before it is there nothing is taken out.
    if (file.isEmpty() || packages.isEmpty())
        return file.isEmpty() && QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty();
    ExportSession session = m_context.makeSession();
    const bool restored = std::all_of(packages.cbegin(), packages.cend(), [&](const PackageInfo &package) {
        if (isThere(package))
            return isComplete(package, file);
        // A twin for another architecture may have the new file already, and they share one.
        return PackageInclusion(m_context).putBack(package, file, &session)
               || PackageInclusion(m_context).putBack(package, package.filePath(), &session);
    });
    // For repair(): a run that went well has taken the marker away.
    session.oweExport();
    return restored;
}

bool JobRecovery::isThere(const PackageInfo &package)
{
    const QString suffix
        = package.type == PackageType::Udeb ? QStringLiteral(".udeb") : QStringLiteral(".deb");
    m_context.runReprepro(ReproCommand::listFiles(
        m_context.repoInfo().codename, package.name, package.indexComponent, package.architecture));
    const QStringList files = linesOf(m_context.lastOutput());
    return std::any_of(
        files.cbegin(), files.cend(), [&](const QString &file) { return file.endsWith(suffix); });
}

bool JobRecovery::isComplete(const PackageInfo &package, const QString &kept)
{
    // With a full disk a file can go although the database still has its package.
    const QStringList files = linesOf(m_context.lastOutput());
    if (!files.contains(package.poolFile) || QFile::exists(package.filePath()))
        return true;
    return QDir().mkpath(QFileInfo(package.filePath()).path()) && QFile::copy(kept, package.filePath())
           && m_context.runReprepro(ReproCommand::detect(package.poolFile)) == 0;
}

void JobRecovery::dropFiles(const QStringList &files)
{
    const QString path = m_context.path();
    if (files.isEmpty() || PrivateConfig::keepsUnreferencedFiles(path)
        || m_context.runReprepro(ReproCommand::dumpUnreferenced()) != 0)
        return;
    const QStringList unreferenced = linesOf(m_context.lastOutput());
    // Files that others keep in the pool without use are not ours to delete.
    const bool areOurs = std::all_of(unreferenced.cbegin(), unreferenced.cend(), [&](const QString &file) {
        return files.contains(file);
    });
    if (areOurs && !unreferenced.isEmpty())
        m_context.runReprepro(ReproCommand::deleteUnreferenced());

    // A copy that was cut short is in no database.
    if (m_context.runReprepro(ReproCommand::listChecksums()) != 0)
        return;
    QSet<QString> known;
    const QStringList lines = linesOf(m_context.lastOutput());
    for (const QString &line : lines)
        known.insert(line.section(QLatin1Char(' '), 0, 0));
    for (const QString &file : files) {
        if (file.startsWith(QLatin1String("pool/")) && QDir::cleanPath(file) == file && !known.contains(file))
            QFile::remove(path + QLatin1Char('/') + file);
    }
}
