// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/inclusionpreview.h"

#include "core/countof.h"
#include "core/packagenames.h"
#include "engine/archive/filechecksums.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
PackageKey placeOf(const PackageChange &change)
{
    return {change.name, change.component, change.architecture, change.type};
}

PreviewRow::Relation relationOf(RepoEnums::ErrorCode collision)
{
    switch (collision) {
    case RepoEnums::PACKAGE_EXISTS_OLD_VERSION:
        return PreviewRow::Newer;
    case RepoEnums::PACKAGE_EXISTS_NEW_VERSION:
        return PreviewRow::Older;
    default:
        return PreviewRow::SameVersion;
    }
}
} // namespace

InclusionPreview::InclusionPreview(InclusionRules::Target target,
                                   const QList<PackageInfoPtr> &present,
                                   PackageReplacementRules collisions,
                                   bool isSigning)
    : m_target(std::move(target))
    , m_collisions(collisions)
    , m_isSigning(isSigning)
{
    m_places.reserve(present.size());
    m_files.reserve(present.size());
    for (const PackageInfoPtr &package : present) {
        m_places.insert(PackageKey::of(*package), package);
        m_files[package->filePath()].append(package);
    }
}

PackageChange::State InclusionPreview::presentState(const PackageInfo &package, bool needsChecksum)
{
    PackageChange::State state = PackageChange::stateOf(package);
    // The record of a package that was added since the opening is that of its file, which does not know itself.
    if (state.size == 0)
        state.size = QFileInfo(package.filePath()).size();
    if (needsChecksum && state.sha256.isEmpty())
        state.sha256 = QString::fromLatin1(FileChecksums::of(package.filePath()).sha256);
    return state;
}

InclusionRules::Target InclusionPreview::targetOf(InclusionRules::Target target,
                                                  const OfferedPackage &offered)
{
    if (!offered.component.isEmpty())
        target.component = offered.component;
    return target;
}

QVector<PackageInfo> InclusionPreview::recordsOf(const OfferedPackage &offered) const
{
    return offered.package ? InclusionRules::records(*offered.package, targetOf(offered))
                           : QVector<PackageInfo>();
}

RepositoryExtension InclusionPreview::lacking(const InclusionRules::Target &target,
                                              const QVector<OfferedPackage> &offered)
{
    RepositoryExtension lacking;
    for (const OfferedPackage &package : offered)
        if (package.package && package.reason.isEmpty())
            lacking.unite(InclusionRules::lacking(*package.package, targetOf(target, package)));
    return lacking;
}

QSet<QString> InclusionPreview::contestedFiles(const QVector<OfferedPackage> &offered) const
{
    QHash<QString, QString> checksums;
    QSet<QString> contested;
    for (const OfferedPackage &package : offered) {
        const auto records = recordsOf(package);
        if (records.isEmpty())
            continue;
        const QString file = records.first().filePath();
        const auto known = checksums.constFind(file);
        if (known == checksums.cend())
            checksums.insert(file, package.sha256);
        else if (*known != package.sha256 || package.sha256.isEmpty())
            contested.insert(file);
    }
    return contested;
}

QVector<PreviewRow> InclusionPreview::rows(const QVector<OfferedPackage> &offered)
{
    m_rows.clear();
    const QSet<QString> contested = contestedFiles(offered);
    for (const OfferedPackage &package : offered) {
        const auto records = recordsOf(package);
        addRows(package, !records.isEmpty() && contested.contains(records.first().filePath()));
    }
    chooseForPlaces();
    return m_rows;
}

void InclusionPreview::addRefused(const OfferedPackage &offered, const QString &reason)
{
    PreviewRow row;
    row.verdict = PreviewRow::Refused;
    row.refusal = reason;
    row.source = offered.file;
    row.isOn = false;
    row.isSwitchable = false;
    row.change.origin = offered.origin;
    row.change.name = QFileInfo(offered.origin).fileName();
    row.offered = offered.package;
    if (offered.package) {
        row.change.name = offered.package->name;
        row.change.type = offered.package->type;
        row.change.component = offered.package->component;
        row.change.architecture = offered.package->architecture;
        row.change.after.version = offered.package->version;
    } else if (!offered.file.isEmpty()) {
        row.change.type = PackageNames::typeOfFile(offered.file);
    }
    row.change.after.sha256 = offered.sha256;
    row.change.after.size = offered.size;
    m_rows.append(row);
}

