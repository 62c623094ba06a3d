// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QByteArray>

#include <optional>

/**
 * The file job.json of a restore point: JSON with a version. A repository can come from anybody, so a record that names
 * a file outside the pool, or has no sense, is none.
 */
namespace PointRecord
{
inline const QString FileName = QStringLiteral("job.json");
/** Bytes; of a record of more than 63,000 packages, ten times over. */
constexpr qint64 LargestRecord = 256 << 20;

enum Part {
    Whole,
    WithoutChanges ///< reads on only to the rows of packages, which can be many
};

QByteArray toJson(const RestorePoint &point);
/** Nothing when it is no record. The size of the point is not in it. */
std::optional<RestorePoint> fromJson(const QByteArray &json, Part part = Whole);
/** Whether the path is one of a file in the pool, and leads nowhere else. */
bool isPoolPath(const QString &path);
} // namespace PointRecord
