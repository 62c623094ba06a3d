// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QString>
#include <QVector>

#include <limits>
#include <optional>

/** What has changed between two states of a repository, from the records of its restore points. Pure values. */
namespace HistoryDifference
{
/** Stands for the present state where the number of a point is asked for. */
constexpr int Now = std::numeric_limits<int>::max();

/**
 * From the state before the point `from` to the state before the point `to`. Nothing when a record between them is
 * missing or damaged. `points` are the newest first.
 */
std::optional<QVector<PackageChange>> between(const QVector<RestorePoint> &points, int from, int to);
/** The same changes as `first` and then `second`; what has come and gone is none. */
QVector<PackageChange> composed(const QVector<PackageChange> &first, const QVector<PackageChange> &second);
/** The way back. */
QVector<PackageChange> inverted(const QVector<PackageChange> &changes);
/** The points that have changed packages with this name, with these changes alone. An empty name matches all. */
QVector<RestorePoint> ofPackage(const QVector<RestorePoint> &points, const QString &name);
} // namespace HistoryDifference
