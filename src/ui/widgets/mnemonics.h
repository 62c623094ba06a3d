// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QWidget;

/**
 * The keys that choose the entries of a menu and the fields of a dialog, marked with "&" in their texts as Qt wants it.
 */
namespace Mnemonics
{
/**
 * These texts of one menu, each with its own letter or digit marked: the first of a word where one is left, else any.
 * A text that has a mark keeps it; one with nothing left to mark comes back as it is.
 */
QStringList marked(const QStringList &texts);

/** Marks the texts of a menu's or menu bar's actions and, below them, of all submenus but `except`. */
void mark(QWidget *menu, const QWidget *except);

/** Marks the captions of a dialog's fields, which lead to their buddies, and its buttons. */
void markForm(QWidget *form);
} // namespace Mnemonics
