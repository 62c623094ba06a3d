// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewtext.h"

#include <QLocale>

QString PreviewText::job(ChangePreview::Kind kind)
{
    switch (kind) {
    case ChangePreview::Add:
        return tr("Adding packages");
    case ChangePreview::Remove:
        return tr("Removing packages");
    case ChangePreview::Fetch:
        return tr("Fetching packages");
    case ChangePreview::Import:
        return tr("Importing packages");
    case ChangePreview::Upgrade:
        return tr("Upgrading packages");
    case ChangePreview::Describe:
        return tr("Changing the description");
    case ChangePreview::Return:
        return tr("Going back");
    }
    return {};
}

QString PreviewText::verdict(const PreviewRow &row)
{
    if (row.verdict == PreviewRow::Refused)
        return tr("refused");
    const bool isReplacing = row.change.kind == PackageChange::Replaced;
    if (!row.isOn)
        return isReplacing || row.change.kind == PackageChange::Removed ? tr("kept") : tr("left out");
    if (!isReplacing)
        return row.change.kind == PackageChange::Added ? tr("added") : tr("removed");
    switch (row.relation) {
    case PreviewRow::Newer:
        return tr("replaced with a newer version");
    case PreviewRow::Older:
        return tr("replaced with an older version");
    case PreviewRow::SameFile:
        return tr("replaced with the same file");
    case PreviewRow::SameVersion:
        return tr("replaced with the same version");
    case PreviewRow::Alone:
        break;
    }
    return tr("replaced");
}

QString PreviewText::relation(PreviewRow::Relation relation)
{
    switch (relation) {
    case PreviewRow::Newer:
        return tr("newer");
    case PreviewRow::Older:
        return tr("older");
    case PreviewRow::SameFile:
        return tr("the same file");
    case PreviewRow::SameVersion:
        return tr("same version, other contents");
    case PreviewRow::Alone:
        break;
    }
    return {};
}

QString PreviewText::line(const PreviewRow &row)
{
    const PackageChange &change = row.change;
    QString text = change.name;
    if (change.kind == PackageChange::Replaced)
        text += QStringLiteral(" %1 → %2").arg(change.before.version, change.after.version);
    else if (const QString version
             = change.kind == PackageChange::Added ? change.after.version : change.before.version;
             !version.isEmpty())
        text += QLatin1Char(' ') + version;
    QStringList place;
    for (const QString &word : {change.component, change.architecture})
        if (!word.isEmpty())
            place << word;
    if (change.type == PackageType::Udeb)
        place << QStringLiteral("udeb");
    if (!place.isEmpty())
        text += QStringLiteral(" (%1)").arg(place.join(QLatin1String(", ")));
    text += QLatin1String(": ") + verdict(row);
    if (!row.isOn && row.verdict == PreviewRow::Collision)
        text += QStringLiteral(" (%1)").arg(relation(row.relation));
    for (const QString &remark : {row.refusal, row.note})
        if (!remark.isEmpty())
            text += QStringLiteral(" – ") + remark;
    return text;
}

QString PreviewText::counts(const ChangePreview &preview)
{
    int added = 0;
    int replaced = 0;
    int removed = 0;
    int refused = 0;
    int left = 0;
    for (const PreviewRow &row : preview.rows) {
        if (row.verdict == PreviewRow::Refused)
            ++refused;
        else if (!row.isOn)
            ++left;
        else if (row.change.kind == PackageChange::Added)
            ++added;
        else if (row.change.kind == PackageChange::Replaced)
            ++replaced;
        else
            ++removed;
    }
    return tr("Added: %1, replaced: %2, removed: %3, refused: %4, left as they are: %5")
        .arg(added)
        .arg(replaced)
        .arg(removed)
        .arg(refused)
        .arg(left);
}

QStringList PreviewText::clients(const ChangePreview &preview)
{
    const PreviewEffect &effect = preview.effect;
    QStringList texts;
    if (effect.upgrades > 0)
        texts << tr("Clients that have them installed upgrade %n package(s).", nullptr, effect.upgrades);
    if (effect.downgrades > 0)
        texts << tr("Of %n package(s), clients keep the newer version that they have installed.",
                    nullptr,
                    effect.downgrades);
    int removed = 0;
    int same = 0;
    for (const PreviewRow &row : preview.rows) {
        if (!row.takesPart())
            continue;
        removed += row.change.kind == PackageChange::Removed ? 1 : 0;
        same += row.relation == PreviewRow::SameVersion ? 1 : 0;
    }
    if (removed > 0)
        texts << tr(
            "%n removed package(s) stay installed where they are, without updates.", nullptr, removed);
    if (same > 0)
        texts << tr(
            "Clients that have it installed do not get the other contents of %n package(s) of the same "
            "version.",
            nullptr,
            same);
    return texts + effect.clients;
}

QString PreviewText::sizes(const PreviewEffect &effect)
{
    const QLocale locale;
    QString text = tr("Comes into the pool: %1. Leaves it: %2.")
                       .arg(locale.formattedDataSize(effect.comes), locale.formattedDataSize(effect.goes));
    if (effect.free >= 0)
        text += QLatin1Char(' ') + tr("Free on the disk: %1.").arg(locale.formattedDataSize(effect.free));
    return text;
}

QVector<PreviewLoss> PreviewText::gained(const PreviewEffect &effect)
{
    QVector<PreviewLoss> packages = effect.gained;
    for (PreviewLoss &package : packages)
        for (QString &reason : package.reasons)
            reason = tr("Until now: %1").arg(reason);
    return packages;
}

QString PreviewText::package(const PackageInfo &package)
{
    return QStringLiteral("%1 %2 (%3)").arg(package.name, package.version, package.architecture);
}