PreviewRow InclusionPreview::rowOf(const OfferedPackage &offered, const PackageInfo &record) const
{
    PreviewRow row;
    row.source = offered.file;
    row.offered = QSharedPointer<PackageInfo>::create(record);
    PackageChange &change = row.change;
    change.name = record.name;
    change.type = record.type;
    change.component = record.indexComponent;
    change.architecture = record.architecture;
    change.origin = offered.origin;
    change.after.version = record.version;
    change.after.file = record.poolFile;
    // A signed copy is another file, which is not there yet.
    change.after.sha256 = m_isSigning ? QString() : offered.sha256;
    change.after.size = offered.size;
    row.present = m_places.value(PackageKey::of(record));
    if (!row.present)
        return row;
    change.kind = PackageChange::Replaced;
    row.verdict = PreviewRow::Collision;
    const auto collision = InclusionRules::collision(record.version, row.present->version);
    if (!collision) {
        row.verdict = PreviewRow::Refused;
        row.refusal = tr("Its version %1 cannot be compared with the present version %2.")
                          .arg(record.version, row.present->version);
        row.isOn = row.isSwitchable = false;
        return row;
    }
    const bool isSamePlace = row.present->filePath() == record.filePath();
    change.before = presentState(*row.present, *collision == RepoEnums::PACKAGE_EXISTS && isSamePlace);
    row.relation = relationOf(*collision);
    if (row.relation == PreviewRow::SameVersion && isSamePlace && !change.after.sha256.isEmpty()
        && change.after.sha256 == change.before.sha256)
        row.relation = PreviewRow::SameFile;
    // Putting the same file in once more changes nothing.
    row.isOn = row.relation != PreviewRow::SameFile && m_collisions.replaces(*collision);
    return row;
}

void InclusionPreview::addRows(const OfferedPackage &offered, bool mustStayTogether)
{
    if (!offered.package || !offered.reason.isEmpty()) {
        addRefused(offered, offered.reason);
        return;
    }
    const auto records = recordsOf(offered);
    if (records.isEmpty()) {
        addRefused(offered, InclusionRules::architectureRefusal(*offered.package, m_target.info));
        return;
    }
    if (const QString refusal = InclusionRules::refusal(records.first(), targetOf(offered));
        !refusal.isEmpty()) {
        addRefused(offered, refusal);
        return;
    }
    const int first = countOf(m_rows);
    for (const PackageInfo &record : records)
        m_rows.append(rowOf(offered, record));
    // Under one name the pool has one file. Another file of the name can come only when nothing uses the old one.
    const auto users = m_files.value(records.first().filePath());
    const bool isOther = std::any_of(m_rows.cbegin() + first, m_rows.cend(), [&](const PreviewRow &row) {
        return row.present && row.present->filePath() == records.first().filePath()
               && row.relation != PreviewRow::SameFile;
    });
    const bool isForOthers = std::any_of(users.cbegin(), users.cend(), [&](const PackageInfoPtr &user) {
        return std::none_of(records.cbegin(), records.cend(), [&user](const PackageInfo &record) {
            return PackageKey::of(record) == PackageKey::of(*user);
        });
    });
    const bool isSame
        = !users.isEmpty() && !m_isSigning && presentState(*users.first(), true).sha256 == offered.sha256;
    if (!users.isEmpty() && isForOthers && !isSame) {
        while (m_rows.size() > first)
            m_rows.removeLast();
        addRefused(offered,
                   tr("The repository has another file of this name, which further packages use: %1")
                       .arg(users.first()->filePath()));
        return;
    }
    if (!isOther && !mustStayTogether)
        return;
    const bool isOn = std::all_of(m_rows.cbegin() + first, m_rows.cend(), [](const PreviewRow &row) {
        return row.isOn || row.verdict == PreviewRow::Refused;
    });
    for (int i = first; i < m_rows.size(); ++i) {
        if (m_rows.at(i).verdict == PreviewRow::Refused)
            continue;
        m_rows[i].group = m_groups;
        m_rows[i].isOn = isOn;
    }
    ++m_groups;
}

void InclusionPreview::chooseForPlaces()
{
    QHash<PackageKey, QVector<int>> wishes;
    for (int i = 0; i < m_rows.size(); ++i)
        if (m_rows.at(i).verdict != PreviewRow::Refused)
            wishes[placeOf(m_rows.at(i).change)].append(i);
    for (int i = 0; i < m_rows.size(); ++i) {
        const QVector<int> rivals = wishes.value(placeOf(m_rows.at(i).change));
        if (rivals.size() < 2 || rivals.first() != i || m_rows.at(i).verdict == PreviewRow::Refused)
            continue;
        int winner = -1;
        for (const int rival : rivals) {
            m_rows[rival].note
                = tr("Several of the files are for the same place; only one of them can be there.");
            if (!m_rows.at(rival).isOn)
                continue;
            const auto collision = winner < 0
                                       ? std::nullopt
                                       : InclusionRules::collision(m_rows.at(rival).change.after.version,
                                                                   m_rows.at(winner).change.after.version);
            const bool wins = winner < 0 || (collision && m_collisions.replaces(*collision));
            const int loser = wins ? winner : rival;
            winner = wins ? rival : winner;
            if (loser >= 0)
                switchOff(loser);
        }
    }
}

void InclusionPreview::switchOff(int row)
{
    const int group = m_rows.at(row).group;
    for (int i = 0; i < m_rows.size(); ++i)
        if (i == row || (group >= 0 && m_rows.at(i).group == group))
            m_rows[i].isOn = false;
}
