// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsdata.h"

#include <QFile>

#include <algorithm>
#include <utility>

namespace
{
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

DependsData::DependsData(const QString &fileName, QString repoPath, QObject *parent)
    : QObject(parent)
    , m_file(fileName, DependsJson::indent)
    , m_repoPath(std::move(repoPath))
{ }

QString DependsData::userFileName()
{
    return ResultsFile::userFileName(QStringLiteral("dependencies"));
}

void DependsData::loadData(const QString &repoPath)
{
    if (repoPath.isEmpty())
        return;
    m_repoPath = repoPath;
    m_saved.clear();
    StoredPackages stored;
    QString keptAs;
    const auto read = [&](QIODevice *file) { return DependsJson::read(file, m_repoPath, &stored); };
    m_stored = m_file.read(read, &keptAs) ? stored : StoredPackages();
    if (!keptAs.isEmpty())
        Q_EMIT fileBroken(keptAs);
}

void DependsData::changePath(const QString &newPath)
{
    if (m_repoPath.isEmpty() || newPath.isEmpty() || newPath == m_repoPath)
        return;
    if (m_file.hasMember({m_repoPath, newPath}) && !rewrite({m_repoPath, newPath, {}}))
        m_saved.clear();
    m_repoPath = newPath;
}

void DependsData::removeRepoData()
{
    if (!m_repoPath.isEmpty() && m_file.hasMember({m_repoPath}))
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
        && QFile::exists(m_file.fileName()))
        return;
    m_stored.clear();
    m_saved.clear();
    if (rewrite({m_repoPath, QString(), packages}))
        m_saved = {packages.cbegin(), packages.cend()};
}

bool DependsData::rewrite(const DependsJson::Change &change)
{
    QString keptAs;
    const bool isWritten = m_file.rewrite(DependsJson::documentChange(change), &keptAs);
    if (!keptAs.isEmpty())
        Q_EMIT fileBroken(keptAs);
    return isWritten;
}
