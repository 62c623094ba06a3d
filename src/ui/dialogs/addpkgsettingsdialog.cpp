// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/addpkgsettingsdialog.h"

#include "ui/dialogs/signingswitch.h"
#include "ui/widgets/mnemonics.h"

#include "ui_addpkgsettingsdialog.h"

#include <QEvent>
#include <QPushButton>

AddPkgSettingsDialog::AddPkgSettingsDialog(const QStringList &components,
                                           const UserChoices &choices,
                                           Prompts &prompts,
                                           QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::AddPkgSettingsDialog>())
    , m_choices(choices)
{
    m_ui->setupUi(this);
    Mnemonics::markForm(this);
    // The empty entry keeps each package in its own component. Without it, the user could not return to this choice.
    QComboBox *box = m_ui->m_componentComboBox;
    box->addItem(tr("(each package's own component)"), QString());
    for (const QString &component : components)
        box->addItem(component, component);
    // A component of another repository is not offered. Then packages go to their own components.
    m_componentAtFirst = qMax(0, box->findData(choices.currentComponent));
    box->setCurrentIndex(m_componentAtFirst);
    m_ui->m_signPackageCheckBox->setChecked(choices.signPackage);
    new SigningSwitch(
        m_ui->m_signPackageCheckBox, m_ui->buttonBox->button(QDialogButtonBox::Ok), prompts, this);
    m_ui->m_checkDependsCheckBox->setChecked(choices.addPkgCheckDepends);
    m_ui->m_showCheckBox->setChecked(choices.showAddPkgSettings);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

AddPkgSettingsDialog::~AddPkgSettingsDialog() = default;

void AddPkgSettingsDialog::setSigningVisible(bool visible)
{
    m_ui->m_signPackageCheckBox->setVisible(visible);
}

void AddPkgSettingsDialog::setDependsCheckVisible(bool visible)
{
    m_ui->m_checkDependsCheckBox->setVisible(visible);
}

void AddPkgSettingsDialog::offerPreview()
{
    QPushButton *preview = m_ui->buttonBox->addButton(tr("Preview..."), QDialogButtonBox::ActionRole);
    preview->setObjectName(QStringLiteral("m_previewButton"));
    preview->setAutoDefault(false);
    Mnemonics::markForm(this);
    connect(preview, &QPushButton::clicked, this, [this] {
        m_wantsPreview = true;
        accept();
    });
    // What cannot be confirmed cannot be looked at either.
    QPushButton *ok = m_ui->buttonBox->button(QDialogButtonBox::Ok);
    preview->setEnabled(ok->isEnabled());
    ok->installEventFilter(this);
}

bool AddPkgSettingsDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        m_ui->buttonBox->findChild<QPushButton *>(QStringLiteral("m_previewButton"))
            ->setEnabled(static_cast<QWidget *>(watched)->isEnabled());
    return QDialog::eventFilter(watched, event);
}

UserChoices AddPkgSettingsDialog::choices() const
{
    UserChoices choices = m_choices;
    // If the stored component is not offered and the user changes nothing, it is kept for the repositories that have
    // it.
    if (m_ui->m_componentComboBox->currentIndex() != m_componentAtFirst)
        choices.currentComponent = m_ui->m_componentComboBox->currentData().toString();
    choices.signPackage = m_ui->m_signPackageCheckBox->isChecked();
    choices.addPkgCheckDepends = m_ui->m_checkDependsCheckBox->isChecked();
    choices.showAddPkgSettings = m_ui->m_showCheckBox->isChecked();
    return choices;
}
