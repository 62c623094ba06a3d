// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/poolleftovers.h"

#include "engine/changes/jobcontext.h"
#include "engine/history/keptfiles.h"
#include "engine/repository/distributionsfile.h"
#include "engine/reprepro/configfolder.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace
{
/** The code name of the description on the disk, which can be an older one than the engine knows. */
QString codenameOf(const JobContext &context)
{
    const auto info = DistributionsFile(context.path()).read();
    return info ? info->codename : context.repository.info().codename;
}

/** What apt calls a file of the pool while it writes it: the name, a dot, and six letters or digits. */
QStringList unfinishedCopies(const QString &repoPath, const QString &file)
{
    static const QRegularExpression ending(QStringLiteral("\\A\\.[A-Za-z0-9]{6}\\z"));
    const QString folder = file.section(QLatin1Char('/'), 0, -2);
    const QString name = file.section(QLatin1Char('/'), -1);
    QStringList copies;
    const QStringList entries
        = QDir(repoPath + QLatin1Char('/') + folder).entryList(QDir::Files | QDir::Hidden);
    for (const QString &entry : entries)
        if (entry.startsWith(name) && ending.match(entry.mid(name.size())).hasMatch())
            copies.append(folder + QLatin1Char('/') + entry);
    return copies;
}
} // namespace

void PoolLeftovers::removeMissing(const QStringList &files)
{
    // A database that was put back would list such a package with its lost file for good.
    const QString path = m_context.path() + QLatin1Char('/');
    const bool isMissing = std::any_of(
        files.cbegin(), files.cend(), [&](const QString &file) { return !QFile::exists(path + file); });
    if (!isMissing)
        return;
    const QString distribution = codenameOf(m_context);
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listAllFiles(distribution));
    if (!listed.succeeded())
        return;
    const QSet<QString> left(files.cbegin(), files.cend());
    for (const ReproListing::Package &package : ReproListing::packages(listed.output)) {
        if (!left.contains(package.file) || QFile::exists(path + package.file))
            continue;
        const PackageType type = package.type();
        m_context.reprepro.run(ReproCommand::remove(
            distribution, {package.name}, package.component, package.architecture, &type));
    }
}

bool PoolLeftovers::drop(const QStringList &files, Fate fate)
{
    const QString path = m_context.path();
    if (files.isEmpty() || ConfigFolder(m_context.gate.admit(path).configFolder()).keepsUnreferencedFiles())
        return true;
    const auto areOurs
        = [&](const QString &file) { return files.contains(file) && PoolFiles::isInside(path, file); };
    const auto run = [this](const QString &arguments) { return m_context.reprepro.run(arguments); };
    PoolFiles::Dropping dropping{run, areOurs};
    if (fate == Keep && KeptFiles::areLinksPossible(path))
        dropping.keep = [&](const QString &file) { return KeptFiles::link(path, file); };
    if (!PoolFiles::dropUnused(path, dropping).succeeded())
        return false;

    // A copy that was cut short is in no database.
    const ProcessResult known = m_context.reprepro.run(ReproCommand::listChecksums());
    if (!known.succeeded())
        return false;
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listAllFiles(codenameOf(m_context)));
    if (!listed.succeeded())
        return false;
    const QHash<QString, QByteArray> checksums = ReproListing::checksums(known.output);
    QSet<QString> needed;
    for (const ReproListing::Package &package : ReproListing::packages(listed.output)) {
        // A run that died can have written its packages without their checksums.
        if (!checksums.contains(package.file) && !needed.contains(package.file)
            && QFile::exists(path + QLatin1Char('/') + package.file))
            m_context.reprepro.run(ReproCommand::detect({package.file}));
        needed.insert(package.file);
    }
    for (const QString &file : files) {
        if (!PoolFiles::isInside(path, file))
            continue;
        const QStringList unfinished = unfinishedCopies(path, file);
        for (const QString &copy : unfinished)
            if (!checksums.contains(copy) && !needed.contains(copy))
                PoolFiles::remove(path, copy);
        if (!checksums.contains(file) && !needed.contains(file))
            PoolFiles::remove(path, file);
    }
    return true;
}
