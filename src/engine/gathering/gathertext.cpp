// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/gathering/gathertext.h"

#include "core/countof.h"

QString GatherText::reason(const GatherPlan::Left &left)
{
    switch (left.why) {
    case GatherPlan::Why::Unknown:
        return tr("No source offers it.");
    case GatherPlan::Why::Versions:
        return tr("No source offers a version that meets it, but only: %1.").arg(left.details);
    case GatherPlan::Why::Newer:
        return tr("What would meet it is older than %1 in the repository.").arg(left.details);
    case GatherPlan::Why::Clash:
        return tr("It needs another version than %1, which another package needs.").arg(left.details);
    case GatherPlan::Why::Lists:
        return tr("apt fetches no lists for the architecture %1.").arg(left.owner.architecture);
    case GatherPlan::Why::Installer:
        return tr("apt's sources offer no installer packages.");
    case GatherPlan::Why::Off:
        return tr("What would meet it is not fetched.");
    case GatherPlan::Why::Leaving:
        return tr("What meets it now is replaced by a newer version.");
    }
    return {};
}

QString GatherText::neededBy(const GatherPlan::Row &row)
{
    constexpr int MostNames = 8;
    const QString names = row.neededBy.mid(0, MostNames).join(QLatin1String(", "));
    const int further = countOf(row.neededBy) - MostNames;
    return further <= 0 ? names : tr("%1 and %n more", nullptr, further).arg(names);
}

QString GatherText::line(const GatherPlan::Left &left)
{
    return tr("%1 %2 (%3) needs %4. %5")
        .arg(left.owner.name, left.owner.version, left.owner.architecture, left.entry, reason(left));
}

QStringList GatherText::lines(const QVector<GatherPlan::Left> &left)
{
    QStringList lines;
    for (const GatherPlan::Left &entry : left)
        lines.append(line(entry));
    return lines;
}

QString GatherText::summary(const QVector<GatherPlan::Left> &left)
{
    return left.isEmpty() ? tr("Nothing is missing any more.")
                          : tr("%n dependency(ies) stay unmet.", nullptr, countOf(left));
}
