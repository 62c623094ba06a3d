// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/pointrestore.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/history/keptfiles.h"
#include "engine/history/runningpoint.h"
#include "engine/recovery/databaseview.h"
#include "engine/recovery/foreignchanges.h"
#include "engine/recovery/indicesrestore.h"
#include "engine/recovery/poolleftovers.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/vanishedindices.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/openfolder.h"
#include "files/removetree.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QSet>

namespace
{
constexpr qint64 LargestPlan = 256 << 20; // bytes
/** The first line of the plan when the indices must be written anew. */
const QByteArray WriteIndices = QByteArrayLiteral("!\n");

QString inPoint(const QString &repoPath, const char *name)
{
    return RunningPoint::folder(repoPath) + QLatin1Char('/') + QLatin1String(name);
}

/** What was found out before anything was put back. */
QString planFile(const QString &repoPath)
{
    return inPoint(repoPath, "plan");
}

/** The description that putDescriptionBack() has replaced. */
QString replacedFile(const QString &repoPath)
{
    return inPoint(repoPath, "distributions.replaced");
}

/** Whether nothing was put back yet. reprepro would make new files in a folder that lacks some. */
bool isWhole(const QString &repoPath)
{
    return QFile::exists(inPoint(repoPath, "checksums.db"))
           && QFile::exists(inPoint(repoPath, "packages.db"));
}
} // namespace

bool PointRestore::putDescriptionBack(const QString &repoPath)
{
    const DistributionsFile description(repoPath);
    const auto present = description.readBytes();
    const bool isReplaced = present && RunningPoint::changesDescription(repoPath)
                            && present != RunningPoint::description(repoPath);
    if (isReplaced && !QFile::exists(replacedFile(repoPath)))
        WholeFile::replace(replacedFile(repoPath), *present);
    return RunningPoint::putDescriptionBack(repoPath);
}

bool PointRestore::run()
{
    const QString path = m_context.path();
    if (RepoLock::state(path) == RepoLock::State::Held) {
        m_context.errors.critical(
            RepoLock::busyText(path), QString(), RepoEnums::CRITICAL, RepoEnums::REPOSITORY_BUSY);
        return false;
    }
    RepoLock::removeUnfinishedFiles(path);
    // The description comes first: without the one that belongs to the copy, the database could not be read.
    if (!putDescriptionBack(path))
        return fail();
    m_context.gate.forget();
    QStringList files = ExportSession::filesLeft(path);
    findOut(files);
    // From here on the database is not used any more, whatever happens.
    RunningPoint::condemn(path);
    // A database whose packages lack their files would lose them. The next opening tries again.
    if (!putFilesBack())
        return false;
    KeptFiles::removePartial(path, files);
    removeNewDatabaseFiles();
    if (!RunningPoint::putDatabaseBack(path))
        return fail();
    const bool hasIndices = putIndicesBack();
    m_foreign.redo(m_context);
    PoolLeftovers leftovers(m_context);
    leftovers.removeMissing(files);
    // A file without use that made room for the job's own was somebody else's.
    const QStringList kept = KeptFiles::list(path);
    files
        = (QSet<QString>(files.cbegin(), files.cend()) - QSet<QString>(kept.cbegin(), kept.cend())).values();
    const bool areWritten = (hasIndices && !m_writesIndices) || writeIndices(files);
    // While the indices on the disk are old, clients may still fetch the files that they name.
    if (areWritten && leftovers.drop(files))
        ExportSession::clearMarker(path);
    else
        ExportSession::setMarker(path);
    // What was damaged, or changed by others, may hold what exists nowhere else.
    if (!m_wasDamaged && m_foreign.isEmpty())
        removeTree(RunningPoint::asideFolder(path));
    // The other way round, after a kill the kept files would be taken for those of a job that stands.
    KeptFiles::drop(path);
    RunningPoint::drop(path);
    return true;
}

bool PointRestore::fail()
{
    m_context.errors.critical(
        tr("The database of the repository is damaged and could not be put back. Make room "
           "on the disk, and open the repository again."));
    return false;
}

