// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/jobhistory.h"

#include "engine/history/indexedfiles.h"
#include "engine/history/repositorydigest.h"
#include "files/regularfile.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

#include <pwd.h>
#include <unistd.h>

namespace
{
QString loginName()
{
    const passwd *entry = ::getpwuid(::geteuid());
    return entry == nullptr ? QString::number(::geteuid()) : QString::fromLocal8Bit(entry->pw_name);
}

IndexedFiles::Entry entryOfFile(const QString &path)
{
    RegularFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return {};
    return {QString::fromLatin1(hash.result().toHex()), file.size()};
}

/**
 * Puts in the checksums. The records cannot tell them: those of added and signed packages come from their files.
 */
void complete(QVector<PackageChange> *changes,
              PackageChange::State PackageChange::*side,
              const QHash<QString, IndexedFiles::Entry> &entries)
{
    for (PackageChange &change : *changes) {
        PackageChange::State &state = change.*side;
        const auto entry = entries.constFind(state.file);
        if (state.isNone() || entry == entries.cend())
            continue;
        state.sha256 = entry->sha256;
        state.size = entry->size;
    }
}

QSet<QString> filesOf(const QVector<PackageChange> &changes, PackageChange::State PackageChange::*side)
{
    QSet<QString> files;
    for (const PackageChange &change : changes)
        if (!(change.*side).isNone())
            files.insert((change.*side).file);
    return files;
}
/**
 * Of files in the pool. The indices have the checksums, but those of a large repository take longer to be searched than
 * a few files to be read.
 */
QHash<QString, IndexedFiles::Entry> presentEntries(const QString &repoPath, const QSet<QString> &files)
{
    constexpr qint64 QuicklyRead = 4 << 20; // bytes
    const auto pathOf
        = [&repoPath](const QString &file) -> QString { return repoPath + QLatin1Char('/') + file; };
    qint64 size = 0;
    for (const QString &file : files)
        size += QFileInfo(pathOf(file)).size();
    QHash<QString, IndexedFiles::Entry> entries;
    if (size > QuicklyRead)
        entries = IndexedFiles::find(repoPath + QLatin1String("/dists"), files);
    // The settings of the repository can also have no indices written.
    for (const QString &file : files)
        if (!entries.contains(file))
            entries.insert(file, entryOfFile(pathOf(file)));
    return entries;
}
} // namespace

void JobHistory::begin(const QList<PackageInfoPtr> &packages, const QString &summary)
{
    m_before = packages;
    m_summary = summary;
    m_kind = RestorePoint::Job;
    m_origins.clear();
}

void JobHistory::setOrigin(const PackageInfo &record, const QString &origin)
{
    m_origins.insert(PackageChange::stateOf(record).file, origin);
}

RestorePoint JobHistory::record(const QList<PackageInfoPtr> &now) const
{
    RestorePoint point;
    point.kind = m_kind;
    point.time = QDateTime::currentDateTimeUtc();
    point.user = loginName();
    point.summary = m_summary;
    point.changes = PackageChange::between(m_before, now, PackageChange::Kept);
    if (point.changes.isEmpty())
        return point;
    const QString repoPath = (now.isEmpty() ? m_before : now).first()->root;
    complete(&point.changes,
             &PackageChange::after,
             presentEntries(repoPath, filesOf(point.changes, &PackageChange::after)));
    // No index names any more what was there before, but those that the last job has left.
    complete(&point.changes,
             &PackageChange::before,
             IndexedFiles::find(RepositoryDigest::indices(repoPath),
                                filesOf(point.changes, &PackageChange::before)));
    point.changes.erase(
        std::remove_if(point.changes.begin(),
                       point.changes.end(),
                       [](const PackageChange &change) { return change.before == change.after; }),
        point.changes.end());
    for (PackageChange &change : point.changes)
        if (!change.after.isNone())
            change.origin = m_origins.value(change.after.file);
    return point;
}
