// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

/** Says what the program is: its icon, name, version, purpose and licence, all taken from the application object. */
class VeltAboutDialog : public QDialog
{
    Q_OBJECT
public:
    explicit VeltAboutDialog(QWidget *parent = nullptr);

Q_SIGNALS:
    /** The user wants to know about the toolkit too. */
    void aboutQtRequested();
};
