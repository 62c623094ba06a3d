// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/preview/previewchoices.h"

#include <QHash>

namespace
{
QStringList keyOf(const PreviewRow &row)
{
    const PackageChange &change = row.change;
    return {change.name,
            change.architecture,
            change.component,
            QString::number(int(change.type)),
            change.before.version,
            change.before.sha256,
            change.after.version,
            row.source,
            QString::number(int(row.verdict))};
}
} // namespace

bool PreviewChoices::carryOver(const ChangePreview &earlier, ChangePreview *anew)
{
    QHash<QStringList, bool> choices;
    choices.reserve(earlier.rows.size());
    for (const PreviewRow &row : earlier.rows)
        choices.insert(keyOf(row), row.isOn);
    QVector<int> on;
    QVector<int> off;
    for (int i = 0; i < anew->rows.size(); ++i) {
        const PreviewRow &row = anew->rows.at(i);
        const bool isOn = choices.value(keyOf(row), row.isOn);
        if (isOn != row.isOn)
            (isOn ? on : off).append(i);
    }
    anew->setOn(off, false);
    anew->setOn(on, true);
    return !off.isEmpty() || !on.isEmpty();
}
