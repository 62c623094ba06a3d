// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLabel;
class QString;
class QTreeView;

/** What the tables of the dialogs have in common. */
namespace TableLook
{
/** Rows over the whole width and no tree; `name` is what is read out. */
void apply(QTreeView &view, const QString &name);
/** Puts the label, which tells why there is no row, where the rows would be. */
void placeOver(QTreeView &view, QLabel *label);
} // namespace TableLook
