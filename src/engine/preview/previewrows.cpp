// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewrows.h"

#include "apt/versionorder.h"
#include "core/packagenames.h"
#include "engine/repository/packagelist.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
using Places = QHash<PackageKey, PackageInfoPtr>;

Places placesOf(const QList<PackageInfoPtr> &packages)
{
    Places places;
    places.reserve(packages.size());
    for (const PackageInfoPtr &package : packages)
        places.insert(PackageKey::of(*package), package);
    return places;
}

PreviewRow rowFor(const PackageInfo &package, PackageChange::Kind kind)
{
    PreviewRow row;
    row.change.kind = kind;
    row.change.name = package.name;
    row.change.type = package.type;
    row.change.component = package.indexComponent;
    row.change.architecture = package.architecture;
    return row;
}

PreviewRow removedRow(const PackageInfoPtr &package)
{
    PreviewRow row = rowFor(*package, PackageChange::Removed);
    row.change.before = PackageChange::stateOf(*package);
    row.present = package;
    return row;
}

PreviewRow::Relation relationOf(const PackageChange &change)
{
    if (change.kind != PackageChange::Replaced)
        return PreviewRow::Alone;
    const int order = VersionOrder::compare(change.after.version, change.before.version);
    if (order != 0)
        return order > 0 ? PreviewRow::Newer : PreviewRow::Older;
    return !change.after.sha256.isEmpty() && change.after.sha256 == change.before.sha256
               ? PreviewRow::SameFile
               : PreviewRow::SameVersion;
}

/** Refuses the row. */
void refuse(PreviewRow *row, const QString &reason)
{
    row->verdict = PreviewRow::Refused;
    row->refusal = reason;
    row->isOn = row->isSwitchable = false;
}
} // namespace

void PreviewRows::addLeaving(QVector<PreviewRow> *rows, const CopiedFiles &copied)
{
    const QVector<PreviewRow> added = *rows;
    int groups = 0;
    for (const PreviewRow &row : added)
        groups = std::max(groups, row.group + 1);
    for (auto file = copied.files.cbegin(); file != copied.files.cend(); ++file) {
        QVector<int> own;
        int group = -1;
        for (int i = 0; i < added.size(); ++i) {
            if (added.at(i).source != file.key() || added.at(i).verdict == PreviewRow::Refused)
                continue;
            own.append(i);
            group = std::max(group, added.at(i).group);
        }
        if (own.isEmpty() || file->leaving.isEmpty())
            continue;
        const int together = group < 0 ? groups++ : group;
        const bool isOn
            = std::all_of(own.cbegin(), own.cend(), [&added](int row) { return added.at(row).isOn; });
        for (const int row : std::as_const(own)) {
            (*rows)[row].group = together;
            (*rows)[row].isOn = isOn;
        }
        for (const PackageInfoPtr &package : file->leaving) {
            PreviewRow leaving = removedRow(package);
            leaving.group = together;
            leaving.isOn = isOn;
            rows->append(leaving);
        }
    }
}

QVector<PreviewRow> PreviewRows::removal(const QList<PackageInfoPtr> &wanted,
                                         const QList<PackageInfoPtr> &present)
{
    const Places places = placesOf(present);
    QSet<PackageKey> seen;
    QVector<PreviewRow> rows;
    for (const PackageInfoPtr &package : wanted) {
        const PackageKey key = PackageKey::of(*package);
        if (seen.contains(key))
            continue;
        seen.insert(key);
        const PackageInfoPtr there = places.value(key);
        PreviewRow row = removedRow(there ? there : package);
        if (!there)
            refuse(&row, tr("It is in the repository no longer."));
        else if (there->filePath() != package->filePath())
            refuse(&row, tr("The repository holds another version by now: %1").arg(there->version));
        rows.append(row);
    }
    return rows;
}

QVector<PreviewRow> PreviewRows::upgrade(const QVector<Offer> &offers,
                                         const QList<PackageInfoPtr> &present,
                                         const QString &repository,
                                         const QStringList &architectures)
{
    const Places places = placesOf(present);
    QSet<PackageKey> seen;
    QVector<PreviewRow> rows;
    const auto addRow = [&](const Offer &offer, const PackageInfoPtr &there, const PackageKey &key) {
        if (seen.contains(key))
            return;
        seen.insert(key);
        PreviewRow row;
        row.change.kind = PackageChange::Replaced;
        row.change.name = key.name;
        row.change.type = key.type;
        row.change.component = key.component;
        row.change.architecture = key.architecture;
        row.change.origin = offer.package.source;
        row.change.after.version = offer.package.newVersion;
        row.change.after.size = offer.size;
        row.change.after.sha256 = offer.sha256;
        row.present = there;
        if (there)
            row.change.before = PackageChange::stateOf(*there);
        if (offer.record) {
            PackageInfo record = *offer.record;
            record.architecture = key.architecture;
            record.component = record.indexComponent = key.component;
            record.root = repository;
            record.poolFile = PackageNames::poolFile(record, offer.record->architecture);
            row.change.after.file = record.poolFile;
            row.offered = QSharedPointer<PackageInfo>::create(record);
        }
        row.relation = there ? relationOf(row.change) : PreviewRow::Alone;
        if (!there)
            refuse(&row, tr("It is in the repository no longer."));
        else if (row.relation != PreviewRow::Newer)
            refuse(&row, tr("The repository holds the version %1 by now.").arg(there->version));
        else if (!offer.record)
            refuse(&row, tr("No source offers this version any more."));
        rows.append(row);
    };
    for (const Offer &offer : offers) {
        PackageKey key{
            offer.package.name, offer.package.component, offer.package.architecture, PackageType::Deb};
        const PackageInfoPtr there = places.value(key);
        addRow(offer, there, key);
        if (!there || !offer.record || offer.record->architecture != QLatin1String("all"))
            continue;
        // The old file serves several architectures, and the new one takes its place in all of them.
        for (const QString &architecture : architectures) {
            key.architecture = architecture;
            const PackageInfoPtr twin = places.value(key);
            if (twin && twin->filePath() == there->filePath())
                addRow(offer, twin, key);
        }
    }
    return rows;
}

QVector<PreviewRow> PreviewRows::description(const RepoChange &change, const QList<PackageInfoPtr> &present)
{
    QVector<PreviewRow> rows;
    for (const PackageInfoPtr &package : present)
        if (!change.keepsPlace(*package))
            rows.append(removedRow(package));
    const auto flooded = change.flooded(present);
    for (const PackageInfoPtr &record : flooded) {
        PreviewRow row = rowFor(*record, PackageChange::Added);
        row.change.after = PackageChange::stateOf(*record);
        row.offered = record;
        rows.append(row);
    }
    for (PreviewRow &row : rows)
        row.isSwitchable = false;
    return rows;
}

QVector<PreviewRow> PreviewRows::going(const QVector<PackageChange> &changes,
                                       const QList<PackageInfoPtr> &present)
{
    const Places places = placesOf(present);
    QVector<PreviewRow> rows;
    for (const PackageChange &change : changes) {
        PreviewRow row;
        row.change = change;
        row.relation = relationOf(change);
        row.isSwitchable = false;
        row.present = places.value({change.name, change.component, change.architecture, change.type});
        rows.append(row);
    }
    return rows;
}
