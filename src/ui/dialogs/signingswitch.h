// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class Prompts;
class QAbstractButton;
class QDialog;
struct SigningCheck;

/** Controls a dialog's check box that turns signing on: it stays checked only when signing is possible. */
class SigningSwitch : public QObject
{
    Q_OBJECT
public:
    /** During the check, the button `accepting` is disabled. All three objects must outlive the switch. */
    SigningSwitch(QAbstractButton *box, QAbstractButton *accepting, Prompts &prompts, QDialog *dialog);

private:
    void verify();
    void turnOff(const SigningCheck &check);

    QAbstractButton *m_box;
    QAbstractButton *m_accepting;
    Prompts &m_prompts;
    QDialog *m_dialog;
};
