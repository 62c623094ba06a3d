// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class Prompts;
class QAbstractButton;
class QDialog;
struct SigningCheck;

/** Guards a dialog's check box that turns signing on: it stays on only where signing is possible. */
class SigningSwitch : public QObject
{
    Q_OBJECT
public:
    /** While the check runs, the dialog cannot be accepted with `accepting`. All three outlive the switch. */
    SigningSwitch(QAbstractButton *box, QAbstractButton *accepting, Prompts &prompts, QDialog *dialog);

private:
    void verify();
    void turnOff(const SigningCheck &check);

    QAbstractButton *m_box;
    QAbstractButton *m_accepting;
    Prompts &m_prompts;
    QDialog *m_dialog;
};
