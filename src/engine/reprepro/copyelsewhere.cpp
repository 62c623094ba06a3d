// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/copyelsewhere.h"

#include "files/descriptor.h"
#include "files/freespace.h"
#include "files/openfolder.h"
#include "files/removetree.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr mode_t OwnerOnly = 0700;

/** Prefix of the file name in the database, before the number. */
const QString NamePrefix = QStringLiteral("velt-admin-repo.copied-to.");
/** File in the folder: the path of the database, its device and its inode, separated by null bytes. */
const QString RecordFile = QStringLiteral("/database");

QString databaseOf(const QString &repoPath)
{
    return repoPath + QLatin1String("/db");
}

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        status = {};
    return status;
}

/** Whether no other user can write to the folder and exchange its files. */
bool isPrivate(const QString &folder)
{
    const struct stat status = statusOf(folder);
    return S_ISDIR(status.st_mode) && status.st_uid == ::geteuid()
           && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

bool makePrivate(const QString &folder)
{
    QDir().mkpath(QFileInfo(folder).path());
    ::mkdir(QFile::encodeName(folder).constData(), OwnerOnly);
    return isPrivate(folder);
}

QByteArrayList recordOf(const QString &repoPath)
{
    const QString database = QFileInfo(databaseOf(repoPath)).canonicalFilePath();
    const struct stat status = statusOf(database);
    return {QFile::encodeName(database),
            QByteArray::number(quint64(status.st_dev)),
            QByteArray::number(quint64(status.st_ino))};
}

/**
 * Whether the record names this repository. Device numbers can change with a reboot, and paths with a move, but rarely
 * both.
 */
bool belongsTo(const QString &folder, const QString &repoPath)
{
    constexpr qint64 LargestRecord = 1 << 16;
    const auto bytes = OpenFolder::readFile(folder + RecordFile, LargestRecord);
    const QByteArrayList record = bytes ? bytes->split('\0') : QByteArrayList();
    const QByteArrayList wanted = recordOf(repoPath);
    return record.size() == wanted.size() && !wanted.first().isEmpty()
           && (record.first() == wanted.first() || record.mid(1) == wanted.mid(1));
}

/** The numbers in file names of the database. Anybody may have created these files. */
QStringList numbersIn(const QString &repoPath)
{
    QStringList numbers;
    const QStringList names
        = QDir(databaseOf(repoPath)).entryList({NamePrefix + QLatin1Char('*')}, QDir::Files | QDir::System);
    for (const QString &name : names) {
        const QString number = name.mid(NamePrefix.size());
        if (QUuid::fromString(number).toString(QUuid::WithoutBraces) == number)
            numbers.append(number);
    }
    return numbers;
}

QString pointer(const QString &repoPath, const QString &number)
{
    return databaseOf(repoPath) + QLatin1Char('/') + NamePrefix + number;
}

/** Creates an empty file: it needs no space on a full disk. */
bool makePointer(const QString &path)
{
    return Descriptor(::open(QFile::encodeName(path).constData(),
                             O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                             S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH))
        .isOpen();
}

/** Parent folders for the copy, in the order of preference. */
QStringList places(CopyElsewhere::Kind kind)
{
    const QString ofUser = QStringLiteral("/velt-admin-repo-databases-%1").arg(::geteuid());
    if (kind == CopyElsewhere::Kind::Memory)
        return {QLatin1String("/dev/shm") + ofUser};
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                + QLatin1String("/velt-admin-repo/databases"),
            QLatin1String("/var/tmp") + ofUser};
}
} // namespace

QString CopyElsewhere::make(const QString &repoPath, qint64 size, Kind kind)
{
    const dev_t device = statusOf(QFileInfo(databaseOf(repoPath)).canonicalFilePath()).st_dev;
    const QStringList tried = places(kind);
    for (const QString &place : tried) {
        if (!makePrivate(place) || statusOf(place).st_dev == device || freeSpace(place) < size)
            continue;
        // The file in the database is created first: a folder without it would never be found again.
        const QString number = QUuid::createUuid().toString(QUuid::WithoutBraces);
        if (!makePointer(pointer(repoPath, number)))
            return {};
        const QString folder = place + QLatin1Char('/') + number;
        if (makePrivate(folder)
            && WholeFile::replace(folder + RecordFile, recordOf(repoPath).join('\0')).isEmpty())
            return folder;
        removeTree(folder);
        QFile::remove(pointer(repoPath, number));
    }
    return {};
}

QString CopyElsewhere::folder(const QString &repoPath)
{
    const QStringList numbers = numbersIn(repoPath);
    const QStringList searched = numbers.isEmpty() ? numbers : places(Kind::Disk) + places(Kind::Memory);
    for (const QString &number : numbers) {
        for (const QString &place : searched) {
            const QString folder = place + QLatin1Char('/') + number;
            if (isPrivate(place) && isPrivate(folder) && belongsTo(folder, repoPath))
                return folder;
        }
    }
    return {};
}

bool CopyElsewhere::isNamed(const QString &repoPath)
{
    return !numbersIn(repoPath).isEmpty();
}

void CopyElsewhere::drop(const QString &repoPath)
{
    for (QString found = folder(repoPath); !found.isEmpty(); found = folder(repoPath)) {
        removeTree(found);
        QFile::remove(pointer(repoPath, QFileInfo(found).fileName()));
        if (QFileInfo::exists(found))
            return;
    }
    const QStringList lost = numbersIn(repoPath);
    for (const QString &number : lost) {
        // A folder without a record was just being created and is empty.
        for (const QString &place : places(Kind::Disk) + places(Kind::Memory)) {
            const QString unfinished = place + QLatin1Char('/') + number;
            if (isPrivate(place) && isPrivate(unfinished) && !QFileInfo::exists(unfinished + RecordFile))
                removeTree(unfinished);
        }
        QFile::remove(pointer(repoPath, number));
    }
}
