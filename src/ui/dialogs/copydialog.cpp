// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/copydialog.h"

#include "ui/widgets/mnemonics.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

CopyDialog::CopyDialog(Kind kind, const QString &about, QVector<Target> targets, int current, QWidget *parent)
    : QDialog(parent)
    , m_targets(std::move(targets))
    , m_target(new QComboBox(this))
    , m_component(new QComboBox(this))
    , m_depends(new QCheckBox(tr("With what they depend on"), this))
{
    setWindowTitle(kind == Kind::Move ? tr("Move packages") : tr("Copy packages"));
    auto *packages = new QLabel(about, this);
    packages->setTextFormat(Qt::PlainText);
    packages->setWordWrap(true);
    m_target->setObjectName(QStringLiteral("m_targetComboBox"));
    m_target->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int Letters = 40;
    m_target->setMinimumContentsLength(Letters);
    for (const Target &target : std::as_const(m_targets))
        m_target->addItem(target.isSource ? tr("%1 (another component)").arg(target.path) : target.path);
    m_target->addItem(tr("Open another..."));
    m_target->setCurrentIndex(current);
    m_component->setObjectName(QStringLiteral("m_componentComboBox"));
    m_depends->setObjectName(QStringLiteral("m_dependsCheckBox"));
    m_depends->setToolTip(
        tr("Also those packages that they need and that the other repository does not have. "
           "These are always copied."));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    QPushButton *start
        = buttons->addButton(kind == Kind::Move ? tr("Move") : tr("Copy"), QDialogButtonBox::AcceptRole);
    start->setDefault(true);
    QPushButton *preview = buttons->addButton(tr("Preview..."), QDialogButtonBox::ActionRole);
    preview->setObjectName(QStringLiteral("m_previewButton"));
    preview->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(preview, &QPushButton::clicked, this, [this] {
        m_wantsPreview = true;
        accept();
    });
    connect(m_target, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CopyDialog::showComponents);

    auto *form = new QFormLayout;
    form->addRow(tr("Repository:"), m_target);
    form->addRow(tr("Component:"), m_component);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(packages);
    layout->addLayout(form);
    layout->addWidget(m_depends);
    layout->addWidget(buttons);
    showComponents();
    Mnemonics::markForm(this);
    m_target->setFocus();
}

void CopyDialog::showComponents()
{
    const int index = target();
    const bool isWithin = index >= 0 && m_targets.at(index).isSource;
    m_component->clear();
    if (!isWithin)
        m_component->addItem(tr("as it is"), QString());
    if (index >= 0)
        for (const QString &component : m_targets.at(index).components)
            m_component->addItem(component, component);
    m_depends->setEnabled(!isWithin);
}

int CopyDialog::target() const
{
    return m_target->currentIndex() < m_targets.size() ? m_target->currentIndex() : -1;
}

QString CopyDialog::component() const
{
    return m_component->currentData().toString();
}

bool CopyDialog::withDepends() const
{
    return m_depends->isEnabled() && m_depends->isChecked();
}
