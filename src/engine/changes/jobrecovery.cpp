// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobrecovery.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/packagebackup.h"
#include "engine/changes/packageinclusion.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/repositoryinspection.h"
#include "engine/repository/vanishedindices.h"
#include "engine/reprepro/databasecopy.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/privateconfig.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/removetree.h"
#include "signing/signedpackages.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <cstdio>

namespace
{

bool isUnfinished(const QString &repoPath)
{
    return DatabaseCopy::exists(repoPath) || ExportSession::isExportOwed(repoPath)
           || !PackageBackup::leftovers(repoPath).isEmpty();
}
} // namespace

QStringList JobRecovery::linesOf(const QString &text)
{
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool JobRecovery::mayRun(const QString &repoPath)
{
    if (!isUnfinished(repoPath) && !DatabaseCopy::isUnfinished(repoPath))
        return false;
    if (!m_context.lock(repoPath)) {
        m_context.critical(
            tr("The repository %1 is being changed by another program. Try again when it is done.")
                .arg(repoPath),
            QString(),
            WARNING);
        return false;
    }
    const bool isOwn = RepositoryInspection::belongsToUser(repoPath);
    // Whoever had the lock may have finished meanwhile.
    if (!isUnfinished(repoPath)) {
        if (isOwn)
            DatabaseCopy::drop(repoPath);
        return false;
    }
    // A job that ends takes both away, also when it could not write the indices.
    m_isInterrupted = DatabaseCopy::exists(repoPath) || DatabaseCopy::isLost(repoPath)
                      || !PackageBackup::leftovers(repoPath).isEmpty();
    const QString question
        = m_isInterrupted
              ? tr("A job on the repository %1 was interrupted. It belongs to another user. "
                   "Do you want to bring it in order now?")
              : tr("The indices of the repository %1 are not up to date. It belongs to another user. "
                   "Do you want to write them now?");
    // A yes to what its settings name is one to finishing the job too.
    const Admission::Verdict verdict = m_context.admission(repoPath).verdict();
    if (verdict == Admission::Approved
        || (verdict == Admission::NothingNamed
            && (isOwn || m_context.ask(tr("Opening repository"), question.arg(repoPath), false))))
        return true;
    tellOfOldIndices(m_context.admission(repoPath).reason());
    return false;
}

void JobRecovery::tellOfOldIndices(const QString &details)
{
    m_context.critical(
        m_isInterrupted
            ? tr("An earlier job was interrupted, and the indices of the repository could not be "
                 "brought up to date. The packages shown may not be all that it holds.")
            : tr("The indices of the repository could not be brought up to date. The packages shown "
                 "may not be all that it holds."),
        details,
        WARNING);
}

void JobRecovery::begin(const QString &repoPath)
{
    m_mayRun = mayRun(repoPath);
    if (!m_mayRun) {
        m_context.unlock();
        return;
    }
    if (!DatabaseCopy::description(repoPath) || RepoLock::state(repoPath) == RepoLock::State::Held)
        return;
    DatabaseCopy::condemn(repoPath);
    DatabaseCopy::putDescriptionBack(repoPath);
    m_context.forgetAdmission();
    const Admission &admission = m_context.admission(repoPath);
    m_mayRun = admission.isGranted();
    if (!m_mayRun) {
        tellOfOldIndices(admission.reason());
        m_context.unlock();
    }
}

bool JobRecovery::run()
{
    if (!m_mayRun)
        return false;
    const auto unlocked = qScopeGuard([this] { m_context.unlock(); });
    const QString path = m_context.path();
    const bool hasCopy = DatabaseCopy::exists(path);
    if (DatabaseCopy::isLost(path)) {
        const QString loss
            = tr("An earlier job was interrupted. Its copy of the database lay on another disk, and is not "
                 "there or belongs to another user. Look whether all packages are there.");
        // Whoever has the copy can bring the repository in order as long as its name stands there.
        if (!m_context.ask(tr("Opening repository"),
                           loss + QLatin1Char(' ') + tr("Do you want to give the copy up?"),
                           false)) {
            tellOfOldIndices(loss);
            return false;
        }
        DatabaseCopy::drop(path);
    }
    // A large repository takes seconds; one who has asked for a stop is not told of something new.
    const QString words = m_isInterrupted ? tr("Recovering repository after an interrupted job")
                                          : tr("Writing the indices of the repository");
    if (m_context.isCanceled())
        m_context.noted(words);
    else
        m_context.started(words);
    const bool undoesChange = DatabaseCopy::description(path).has_value();
    // Restoring ends with indices that are right, and so with the marker gone.
    const QStringList files = ExportSession::filesLeft(path);
    if (hasCopy && isDamaged(files)) {
        if (!putDatabaseBack())
            return false;
        if (undoesChange)
            m_context.critical(tr("An earlier change of the repository was interrupted and has been undone. "
                                  "Do it again if it is still wanted."),
                               QString(),
                               WARNING);
        else
            tellOfDamage();
    }
    const QStringList kept = restoreReplaced();
    bool repaired = !ExportSession::isExportOwed(path) || repairPutBack(files);
    if (!repaired && hasCopy && ReproAnswer::databaseTroubled(m_context.lastErrorOutput())
        && putDatabaseBack()) {
        tellOfDamage();
        repaired = repairPutBack(files);
    }
    if (repaired)
        DatabaseCopy::drop(path);
    else
        tellOfOldIndices(m_context.lastErrorOutput());
    if (!kept.isEmpty())
        m_context.critical(
            tr("An earlier job was interrupted while it replaced a package. The replaced files are kept "
               "in %1; add them again if they are missing.")
                .arg(kept.first()),
            QString(),
            WARNING);
    return repaired;
}

bool JobRecovery::repair(const QStringList &filesLeft)
{
    const QString path = m_context.path();
    removeMissing(filesLeft + ExportSession::filesLeft(path));
    // A file whose reference was lost would be deleted with those that nobody needs.
    if (m_context.runReprepro(ReproCommand::rereference()) != 0)
        return false;
    bool isExported = m_context.runReprepro(ReproCommand::exportIndices()) == 0;
    // Without room for the indices, it is the files of packages that the job has taken out which make it.
    if (!isExported && ReproAnswer::diskFull(m_context.lastErrorOutput())) {
        dropFiles(filesLeft + ExportSession::filesLeft(path));
        isExported = m_context.runReprepro(ReproCommand::exportIndices()) == 0;
    }
    if (!isExported)
        return false;
    // Not earlier: the old indices may have named them.
    dropFiles(filesLeft + ExportSession::filesLeft(path));
    ExportSession::clearMarker(path);
    return true;
}

bool JobRecovery::repairPutBack(const QStringList &filesLeft)
{
    const QStringList files = filesLeft + m_goneFiles;
    if (repair(files))
        return true;
    // On a full disk the database that was replaced is what there is too much.
    const QString aside = DatabaseCopy::asideFolder(m_context.path());
    return m_isPutBack && QFile::exists(aside) && removeTree(aside) && repair(files);
}

// --- the database ------------------------------------------------------------------------------------------------

bool JobRecovery::undoJob()
{
    const QString path = m_context.path();
    const QStringList files = ExportSession::filesLeft(path);
    if (!DatabaseCopy::exists(path) || !isDamaged(files))
        return false;
    if (putDatabaseBack()) {
        tellOfDamage();
        restoreReplaced();
        if (repairPutBack(files))
            DatabaseCopy::drop(path);
        showAnew(files);
    }
    return true;
}

bool JobRecovery::undoChange()
{
    const QString path = m_context.path();
    const bool wasDamaged = DatabaseCopy::isCondemned(path);
    DatabaseCopy::setDescriptionDue(path);
    if (!putDatabaseBack())
        return false;
    if (wasDamaged)
        tellOfDamage();
    return repairPutBack({});
}

bool JobRecovery::isDamaged(const QStringList &filesLeft)
{
    const QString path = m_context.path();
    const QString distribution = codename();
    if (DatabaseCopy::isCondemned(path))
        return true;
    // What a job has taken out, it has written down before.
    if (m_context.runReprepro(ReproCommand::listAllFilesIn(DatabaseCopy::folder(path), distribution)) != 0)
        return false;
    const QStringList before = linesOf(m_context.lastOutput());
    if (m_context.runReprepro(ReproCommand::listAllFiles(distribution)) != 0)
        return ReproAnswer::databaseTroubled(m_context.lastErrorOutput());
    const QStringList lines = linesOf(m_context.lastOutput());
    const QSet<QString> now(lines.cbegin(), lines.cend());
    QStringList missing;
    m_goneFiles.clear();
    for (const QString &line : before) {
        const QString file = line.section(QLatin1Char(' '), 3);
        if (now.contains(line) || filesLeft.contains(file))
            continue;
        if (QFile::exists(path + QLatin1Char('/') + file))
            missing.append(line);
        else
            m_goneFiles.append(file);
    }
    return !missing.isEmpty() && isReferenced(missing);
}

bool JobRecovery::isReferenced(const QStringList &lines)
{
    // Whoever takes a package out after the interruption takes its reference out too; one that was lost has left it.
    if (m_context.runReprepro(ReproCommand::dumpReferences()) != 0)
        return true;
    const QStringList listed = linesOf(m_context.lastOutput());
    const QSet<QString> references(listed.cbegin(), listed.cend());
    const QString distribution = codename();
    return std::any_of(lines.cbegin(), lines.cend(), [&](const QString &line) {
        const QString file = line.section(QLatin1Char(' '), 3);
        const QString kind = file.endsWith(QLatin1String(".udeb")) ? QStringLiteral("u|") : QString();
        const QStringList words = line.split(QLatin1Char(' '));
        return references.contains(
            QStringLiteral("%1%2|%3|%4 %5").arg(kind, distribution, words.value(0), words.value(1), file));
    });
}

bool JobRecovery::putDatabaseBack()
{
    const QString path = m_context.path();
    DatabaseCopy::condemn(path);
    // The description that the copy goes with first: without it the database could not be read.
    DatabaseCopy::setDescriptionDue(path);
    const auto undone = DistributionsFile(path).read();
    if (RepoLock::state(path) == RepoLock::State::Held || !DatabaseCopy::putDescriptionBack(path)
        || !DatabaseCopy::putBack(path)) {
        m_context.critical(
            tr("The database of the repository is damaged and could not be put back. Make room "
               "on the disk, and open the repository again."));
        return false;
    }
    const auto inForce = DistributionsFile(path).read();
    // As long as the old indices are there, none of the new ones are ours.
    if (undone && inForce && *undone != *inForce
        && (undone->codename == inForce->codename || !hasIndices(path, inForce->codename)))
        removeVanishedIndices(path, *undone, *inForce);
    m_context.forgetAdmission();
    m_checksums.clear();
    m_isPutBack = true;
    return true;
}

QString JobRecovery::codename() const
{
    // From the file, because that may have been put back since the repository was opened.
    const auto info = DistributionsFile(m_context.path()).read();
    return info ? info->codename : m_context.repoInfo().codename;
}

void JobRecovery::tellOfDamage()
{
    // Where there is no room for both, nothing goes aside.
    const QString aside = DatabaseCopy::asideFolder(m_context.path());
    m_context.critical(
        tr("The database of the repository was damaged while a job changed it. It was put back "
           "as it was before, and what the job had done is undone. Make room on the disk, and "
           "do it again."),
        QFile::exists(aside) ? aside : QString());
}

void JobRecovery::removeMissing(const QStringList &filesLeft)
{
    // A database that was put back still lists what the job had taken out, with its file, for good.
    const QString path = m_context.path() + QLatin1Char('/');
    const bool isMissing = std::any_of(filesLeft.cbegin(), filesLeft.cend(), [&](const QString &file) {
        return !QFile::exists(path + file);
    });
    const QString distribution = codename();
    if (!isMissing || m_context.runReprepro(ReproCommand::listAllFiles(distribution)) != 0)
        return;
    const QSet<QString> left(filesLeft.cbegin(), filesLeft.cend());
    const QStringList lines = linesOf(m_context.lastOutput());
    for (const QString &line : lines) {
        const QString file = line.section(QLatin1Char(' '), 3);
        if (!left.contains(file) || QFile::exists(path + file))
            continue;
        const QStringList words = line.split(QLatin1Char(' '));
        const auto type = file.endsWith(QLatin1String(".udeb")) ? PackageType::Udeb : PackageType::Deb;
        m_context.runReprepro(
            ReproCommand::remove(distribution, {words.value(2)}, words.value(0), words.value(1), &type));
    }
}

void JobRecovery::showAnew(const QStringList &filesLeft)
{
    PackageList &shown = m_context.packages();
    const QList<PackageInfoPtr> old = shown.all();
    QList<PackageInfoPtr> now = listPackages(m_context.path(), m_context.repoInfo());
    sortPackages(&now);
    SignedPackages(SignedPackages::packagesConfPath(m_context.path())).mark(&now);
    QSet<PackageKey> unchanged;
    for (const PackageInfoPtr &package : old) {
        if (!filesLeft.contains(package->filePath().mid(m_context.path().size() + 1))) {
            unchanged.insert(PackageKey::of(*package));
            continue;
        }
        shown.take(PackageKey::of(*package));
        m_context.packageRemoved(package);
    }
    for (const PackageInfoPtr &package : qAsConst(now)) {
        if (unchanged.contains(PackageKey::of(*package)))
            continue;
        shown.append(package);
        m_context.packageAdded(package);
    }
}

// --- files that were left ----------------------------------------------------------------------------------------

void JobRecovery::dropFiles(const QStringList &files)
{
    const QString path = m_context.path();
    if (files.isEmpty() || PrivateConfig::keepsUnreferencedFiles(m_context.admission(path).configFolder()))
        return;
    const auto run = [this](const QString &arguments) { return m_context.runWith(arguments, {}); };
    // The names come from files that lie in the repository, whoever has put them there.
    const auto areOurs
        = [&](const QString &file) { return files.contains(file) && PoolFiles::isInside(path, file); };
    if (!PoolFiles::dropUnused(path, areOurs, run).succeeded())
        return;

    // A copy that was cut short is in no database.
    if (m_context.runReprepro(ReproCommand::listChecksums()) != 0)
        return;
    QSet<QString> known;
    const QStringList lines = linesOf(m_context.lastOutput());
    for (const QString &line : lines)
        known.insert(line.section(QLatin1Char(' '), 0, 0));
    // A run that died can have written its packages without their checksums.
    if (m_context.runReprepro(ReproCommand::listAllFiles(codename())) != 0)
        return;
    const QStringList packages = linesOf(m_context.lastOutput());
    for (const QString &line : packages) {
        const QString file = line.section(QLatin1Char(' '), 3);
        if (!known.contains(file) && QFile::exists(path + QLatin1Char('/') + file))
            m_context.runReprepro(ReproCommand::detect(file));
        known.insert(file);
    }
    for (const QString &file : files)
        if (!known.contains(file) && PoolFiles::isInside(path, file))
            PoolFiles::remove(path, file);
}
