// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewsizes.h"

#include "core/countof.h"
#include "engine/preview/inclusionpreview.h"

#include <QHash>
#include <QSet>

#include <utility>

void PreviewSizes::fill(PreviewEffect *effect,
                        const QVector<PreviewRow> &rows,
                        const QList<PackageInfoPtr> &present)
{
    effect->comes = effect->goes = 0;
    QSet<QString> upgrades;
    QSet<QString> downgrades;
    QHash<QString, int> uses; ///< of the files of the repository, by path below it
    for (const PackageInfoPtr &package : present)
        ++uses[PackageChange::stateOf(*package).file];
    QHash<QString, PackageChange::State> coming;
    QSet<QString> going;
    for (const PreviewRow &row : rows) {
        if (!row.takesPart())
            continue;
        const PackageChange &change = row.change;
        if (row.relation == PreviewRow::SameFile)
            continue;
        // A package that comes into a further architecture can be replaced there at once.
        if (change.kind == PackageChange::Added && uses.contains(change.after.file))
            ++uses[change.after.file];
        // A package for all architectures is one for the client.
        const QString one = change.name + QLatin1Char(' ') + change.after.file;
        if (row.relation == PreviewRow::Newer)
            upgrades.insert(one);
        if (row.relation == PreviewRow::Older)
            downgrades.insert(one);
        if (change.kind != PackageChange::Added && --uses[change.before.file] <= 0
            && !going.contains(change.before.file)) {
            going.insert(change.before.file);
            effect->goes += row.present ? InclusionPreview::presentState(*row.present, false).size
                                        : change.before.size;
        }
        if (change.kind != PackageChange::Removed)
            coming.insert(change.after.file, change.after);
    }
    effect->upgrades = countOf(upgrades);
    effect->downgrades = countOf(downgrades);
    for (auto file = coming.cbegin(); file != coming.cend(); ++file)
        // What other packages of the repository use is there already.
        if (uses.value(file.key()) <= 0)
            effect->comes += file->size;
}

QList<PackageInfoPtr> PreviewSizes::after(const QVector<PreviewRow> &rows,
                                          const QList<PackageInfoPtr> &present)
{
    QSet<PackageInfoPtr> gone;
    QList<PackageInfoPtr> coming;
    for (const PreviewRow &row : rows) {
        if (!row.takesPart() || row.relation == PreviewRow::SameFile)
            continue;
        if (row.present)
            gone.insert(row.present);
        if (row.change.kind != PackageChange::Removed && row.offered)
            coming.append(row.offered);
    }
    QList<PackageInfoPtr> packages;
    packages.reserve(present.size() + coming.size());
    for (const PackageInfoPtr &package : present)
        if (!gone.contains(package))
            packages.append(package);
    for (const PackageInfoPtr &package : std::as_const(coming))
        if (!gone.contains(package))
            packages.append(package);
    return packages;
}