void PointRestore::findOut(const QStringList &files)
{
    const QString path = m_context.path();
    m_writesIndices = IndicesRestore::isReleaseReplaced(path);
    if (const auto text = OpenFolder::readFile(planFile(path), LargestPlan)) {
        const bool writes = text->startsWith(WriteIndices);
        m_writesIndices = m_writesIndices || writes;
        m_foreign = ForeignChanges::fromText(writes ? text->mid(WriteIndices.size()) : *text);
        return;
    }
    m_wasDamaged = RunningPoint::isCondemned(path);
    if (isWhole(path)) {
        const auto found = ForeignChanges::find(m_context, files);
        m_wasDamaged = !found;
        m_foreign = found.value_or(ForeignChanges());
        forgetContents();
    }
    m_writesIndices = m_writesIndices || !m_foreign.isEmpty();
    // On a full disk the plan is not kept, which matters only when this is interrupted too.
    WholeFile::replace(planFile(path), (m_writesIndices ? WriteIndices : QByteArray()) + m_foreign.toText());
}

void PointRestore::forgetContents()
{
    // reprepro keeps the list of files of each package by its path below the pool, and a path can get its earlier file
    // back.
    const QString path = m_context.path();
    const QString cache = path + QLatin1String("/db/contents.cache.db");
    if (!QFile::exists(cache))
        return;
    const auto list = [this](const QString &command) {
        return m_wasDamaged ? ProcessResult() : m_context.reprepro.run(command);
    };
    const ProcessResult now = list(ReproCommand::listChecksums());
    const DatabaseView view(path, RunningPoint::folder(path));
    const ProcessResult before
        = view.isMade() ? list(ReproCommand::listChecksumsIn(view.path())) : ProcessResult();
    if (!now.succeeded() || !before.succeeded()) {
        QFile::remove(cache);
        return;
    }
    const auto present = ReproListing::checksums(now.output);
    const auto earlier = ReproListing::checksums(before.output);
    for (auto file = present.cbegin(); file != present.cend(); ++file)
        if (earlier.value(file.key(), *file) != *file)
            m_context.reprepro.run(ReproCommand::forget({file.key()}));
}

void PointRestore::removeNewDatabaseFiles()
{
    // reprepro complains of data, for example of the tracking of packages, that the description does not ask for.
    const QString path = m_context.path();
    if (!isWhole(path))
        return;
    const QDir database(path + QLatin1String("/db"));
    const QStringList files = database.entryList({QStringLiteral("*.db")}, QDir::Files);
    for (const QString &file : files)
        if (!QFile::exists(RunningPoint::folder(path) + QLatin1Char('/') + file)
            && !file.contains(QLatin1String("cache")))
            QFile::remove(database.filePath(file));
}

bool PointRestore::putIndicesBack()
{
    const QString path = m_context.path();
    const DistributionsFile description(path);
    auto bytes = OpenFolder::readFile(replacedFile(path), LargestPlan);
    // A full disk may have had no room for the replaced one.
    if (!bytes)
        bytes = RunningPoint::wantedDescription(path);
    const auto inForce = description.read();
    const RepoInfo replaced = bytes ? description.parsed(*bytes) : inForce.value_or(RepoInfo());
    if (IndicesRestore::putBack(path, replaced.codename))
        return true;
    // While the indices of the old description are there, those of the new one were not ours.
    if (inForce && *inForce != replaced
        && (replaced.codename == inForce->codename || !::hasIndices(path, inForce->codename)))
        removeVanishedIndices(path, replaced, *inForce);
    return false;
}

bool PointRestore::putFilesBack()
{
    const QString path = m_context.path();
    const QStringList kept = KeptFiles::list(path);
    QStringList failed;
    for (const QString &file : kept)
        if (!KeptFiles::putIntoPool(path, KeptFiles::folder(path) + QLatin1Char('/') + file, file))
            failed.append(file);
    if (!failed.isEmpty())
        m_context.errors.critical(tr("Files that an interrupted job had taken out could not be put back."),
                                  failed.join(QLatin1Char('\n')),
                                  RepoEnums::WARNING);
    return failed.isEmpty();
}

bool PointRestore::writeIndices(const QStringList &files)
{
    ProcessResult result;
    const auto write = [&] {
        result = m_context.reprepro.run(ReproCommand::exportIndices());
        // A cache that was cut short would make each later run fail.
        if (!result.succeeded())
            QFile::remove(m_context.path() + QLatin1String("/db/release.caches.db"));
    };
    write();
    // Where the disk has no room for the indices, files that nothing needs and the replaced database make room.
    const QString aside = RunningPoint::asideFolder(m_context.path());
    if (!result.succeeded() && ReproAnswer::diskFull(result.errorOutput)) {
        PoolLeftovers(m_context).drop(files);
        write();
    }
    if (!result.succeeded() && QFile::exists(aside) && removeTree(aside))
        write();
    return result.succeeded();
}
