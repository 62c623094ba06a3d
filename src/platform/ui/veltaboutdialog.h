// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

/** Shows the icon, name, version, purpose and licence of the program. All come from the application object. */
class VeltAboutDialog : public QDialog
{
    Q_OBJECT
public:
    explicit VeltAboutDialog(QWidget *parent = nullptr);

Q_SIGNALS:
    /** The user wants to see the information about Qt. */
    void aboutQtRequested();
};
