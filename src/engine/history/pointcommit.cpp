// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/pointcommit.h"

#include "engine/history/keptfiles.h"
#include "engine/history/pointfolders.h"
#include "engine/history/pointrecord.h"
#include "engine/history/repositoryhistory.h"
#include "engine/history/runningpoint.h"
#include "files/openfolder.h"
#include "files/removetree.h"
#include "files/renamepath.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace
{
const QString PoolFolder = QStringLiteral("/pool");

QString recordFile(const QString &repoPath)
{
    return RunningPoint::folder(repoPath) + QLatin1Char('/') + PointRecord::FileName;
}

std::optional<RestorePoint> recordIn(const QString &file, PointRecord::Part part)
{
    const auto bytes = OpenFolder::readFile(file, PointRecord::LargestRecord);
    return bytes ? PointRecord::fromJson(*bytes, part) : std::nullopt;
}

/** Leaves nothing but the record. */
void removeState(const QString &folder)
{
    const QStringList entries
        = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &entry : entries)
        if (entry != PointRecord::FileName)
            removeTree(folder + QLatin1Char('/') + entry);
}

/** The folder of the newest point that has a state; empty when there is none. */
QString newestState(const QString &repoPath)
{
    const int number = RepositoryHistory::newestKept(repoPath);
    return number == 0 ? QString() : RepositoryHistory::pointFolder(repoPath, number);
}

void moveKeptFiles(const QString &repoPath, const QString &point)
{
    // A whole folder at once, so that a kill leaves all files here or there.
    if (renamePath(KeptFiles::folder(repoPath) + PoolFolder, point + PoolFolder))
        return;
    const QStringList files = KeptFiles::list(repoPath);
    for (const QString &file : files) {
        const QString target = point + QLatin1Char('/') + file;
        // The state of the point is older than what was kept since.
        if (!QFileInfo::exists(target) && QDir().mkpath(QFileInfo(target).path()))
            renamePath(KeptFiles::folder(repoPath) + QLatin1Char('/') + file, target);
    }
}
} // namespace

bool PointCommit::write(const QString &repoPath, RestorePoint record)
{
    record.number = RepositoryHistory::nextNumber(repoPath);
    return RunningPoint::exists(repoPath) && !RunningPoint::isCondemned(repoPath)
           && WholeFile::replace(recordFile(repoPath), PointRecord::toJson(record)).isEmpty();
}

bool PointCommit::isPending(const QString &repoPath)
{
    return RunningPoint::exists(repoPath) && !RunningPoint::isCondemned(repoPath)
           && QFileInfo(recordFile(repoPath)).isFile();
}

int PointCommit::finish(const QString &repoPath)
{
    if (!isPending(repoPath))
        return 0;
    const QString source = RunningPoint::folder(repoPath);
    const bool isElsewhere = RunningPoint::isElsewhere(repoPath);
    const auto record
        = recordIn(recordFile(repoPath), isElsewhere ? PointRecord::Whole : PointRecord::WithoutChanges);
    if (isElsewhere) {
        // A killed program can have added it already.
        const bool isNew = record && RepositoryHistory::newestNumber(repoPath) < record->number;
        const int number = isNew ? RepositoryHistory::addRecord(repoPath, *record) : 0;
        RunningPoint::drop(repoPath);
        KeptFiles::drop(repoPath);
        return number;
    }
    if (record && record->isKept) {
        removeTree(source + QLatin1String("/dists"));
        moveKeptFiles(repoPath, source);
    } else {
        removeState(source);
        const QString point = newestState(repoPath);
        if (!point.isEmpty())
            moveKeptFiles(repoPath, point);
    }
    QDir().mkdir(RepositoryHistory::folder(repoPath));
    const int number = RepositoryHistory::nextNumber(repoPath);
    const bool isMoved = record && PointFolders::isOurs(repoPath, RepositoryHistory::folder(repoPath))
                         && renamePath(source, RepositoryHistory::pointFolder(repoPath, number));
    // What cannot go into the history must not stay as an unfinished job.
    RunningPoint::drop(repoPath);
    KeptFiles::drop(repoPath);
    return isMoved ? number : 0;
}

bool PointCommit::hasState(const QString &repoPath)
{
    return !newestState(repoPath).isEmpty();
}

void PointCommit::giveUp(const QString &repoPath)
{
    RunningPoint::drop(repoPath);
    const QString point = newestState(repoPath);
    if (!point.isEmpty())
        moveKeptFiles(repoPath, point);
    KeptFiles::drop(repoPath);
}
