// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLabel;
class QString;
class QTreeView;

/** The common look of the tables in dialogs. */
namespace TableLook
{
/** Sets focus over the whole row, and no tree; `name` is the accessible name. */
void apply(QTreeView &view, const QString &name);
/** Places the label, which explains why the table is empty, over the rows. */
void placeOver(QTreeView &view, QLabel *label);
} // namespace TableLook
