// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/databaserestore.h"

#include "engine/changes/jobcontext.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/vanishedindices.h"
#include "engine/reprepro/databasecopy.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"

#include <QFile>
#include <QSet>

#include <algorithm>

bool DatabaseRestore::isDamaged(const QStringList &filesLeft)
{
    const QString path = m_context.path();
    if (DatabaseCopy::isCondemned(path))
        return true;
    const QString distribution = codename(m_context);
    const ProcessResult before
        = m_context.reprepro.run(ReproCommand::listAllFilesIn(DatabaseCopy::folder(path), distribution));
    if (!before.succeeded())
        return false;
    const ProcessResult now = m_context.reprepro.run(ReproCommand::listAllFiles(distribution));
    if (!now.succeeded())
        return ReproAnswer::databaseTroubled(now.errorOutput);
    const auto listed = ReproListing::packages(now.output);
    const QSet<ReproListing::Package> present(listed.cbegin(), listed.cend());
    QVector<ReproListing::Package> missing;
    m_goneFiles.clear();
    for (const ReproListing::Package &package : ReproListing::packages(before.output)) {
        // The job has written down each file before it took the file out.
        if (present.contains(package) || filesLeft.contains(package.file))
            continue;
        if (QFile::exists(path + QLatin1Char('/') + package.file))
            missing.append(package);
        else
            m_goneFiles.append(package.file);
    }
    return !missing.isEmpty() && isReferenced(missing);
}

bool DatabaseRestore::isReferenced(const QVector<ReproListing::Package> &packages)
{
    // A program that takes a package out takes its reference out too. Damage leaves the reference.
    const ProcessResult dumped = m_context.reprepro.run(ReproCommand::dumpReferences());
    if (!dumped.succeeded())
        return true;
    const QStringList lines = ReproListing::files(dumped.output);
    const QSet<QString> references(lines.cbegin(), lines.cend());
    const QString distribution = codename(m_context);
    return std::any_of(packages.cbegin(), packages.cend(), [&](const ReproListing::Package &package) {
        return references.contains(ReproListing::reference(distribution, package));
    });
}

bool DatabaseRestore::putBack()
{
    const QString path = m_context.path();
    DatabaseCopy::condemn(path);
    // The description comes first: without the one that belongs to the copy, the database could not be read.
    DatabaseCopy::setDescriptionDue(path);
    const auto undone = DistributionsFile(path).read();
    if (RepoLock::state(path) == RepoLock::State::Held || !DatabaseCopy::putDescriptionBack(path)
        || !DatabaseCopy::putBack(path)) {
        m_context.errors.critical(
            tr("The database of the repository is damaged and could not be put back. Make room "
               "on the disk, and open the repository again."));
        return false;
    }
    const auto inForce = DistributionsFile(path).read();
    // While the indices of the old description are there, those of the new one were not ours.
    if (undone && inForce && *undone != *inForce
        && (undone->codename == inForce->codename || !hasIndices(path, inForce->codename)))
        removeVanishedIndices(path, *undone, *inForce);
    m_context.gate.forget();
    m_isPutBack = true;
    return true;
}

void DatabaseRestore::tellOfDamage()
{
    // The damaged database is kept aside only where the disk has room for both.
    const QString aside = DatabaseCopy::asideFolder(m_context.path());
    m_context.errors.critical(
        tr("The database of the repository was damaged while a job changed it. It was put back "
           "as it was before, and what the job had done is undone. Make room on the disk, and "
           "do it again."),
        QFile::exists(aside) ? aside : QString());
}

QString DatabaseRestore::codename(const JobContext &context)
{
    const auto info = DistributionsFile(context.path()).read();
    return info ? info->codename : context.repository.info().codename;
}
