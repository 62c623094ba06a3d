// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/repositoryhistory.h"

#include "core/countof.h"
#include "engine/history/pointfolders.h"
#include "engine/history/pointrecord.h"
#include "engine/history/repositorydigest.h"
#include "files/descriptor.h"
#include "files/openfolder.h"
#include "files/removetree.h"
#include "files/renamepath.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

namespace
{
constexpr int NumberDigits = 6;
constexpr int DeepestFolder = 64;
constexpr long ExFatMagic = 0x2011BAB0; // not in the headers of all kernels
/** Ends the name of a folder that is being written, or being deleted. */
const QString UnfinishedSuffix = QStringLiteral(".unfinished");

QString database(const QString &repoPath)
{
    return repoPath + QLatin1String("/db");
}

QString nameOf(int number)
{
    return QString::number(number).rightJustified(NumberDigits, QLatin1Char('0'));
}

/** The number of the point with this folder; 0 when it is none. */
int numberOf(const QByteArray &name)
{
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    return isNumber && number > 0 && name == nameOf(number).toLatin1() ? number : 0;
}

/** The history's folder; not open when there is none, or when it is somebody else's. */
OpenFolder openHistory(const QString &repoPath)
{
    const OpenFolder parent(database(repoPath));
    OpenFolder history = parent.folder("velt-admin-repo.history");
    const auto status = history.status();
    const auto above = parent.status();
    return status && above && PointFolders::isOurs(*status, *above) ? std::move(history) : OpenFolder();
}

/** The numbers of the points, ascending. */
QVector<int> numbersIn(const OpenFolder &history)
{
    QVector<int> numbers;
    const QList<QByteArray> names = history.names();
    for (const QByteArray &name : names)
        if (const int number = numberOf(name))
            numbers.append(number);
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

/** Names of points that were not written, or not deleted to the end. */
QList<QByteArray> leftoversIn(const OpenFolder &history)
{
    QList<QByteArray> leftovers;
    const QList<QByteArray> names = history.isOpen() ? history.names() : QList<QByteArray>();
    const int suffix = countOf(UnfinishedSuffix);
    for (const QByteArray &name : names)
        if (QFile::decodeName(name).endsWith(UnfinishedSuffix) && numberOf(name.chopped(suffix)) > 0)
            leftovers.append(name);
    return leftovers;
}

RestorePoint
readPoint(const OpenFolder &history, int number, const struct stat &database, PointRecord::Part part)
{
    const OpenFolder folder = history.folder(nameOf(number).toLatin1());
    const auto status = folder.status();
    if (status && PointFolders::isOurs(*status, database)) {
        const auto file = folder.read(PointRecord::FileName.toLatin1(), PointRecord::LargestRecord);
        const auto point = file ? PointRecord::fromJson(file->contents, part) : std::nullopt;
        if (point && point->number == number)
            return *point;
    }
    RestorePoint damaged;
    damaged.number = number;
    damaged.isReadable = false;
    damaged.time = QDateTime::fromSecsSinceEpoch(status ? status->st_mtim.tv_sec : 0).toUTC();
    return damaged;
}
} // namespace

RepositoryHistory RepositoryHistory::read(const QString &repoPath, Rows rows, const RepositoryHistory *known)
{
    RepositoryHistory history;
    history.unavailable = obstacle(repoPath);
    const OpenFolder folder = openHistory(repoPath);
    const auto database = OpenFolder(::database(repoPath)).status();
    if (!folder.isOpen() || !database)
        return history;
    QHash<QPair<quint64, quint64>, int> shared;
    const QList<QByteArray> names = folder.names();
    QVector<int> all{0};
    for (const QByteArray &name : names) {
        const int number = numberOf(name);
        const OpenFolder entry = folder.folder(name);
        if (entry.isOpen())
            history.count(entry.descriptor(), number, 0, &shared);
        else if (const auto status = folder.statusOf(name))
            history.m_sizes[0] += status->st_blocks * S_BLKSIZE;
    }
    const QVector<int> numbers = numbersIn(folder);
    for (auto number = numbers.crbegin(); number != numbers.crend(); ++number) {
        const auto status = folder.statusOf(nameOf(*number).toLatin1());
        const quint64 inode = status ? status->st_ino : 0;
        history.m_inodes.insert(*number, inode);
        RestorePoint point;
        if (known != nullptr && known->m_inodes.value(*number) == inode)
            point = known->pointOf(*number);
        if (point.number == 0 || !point.isReadable)
            point = readPoint(folder,
                              *number,
                              *database,
                              rows == WithRows ? PointRecord::Whole : PointRecord::WithoutChanges);
        if (!point.isReadable)
            point.reason = tr("The record of this point is damaged.");
        point.size = history.freedBy({*number});
        history.points.append(point);
        all.append(*number);
    }
    if (const auto status = folder.status())
        history.m_sizes[0] += status->st_blocks * S_BLKSIZE;
    history.size = history.freedBy(all);
    return history;
}

void RepositoryHistory::count(int descriptor,
                              int point,
                              int depth,
                              QHash<QPair<quint64, quint64>, int> *shared)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return;
    m_sizes[point] += status.st_blocks * S_BLKSIZE;
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(::fdopendir(::dup(descriptor)), &::closedir);
    if (!entries || depth > DeepestFolder)
        return;
    while (const dirent *entry = ::readdir(entries.get())) {
        const QByteArray name(entry->d_name);
        if (name == "." || name == ".."
            || ::fstatat(descriptor, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        if (S_ISDIR(status.st_mode)) {
            const Descriptor below(
                ::openat(descriptor, entry->d_name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
            if (below.isOpen())
                count(below.number(), point, depth + 1, shared);
        } else if (status.st_nlink < 2) {
            m_sizes[point] += status.st_blocks * S_BLKSIZE;
        } else {
            const QPair<quint64, quint64> inode(status.st_dev, status.st_ino);
            const auto place = shared->constFind(inode);
            const int index = place == shared->cend() ? countOf(m_shared) : *place;
            if (place == shared->cend()) {
                shared->insert(inode, index);
                m_shared.append({status.st_blocks * S_BLKSIZE, status.st_nlink, {}});
            }
            m_shared[index].points.append(point);
        }
    }
}

qint64 RepositoryHistory::freedBy(const QVector<int> &deleted) const
{
    qint64 bytes = 0;
    const QSet<int> gone(deleted.cbegin(), deleted.cend());
    for (const int point : gone)
        bytes += m_sizes.value(point);
    for (const StoredFile &file : m_shared) {
        const auto names = std::count_if(
            file.points.cbegin(), file.points.cend(), [&gone](int point) { return gone.contains(point); });
        if (static_cast<quint64>(names) == file.links)
            bytes += file.size;
    }
    return bytes;
}

RestorePoint RepositoryHistory::pointOf(int number) const
{
    const auto found = std::find_if(
        points.cbegin(), points.cend(), [number](const auto &point) { return point.number == number; });
    return found == points.cend() ? RestorePoint() : *found;
}

QString RepositoryHistory::folder(const QString &repoPath)
{
    return PointFolders::history(repoPath);
}

QString RepositoryHistory::pointFolder(const QString &repoPath, int number)
{
    return folder(repoPath) + QLatin1Char('/') + nameOf(number);
}

int RepositoryHistory::newestNumber(const QString &repoPath)
{
    const QVector<int> numbers = numbersIn(openHistory(repoPath));
    return numbers.isEmpty() ? 0 : numbers.last();
}

int RepositoryHistory::nextNumber(const QString &repoPath)
{
    // All points may have been deleted.
    return std::max(newestNumber(repoPath), RepositoryDigest::newestNumber(repoPath)) + 1;
}

int RepositoryHistory::newestKept(const QString &repoPath)
{
    const OpenFolder history = openHistory(repoPath);
    const auto above = OpenFolder(database(repoPath)).status();
    const QVector<int> numbers = numbersIn(history);
    const auto kept = std::find_if(numbers.crbegin(), numbers.crend(), [&](int number) {
        return above && readPoint(history, number, *above, PointRecord::WithoutChanges).isKept;
    });
    return kept == numbers.crend() ? 0 : *kept;
}

QString RepositoryHistory::originOf(const QString &repoPath, const QString &path)
{
    const QString ours = folder(repoPath) + QLatin1Char('/');
    if (!path.startsWith(ours))
        return path;
    const int number = numberOf(QFile::encodeName(path.mid(ours.size()).section(QLatin1Char('/'), 0, 0)));
    const QString file = path.mid(ours.size()).section(QLatin1Char('/'), 1);
    const QVector<RestorePoint> all = read(repoPath).points;
    for (const RestorePoint &point : all)
        for (const PackageChange &change : point.changes)
            if (point.number < number && change.after.file == file && !change.origin.isEmpty())
                return change.origin;
    return tr("the state before restore point %1").arg(number);
}

QString RepositoryHistory::obstacle(const QString &repoPath)
{
    struct stat above = {};
    struct stat pool = {};
    if (::stat(QFile::encodeName(database(repoPath)).constData(), &above) != 0)
        return {};
    struct stat present = {};
    if (::lstat(QFile::encodeName(folder(repoPath)).constData(), &present) == 0
        && !PointFolders::isOurs(present, above))
        return tr("The folder of the history is a link or a file, or belongs to another user: %1")
            .arg(folder(repoPath));
    if (::stat(QFile::encodeName(repoPath + QLatin1String("/pool")).constData(), &pool) == 0
        && pool.st_dev != above.st_dev)
        return tr("The folders db and pool of the repository lie on different file systems.");
    struct statfs system = {};
    if (::statfs(QFile::encodeName(database(repoPath)).constData(), &system) == 0
        && (system.f_type == MSDOS_SUPER_MAGIC || system.f_type == ExFatMagic))
        return tr("The file system of the repository has no hard links.");
    return {};
}

int RepositoryHistory::addRecord(const QString &repoPath, RestorePoint point)
{
    point.number = nextNumber(repoPath);
    const QString history = folder(repoPath);
    const QString target = pointFolder(repoPath, point.number);
    const QString unfinished = target + UnfinishedSuffix;
    if (!QDir().mkpath(history) || !PointFolders::isOurs(repoPath, history) || !removeTree(unfinished)
        || !QDir().mkdir(unfinished))
        return 0;
    const QString file = unfinished + QLatin1Char('/') + PointRecord::FileName;
    if (WholeFile::replace(file, PointRecord::toJson(point)).isEmpty() && renamePath(unfinished, target))
        return point.number;
    removeTree(unfinished);
    return 0;
}

RepositoryHistory::Pruning RepositoryHistory::toPrune(const RepositoryHistory &history,
                                                      const HistoryLimits &limits,
                                                      const QDateTime &now)
{
    Pruning pruning;
    // Of a job that took out more than the limit, the way back would be gone at once.
    const auto newest = std::find_if(history.points.cbegin(),
                                     history.points.cend(),
                                     [](const RestorePoint &point) { return point.isKept; });
    const int newestKept = limits.points > 0 && newest != history.points.cend() ? newest->number : 0;
    const auto isTooMuch = [&](const RestorePoint &oldest) {
        return history.points.size() - pruning.points.size() > limits.points
               || (limits.days > 0 && oldest.time.isValid() && oldest.time.addDays(limits.days) < now)
               || history.size - pruning.freed > limits.size;
    };
    for (auto point = history.points.crbegin();
         point != history.points.crend() && point->number != newestKept && isTooMuch(*point);
         ++point) {
        pruning.points.append(point->number);
        pruning.freed = history.freedBy(pruning.points);
    }
    return pruning;
}

bool RepositoryHistory::prune(const QString &repoPath, const Pruning &pruning)
{
    const QString history = folder(repoPath);
    const OpenFolder open = openHistory(repoPath);
    if (!open.isOpen())
        return pruning.isEmpty();
    for (const int number : pruning.points) {
        const QString point = pointFolder(repoPath, number);
        // The state before a point needs files of later points, never of earlier ones.
        if (!PointFolders::isOurs(repoPath, point) || !renamePath(point, point + UnfinishedSuffix))
            return false;
        if (!removeBelow(history, nameOf(number) + UnfinishedSuffix))
            return false;
    }
    bool isClean = true;
    const QList<QByteArray> leftovers = leftoversIn(open);
    for (const QByteArray &name : leftovers)
        isClean = removeBelow(history, QFile::decodeName(name)) && isClean;
    return isClean;
}

bool RepositoryHistory::hasLeftovers(const QString &repoPath)
{
    return !leftoversIn(openHistory(repoPath)).isEmpty();
}

bool RepositoryHistory::prune(const QString &repoPath, const HistoryLimits &limits)
{
    const RepositoryHistory history = read(repoPath, WithoutRows);
    return prune(repoPath, toPrune(history, limits, QDateTime::currentDateTimeUtc()));
}
