// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QWidget;

/**
 * Shortcut keys for the entries of a menu and the fields of a dialog. As usual in Qt, an "&" marks the key in the text.
 *
 * KAcceleratorManager is not used. It also marks the titles of tabs, the paths in the menu of recent repositories, and
 * the buttons of a dialog that Return and Escape press.
 */
namespace Mnemonics
{
/**
 * The texts of one menu, with a different letter or digit marked in each: the start of a word if one is free, or else
 * any letter. An existing mark is kept. A text without a free letter is returned unchanged.
 */
QStringList marked(const QStringList &texts);

/** Marks the actions of a menu or menu bar and of all its submenus except `except`. */
void mark(QWidget *menu, const QWidget *except);

/** Marks the labels of a dialog's fields (each leads to its buddy), and the buttons. */
void markForm(QWidget *form);
} // namespace Mnemonics
