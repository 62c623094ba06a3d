// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/batch/batchreport.h"

#include <algorithm>

QString BatchReport::Entry::stateText() const
{
    switch (state) {
    case State::Waiting:
        return tr("Waiting");
    case State::Running:
        return tr("At work");
    case State::Done:
        return tr("Done");
    case State::Troubled:
        return tr("Errors");
    case State::LeftOut:
        break;
    }
    return tr("Left out");
}

QString BatchReport::summary() const
{
    const auto count = [this](State state) {
        return static_cast<int>(std::count_if(
            entries.cbegin(), entries.cend(), [state](const Entry &entry) { return entry.state == state; }));
    };
    QStringList parts{tr("%n repository(ies) done", nullptr, count(State::Done))};
    if (const int troubled = count(State::Troubled))
        parts.append(tr("%n with errors", nullptr, troubled));
    if (const int leftOut = count(State::LeftOut))
        parts.append(tr("%n left out", nullptr, leftOut));
    return parts.join(QLatin1String(", "));
}

QString BatchReport::toText() const
{
    QString text = title + QLatin1String("\n") + summary() + QLatin1String("\n");
    for (const Entry &entry : entries) {
        text += QStringLiteral("\n%1\n  %2").arg(entry.path, entry.stateText());
        text += entry.message.isEmpty() ? QString() : QLatin1String(": ") + entry.message;
        text += QLatin1Char('\n');
        for (const QString &trouble : entry.troubles)
            text += QLatin1String("  ! ")
                    + QString(trouble).replace(QLatin1Char('\n'), QLatin1String("\n    "))
                    + QLatin1Char('\n');
    }
    return text;
}
