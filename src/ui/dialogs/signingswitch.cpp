// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/signingswitch.h"

#include "signing/signingcheck.h"
#include "ui/dialogs/missingpackage.h"
#include "ui/dialogs/prompts.h"

#include <QAbstractButton>
#include <QDialog>
#include <QToolTip>

SigningSwitch::SigningSwitch(QAbstractButton *box,
                             QAbstractButton *accepting,
                             Prompts &prompts,
                             QDialog *dialog)
    : QObject(dialog)
    , m_box(box)
    , m_accepting(accepting)
    , m_prompts(prompts)
    , m_dialog(dialog)
{
    connect(m_box, &QAbstractButton::clicked, this, [this](bool isOn) {
        if (isOn)
            verify();
    });
}

void SigningSwitch::verify()
{
    m_box->setEnabled(false);
    m_accepting->setEnabled(false);
    SigningCheck::verifySigningKeys(this, [this](const SigningCheck &check) {
        m_box->setEnabled(true);
        m_accepting->setEnabled(true);
        m_box->setFocus();
        if (!check.canSign)
            turnOff(check);
    });
}

void SigningSwitch::turnOff(const SigningCheck &check)
{
    m_box->setChecked(false);
    if (!check.missingPackage.isEmpty()) {
        offerMissingPackage(m_prompts, check.missingPackage, m_dialog);
    } else if (!check.errorText.isEmpty()) {
        m_prompts.fail(tr("Error"), tr("Key verification error:\n%1").arg(check.errorText), m_dialog);
    } else {
        m_box->setToolTip(tr("There is no key that can sign. Make one with KGpg first."));
        QToolTip::showText(m_box->mapToGlobal(m_box->rect().bottomLeft()), m_box->toolTip(), m_box);
    }
}
