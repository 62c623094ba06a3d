// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/preview/changepreview.h"

#include <QList>
#include <QVector>

/** What the rows that are on amount to. Pure. */
namespace PreviewSizes
{
/** Sets the bytes that come and go, and what clients would get. `present` are the packages of the repository. */
void fill(PreviewEffect *effect, const QVector<PreviewRow> &rows, const QList<PackageInfoPtr> &present);
/** The packages of the repository after the change. */
QList<PackageInfoPtr> after(const QVector<PreviewRow> &rows, const QList<PackageInfoPtr> &present);
} // namespace PreviewSizes
