// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/repositorydigest.h"

#include "engine/history/historydifference.h"
#include "engine/history/pointfolders.h"
#include "engine/history/repositoryhistory.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "files/openfolder.h"
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/renamepath.h"
#include "files/wholefile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr int Version = 1;
constexpr qint64 LargestHead = 16 << 20;
constexpr qint64 LargestRelease = 64 << 20;
constexpr qint64 LargestDescription = 16 << 20;
const QString HeadFile = QStringLiteral("head.json");
const QString Description = QStringLiteral("conf/distributions");
const QString Packages = QStringLiteral("Packages");
/** In the folder of a listing, which must not look like a repository. */
const QString StoredDescription = QStringLiteral("/distributions");
/** A new listing is made beside the old one, and head.json says which of them counts. */
const QStringList Listings{QStringLiteral("indices.a"), QStringLiteral("indices.b")};

/** A file that jobs change, as it was. */
struct Trace
{
    qint64 size = 0;
    qint64 time = 0; ///< of its last change, in nanoseconds
    quint64 inode = 0;
    QString digest; ///< empty for files of the database

    bool isSameFile(const Trace &other) const
    {
        return size == other.size && time == other.time && inode == other.inode;
    }
};
/** By paths below the repository. */
using Traces = QMap<QString, Trace>;

struct Head
{
    int number = 0;
    QString listing;
    Traces files;
};

bool hasDigest(const QString &file)
{
    return !file.startsWith(QLatin1String("db/"));
}

std::optional<Trace> traceOf(const QString &repoPath, const QString &file)
{
    constexpr qint64 NanosecondsInSecond = 1000000000;
    struct stat status = {};
    if (::lstat(QFile::encodeName(repoPath + QLatin1Char('/') + file).constData(), &status) != 0)
        return std::nullopt;
    return Trace{status.st_size,
                 status.st_mtim.tv_sec * NanosecondsInSecond + status.st_mtim.tv_nsec,
                 status.st_ino,
                 {}};
}

/** All that tells whether the repository was touched, without digests. */
Traces tracesOf(const QString &repoPath)
{
    QStringList files{Description};
    const QStringList database = PointFolders::databaseFiles(repoPath + QLatin1String("/db"));
    for (const QString &file : database)
        // reprepro writes this one again and again.
        if (file != QLatin1String("version"))
            files.append(QLatin1String("db/") + file);
    QDirIterator releases(repoPath + QLatin1String("/dists"),
                          {QStringLiteral("Release")},
                          QDir::Files | QDir::NoSymLinks,
                          QDirIterator::Subdirectories);
    while (releases.hasNext())
        files.append(releases.next().mid(repoPath.size() + 1));
    Traces traces;
    for (const QString &file : std::as_const(files))
        if (const auto trace = traceOf(repoPath, file))
            traces.insert(file, *trace);
    return traces;
}

/** Of the contents; of a Release file without its dates: it names the checksums of all indices. */
QString digestOf(const QString &repoPath, const QString &file)
{
    const auto bytes = OpenFolder::readFile(repoPath + QLatin1Char('/') + file, LargestRelease);
    if (!bytes)
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const QList<QByteArray> lines = bytes->split('\n');
    for (const QByteArray &line : lines) {
        if (file == Description || !(line.startsWith("Date:") || line.startsWith("Valid-Until:"))) {
            hash.addData(line);
            hash.addData("\n");
        }
    }
    return QString::fromLatin1(hash.result().toHex());
}

void addDigests(const QString &repoPath, Traces *traces)
{
    for (auto trace = traces->begin(); trace != traces->end(); ++trace)
        if (hasDigest(trace.key()))
            trace->digest = digestOf(repoPath, trace.key());
}

QString inHistory(const QString &repoPath, const QString &name)
{
    return PointFolders::history(repoPath) + QLatin1Char('/') + name;
}

