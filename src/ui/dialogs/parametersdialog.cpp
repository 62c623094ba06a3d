// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/parametersdialog.h"

#include "ui/dialogs/gpgkeyswidget.h"
#include "ui/dialogs/missingpackage.h"
#include "ui/widgets/mnemonics.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QVBoxLayout>

ParametersDialog::ParametersDialog(Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_showPkgVersionCheckBox(new QCheckBox(tr("Show package version"), this))
    , m_gpgKeysWidget(new GpgKeysWidget(this))
{
    setWindowTitle(tr("Parametrs"));
    m_showPkgVersionCheckBox->setObjectName(QStringLiteral("m_showPkgVersionCheckBox"));
    m_gpgKeysWidget->setObjectName(QStringLiteral("m_gpgKeysWidget"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_showPkgVersionCheckBox);
    layout->addWidget(m_gpgKeysWidget);
    layout->addStretch();
    layout->addWidget(buttons);
    Mnemonics::markForm(this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_gpgKeysWidget, &GpgKeysWidget::packageMissing, this, [this, &prompts](const QString &package) {
        offerMissingPackage(prompts, package, this);
    });
    connect(m_gpgKeysWidget, &GpgKeysWidget::startFailed, this, [this, &prompts](const QString &program) {
        warnNotStarted(prompts, program, this);
    });
}

void ParametersDialog::setShowPackageVersion(bool show)
{
    m_showPkgVersionCheckBox->setChecked(show);
}

bool ParametersDialog::showPackageVersion() const
{
    return m_showPkgVersionCheckBox->isChecked();
}

void ParametersDialog::setSignKeyId(const QString &keyId)
{
    m_gpgKeysWidget->setKeyId(keyId);
}

QString ParametersDialog::signKeyId() const
{
    return m_gpgKeysWidget->keyId();
}

void ParametersDialog::setSigningVisible(bool visible)
{
    m_gpgKeysWidget->setVisible(visible);
}

void ParametersDialog::readKeys()
{
    m_gpgKeysWidget->readKeys();
}
