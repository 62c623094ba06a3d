// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsdata.h"

#include "files/regularfile.h"
#include "files/renamepath.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QLoggingCategory>
#include <QMutex>
#include <QMutexLocker>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace
{
using DependsJson::Outcome;

Q_LOGGING_CATEGORY(log, "velt.depends", QtInfoMsg)

/**
 * Held while the file is read, changed and written, so that a save of one tab or of another process does not overwrite
 * that of another. A process that was killed holds nothing.
 */
class FileLock
{
public:
    explicit FileLock(const QString &fileName)
        : m_threads(&mutex())
        , m_processes(fileName + QLatin1String(".lock"))
    {
        constexpr int Patience = 10000; // milliseconds; a large file takes one or two seconds
        // Only the death of its owner makes the lock free, and not its age.
        m_processes.setStaleLockTime(0);
        QDir().mkpath(QFileInfo(fileName).path());
        // A longer attempt would try again ever more seldom.
        constexpr int Attempt = 50; // milliseconds
        const QDeadlineTimer end(Patience);
        do
            m_isHeld = m_processes.tryLock(Attempt);
        while (!m_isHeld && m_processes.error() == QLockFile::LockFailedError && !end.hasExpired());
    }
    bool isHeld() const { return m_isHeld; }

private:
    const QMutexLocker m_threads;
    QLockFile m_processes;
    bool m_isHeld = false;

    static QMutex &mutex()
    {
        static QMutex mutex;
        return mutex;
    }
};

Outcome readFile(const QString &fileName, const QString &repoPath, StoredPackages *stored)
{
    RegularFile file(fileName);
    // An empty file holds no results that could be lost, so it is not reported as broken.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.size() == 0)
        return Outcome::Failed;
    return DependsJson::read(&file, repoPath, stored);
}

/** The stored record that belongs to the package, out of records with its name; the first when none matches. */
const StoredDepends &storedFor(const PackageInfo &package, const QVector<StoredDepends> &stored)
{
    if (stored.size() == 1)
        return stored.first();
    const auto likeness = [&package](const StoredDepends &other) {
        return 4 * static_cast<int>(other.type == package.type)
               + 2 * static_cast<int>(other.architecture == package.architecture)
               + static_cast<int>(other.component == package.indexComponent);
    };
    // Of equally good matches the first is used.
    return *std::max_element(
        stored.cbegin(), stored.cend(), [&likeness](const StoredDepends &a, const StoredDepends &b) {
            return likeness(a) < likeness(b);
        });
}

void moveTo(Dependency &dependency, const QString &architecture, const QString &from)
{
    if (dependency.architecture == from)
        dependency.architecture = architecture;
    for (Dependency &provider : dependency.providers)
        moveTo(provider, architecture, from);
}

/** The results with the architecture of the package, so that missing packages are fetched for this architecture. */
QSharedPointer<const DependsInfo> resultsFor(const QString &architecture, const StoredDepends &stored)
{
    if (architecture.isEmpty() || architecture == stored.architecture || stored.info->groups.isEmpty())
        return stored.info;
    const auto info = QSharedPointer<DependsInfo>::create(*stored.info);
    for (DependencyGroup &group : info->groups)
        for (Dependency &dependency : group.alternatives)
            moveTo(dependency, architecture, stored.architecture);
    return info;
}
} // namespace

DependsData::DependsData(QString fileName, QString repoPath, QObject *parent)
    : QObject(parent)
    , m_fileName(std::move(fileName))
    , m_repoPath(std::move(repoPath))
{ }

QString DependsData::userFileName()
{
    return QStringLiteral("%1/corvana/%2-dependencies.json")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
             QCoreApplication::applicationName());
}