std::optional<Head> readHead(const QString &repoPath)
{
    if (!PointFolders::isOurs(repoPath, PointFolders::history(repoPath)))
        return std::nullopt;
    const auto bytes = OpenFolder::readFile(inHistory(repoPath, HeadFile), LargestHead);
    const QJsonObject json = bytes ? QJsonDocument::fromJson(*bytes).object() : QJsonObject();
    Head head;
    head.number = json.value(QLatin1String("number")).toInt(-1);
    head.listing = json.value(QLatin1String("indices")).toString();
    if (json.value(QLatin1String("version")).toInt() != Version || head.number < 0
        || !(head.listing.isEmpty() || Listings.contains(head.listing)))
        return std::nullopt;
    const QJsonArray files = json.value(QLatin1String("files")).toArray();
    for (const QJsonValue &value : files) {
        const QJsonObject file = value.toObject();
        // Numbers of JSON are not exact enough for nanoseconds.
        head.files.insert(file.value(QLatin1String("path")).toString(),
                          {file.value(QLatin1String("size")).toString().toLongLong(),
                           file.value(QLatin1String("time")).toString().toLongLong(),
                           file.value(QLatin1String("inode")).toString().toULongLong(),
                           file.value(QLatin1String("digest")).toString()});
    }
    return head;
}

bool writeHead(const QString &repoPath, const Head &head)
{
    QJsonArray files;
    for (auto file = head.files.cbegin(); file != head.files.cend(); ++file)
        files.append(QJsonObject{{QStringLiteral("path"), file.key()},
                                 {QStringLiteral("size"), QString::number(file->size)},
                                 {QStringLiteral("time"), QString::number(file->time)},
                                 {QStringLiteral("inode"), QString::number(file->inode)},
                                 {QStringLiteral("digest"), file->digest}});
    const QJsonObject json{{QStringLiteral("version"), Version},
                           {QStringLiteral("number"), head.number},
                           {QStringLiteral("indices"), head.listing},
                           {QStringLiteral("files"), files}};
    // A name of its own, so that a kill leaves nothing that the next writing does not replace.
    const QString fresh = inHistory(repoPath, HeadFile + QLatin1String(".unfinished"));
    QFile::remove(fresh);
    QFile file(fresh);
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::NewOnly)
                           && WholeFile::writeOut(file, QJsonDocument(json).toJson(QJsonDocument::Compact))
                           && ::fsync(file.handle()) == 0;
    file.close();
    if (isWritten && renamePath(fresh, inHistory(repoPath, HeadFile)))
        return true;
    QFile::remove(fresh);
    return false;
}

/**
 * Hard links of all indices, or copies where the file system has none, and a copy of the description, which an editor
 * may write in place.
 */
bool storeIndices(const QString &repoPath, const QString &target)
{
    if (!removeTree(target) || !QDir().mkpath(target + QLatin1String("/dists")))
        return false;
    const auto description = DistributionsFile(repoPath).readBytes();
    if (!description || !WholeFile::replace(target + StoredDescription, *description).isEmpty())
        return false;
    QDirIterator indices(repoPath + QLatin1String("/dists"),
                         {Packages},
                         QDir::Files | QDir::NoSymLinks,
                         QDirIterator::Subdirectories);
    while (indices.hasNext()) {
        const QString file = indices.next();
        const QString link = target + file.mid(repoPath.size());
        if (!QDir().mkpath(QFileInfo(link).path())
            || (::link(QFile::encodeName(file).constData(), QFile::encodeName(link).constData()) != 0
                && !RegularFile(file).copy(link)))
            return false;
    }
    return true;
}

/** The packages as they were, and as they are. Nothing when one of both cannot be read. */
std::optional<QVector<PackageChange>> changesSince(const QString &repoPath, const Head &head)
{
    const QString stored = inHistory(repoPath, head.listing);
    const auto description = head.listing.isEmpty()
                                 ? std::nullopt
                                 : OpenFolder::readFile(stored + StoredDescription, LargestDescription);
    const auto present = DistributionsFile(repoPath).read();
    const auto now = present ? readListing(repoPath, *present) : std::nullopt;
    if (!description || !now)
        return std::nullopt;
    QList<PackageInfoPtr> before = listPackages(stored, DistributionsFile(repoPath).parsed(*description));
    sortPackages(&before);
    return PackageChange::between(before, *now);
}

QVector<RestorePoint> pointsAfter(const QString &repoPath, int number)
{
    if (RepositoryHistory::newestNumber(repoPath) <= number)
        return {};
    QVector<RestorePoint> points = RepositoryHistory::read(repoPath).points;
    points.erase(std::remove_if(points.begin(),
                                points.end(),
                                [number](const RestorePoint &point) { return point.number <= number; }),
                 points.end());
    return points;
}

