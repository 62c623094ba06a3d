// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/parametersdialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QVBoxLayout>

ParametersDialog::ParametersDialog(QWidget *parent)
    : QDialog(parent)
    , m_showPkgVersionCheckBox(new QCheckBox(tr("Show package version"), this))
{
    setWindowTitle(tr("Parametrs"));
    m_showPkgVersionCheckBox->setObjectName(QStringLiteral("m_showPkgVersionCheckBox"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_showPkgVersionCheckBox);
    layout->addStretch();
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ParametersDialog::setShowPackageVersion(bool show)
{
    m_showPkgVersionCheckBox->setChecked(show);
}

bool ParametersDialog::showPackageVersion() const
{
    return m_showPkgVersionCheckBox->isChecked();
}
