// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/historydifference.h"
#include "engine/history/pointrecord.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

void FuzzTarget::history(std::string_view input)
{
    const QByteArray json(input.data(), static_cast<int>(input.size()));
    const auto point = PointRecord::fromJson(json);
    if (!point)
        return;
    const auto head = PointRecord::fromJson(json, PointRecord::WithoutChanges);
    // Members can come in any order.
    FUZZ_RULE(!head || (head->number == point->number && head->time.isValid()));
    const QByteArray written = PointRecord::toJson(*point);
    const auto again = PointRecord::fromJson(written);
    FUZZ_RULE(again && PointRecord::toJson(*again) == written);
    for (const PackageChange &change : point->changes)
        for (const PackageChange::State &state : {change.before, change.after})
            FUZZ_RULE(state.isNone() || PointRecord::isPoolPath(state.file));
    // A hostile record can name a place twice.
    const auto there = HistoryDifference::composed(point->changes, {});
    FUZZ_RULE(HistoryDifference::composed(there, HistoryDifference::inverted(there)).isEmpty());
}