void DependsData::loadData(const QString &repoPath)
{
    if (repoPath.isEmpty())
        return;
    m_repoPath = repoPath;
    m_saved.clear();
    StoredPackages stored;
    Outcome outcome = readFile(m_fileName, m_repoPath, &stored);
    bool keptAside = false;
    if (outcome == Outcome::Broken) {
        // Another program may have replaced the file with a good one meanwhile.
        const FileLock lock(m_fileName);
        outcome = readFile(m_fileName, m_repoPath, &stored);
        keptAside = outcome == Outcome::Broken && lock.isHeld() && moveAside();
    }
    m_stored = outcome == Outcome::Done ? stored : StoredPackages();
    if (keptAside)
        Q_EMIT fileBroken(brokenName());
}

void DependsData::changePath(const QString &newPath)
{
    if (m_repoPath.isEmpty() || newPath.isEmpty() || newPath == m_repoPath)
        return;
    if (hasMember({m_repoPath, newPath}) && !rewrite({m_repoPath, newPath, {}}))
        m_saved.clear();
    m_repoPath = newPath;
}

void DependsData::removeRepoData()
{
    if (!m_repoPath.isEmpty() && hasMember({m_repoPath}))
        rewrite({m_repoPath, QString(), {}});
    m_stored.clear();
    m_saved.clear();
}

void DependsData::mergeStoredPackages(const QList<PackageInfoPtr> &origin)
{
    const StoredPackages results = std::exchange(m_stored, {});
    QList<PackageInfoPtr> packages;
    packages.reserve(origin.size());
    bool changed = false;
    for (const PackageInfoPtr &package : origin) {
        const auto named = results.constFind(package->name);
        const StoredDepends stored = named == results.cend() ? StoredDepends() : storedFor(*package, *named);
        if (!stored.info || stored.info == package->dependsInfo) {
            packages.append(package);
            continue;
        }
        const auto merged = QSharedPointer<PackageInfo>::create(*package);
        merged->dependsInfo = resultsFor(package->architecture, stored);
        packages.append(merged);
        changed = true;
    }
    if (changed)
        Q_EMIT packagesMerged(packages);
}

void DependsData::savePackages(const QList<PackageInfoPtr> &packages)
{
    if (m_repoPath.isEmpty() || packages.isEmpty())
        return;
    // Records never change, so the same records have the same results.
    if (std::equal(packages.cbegin(), packages.cend(), m_saved.cbegin(), m_saved.cend())
        && QFile::exists(m_fileName))
        return;
    m_stored.clear();
    m_saved.clear();
    if (rewrite({m_repoPath, QString(), packages}))
        m_saved = {packages.cbegin(), packages.cend()};
}

bool DependsData::hasMember(const QStringList &repositories) const
{
    RegularFile file(m_fileName);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
           && DependsJson::hasMember(&file, repositories);
}

bool DependsData::rewrite(const DependsJson::Change &change)
{
    bool keptAside = false;
    Outcome outcome = Outcome::Failed;
    {
        const FileLock lock(m_fileName);
        if (lock.isHeld())
            outcome = rewriteOnce(change);
        if (outcome == Outcome::Broken) {
            keptAside = moveAside();
            if (keptAside)
                outcome = rewriteOnce(change);
        }
    }
    if (keptAside)
        Q_EMIT fileBroken(brokenName());
    if (outcome != Outcome::Done)
        qCDebug(log, "%s could not be written", qUtf8Printable(m_fileName));
    return outcome == Outcome::Done;
}

Outcome DependsData::rewriteOnce(const DependsJson::Change &change)
{
    RegularFile old(m_fileName);
    const bool isThere = old.exists() && old.size() > 0;
    // A file that cannot be read may hold results of other repositories, so it must not be overwritten.
    if (isThere && !old.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Outcome::Failed;
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Outcome::Failed;
    const Outcome outcome = DependsJson::rewrite(isThere ? &old : nullptr, &file, change);
    if (outcome != Outcome::Done)
        return outcome;
    return file.commit() ? Outcome::Done : Outcome::Failed;
}

bool DependsData::moveAside()
{
    return renamePath(m_fileName, brokenName());
}