bool isSameContents(const Traces &before, const Traces &now)
{
    const auto digests = [](const Traces &traces) {
        QMap<QString, QString> contents;
        for (auto trace = traces.cbegin(); trace != traces.cend(); ++trace)
            if (hasDigest(trace.key()))
                contents.insert(trace.key(), trace->digest);
        return contents;
    };
    return digests(before) == digests(now);
}

/** When and by whom, as far as the files tell. */
void addTimeAndUser(const QString &repoPath, const Traces &before, const Traces &now, RestorePoint *point)
{
    for (auto trace = now.cbegin(); trace != now.cend(); ++trace) {
        if (before.contains(trace.key()) && before.value(trace.key()).isSameFile(*trace))
            continue;
        const QFileInfo file(repoPath + QLatin1Char('/') + trace.key());
        const QDateTime time = file.lastModified().toUTC();
        if (!point->time.isValid() || time > point->time) {
            point->time = time;
            point->user = file.owner();
        }
    }
    if (!point->time.isValid())
        point->time = QDateTime::currentDateTimeUtc();
}
} // namespace

bool RepositoryDigest::write(const QString &repoPath)
{
    const QString history = PointFolders::history(repoPath);
    if (!QDir(repoPath + QLatin1String("/db")).exists() || !QDir().mkpath(history)
        || !PointFolders::isOurs(repoPath, history))
        return false;
    const auto old = readHead(repoPath);
    Head head;
    head.number = std::max(RepositoryHistory::newestNumber(repoPath), old ? old->number : 0);
    head.files = tracesOf(repoPath);
    addDigests(repoPath, &head.files);
    head.listing = old && old->listing == Listings.first() ? Listings.last() : Listings.first();
    if (!storeIndices(repoPath, inHistory(repoPath, head.listing))) {
        removeTree(inHistory(repoPath, head.listing));
        head.listing.clear();
    }
    if (!writeHead(repoPath, head))
        return false;
    for (const QString &listing : Listings)
        if (listing != head.listing)
            removeTree(inHistory(repoPath, listing));
    return true;
}

bool RepositoryDigest::isCurrent(const QString &repoPath)
{
    const auto head = readHead(repoPath);
    const Traces now = tracesOf(repoPath);
    return head
           && std::equal(head->files.keyValueBegin(),
                         head->files.keyValueEnd(),
                         now.keyValueBegin(),
                         now.keyValueEnd(),
                         [](const auto &before, const auto &after) {
                             return before.first == after.first && before.second.isSameFile(after.second);
                         });
}

bool RepositoryDigest::noteOutsideChange(const QString &repoPath)
{
    const auto head = readHead(repoPath);
    if (!head) {
        write(repoPath);
        return false;
    }
    if (isCurrent(repoPath))
        return false;
    Traces now = tracesOf(repoPath);
    addDigests(repoPath, &now);
    if (isSameContents(head->files, now)) {
        write(repoPath);
        return false;
    }
    const QVector<RestorePoint> own = pointsAfter(repoPath, head->number);
    RestorePoint outside;
    outside.kind = RestorePoint::Outside;
    outside.changesDescription = head->files.value(Description).digest != now.value(Description).digest
                                 && std::none_of(own.cbegin(), own.cend(), [](const RestorePoint &point) {
                                        return point.changesDescription;
                                    });
    if (const auto changes = changesSince(repoPath, *head)) {
        outside.changes = *changes;
        // A kill after the commit of a job can have come before its state was stored.
        for (auto point = own.crbegin(); point != own.crend(); ++point)
            outside.changes
                = HistoryDifference::composed(HistoryDifference::inverted(point->changes), outside.changes);
    }
    addTimeAndUser(repoPath, head->files, now, &outside);
    const bool isChange = outside.changesDescription || !outside.changes.isEmpty();
    const bool isNoted = isChange && RepositoryHistory::addRecord(repoPath, outside) > 0;
    return (isNoted || !isChange) && write(repoPath) && isNoted;
}

QString RepositoryDigest::indices(const QString &repoPath)
{
    const auto head = readHead(repoPath);
    return inHistory(repoPath, head && !head->listing.isEmpty() ? head->listing : Listings.first())
           + QLatin1String("/dists");
}

int RepositoryDigest::newestNumber(const QString &repoPath)
{
    const auto head = readHead(repoPath);
    return head ? head->number : 0;
}
