// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

/** Asks for the first step when packages are to be added while no repository is open. */
class StartSelectActionDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Action { Cancel, CreateRepo, OpenRepo };

    explicit StartSelectActionDialog(QWidget *parent = nullptr);

    /** The action of the button that closed the dialog. */
    Action action() const { return m_action; }

private:
    Action m_action = Action::Cancel;
};
