// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>

/** A change of a package in a line for people. */
QString shownChange(const PackageChange &change);

/** Changes of packages and restore points for other programs. */
namespace ChangeJson
{
QJsonArray array(const QVector<PackageChange> &changes);
QJsonObject object(const RestorePoint &point);
} // namespace ChangeJson
