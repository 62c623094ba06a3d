// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sources/externalreposourcedialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

ExternalRepoSourceDialog::ExternalRepoSourceDialog(const QString &source,
                                                   const QString &alias,
                                                   Check check,
                                                   QWidget *parent)
    : QDialog(parent)
    , m_check(std::move(check))
    , m_sourceLineEdit(new QLineEdit(source, this))
    , m_aliasLineEdit(new QLineEdit(alias, this))
    , m_refusalLabel(new QLabel(this))
{
    constexpr int WidthInCharacters = 64;
    constexpr int RefusalLines = 3;
    setWindowTitle(source.isEmpty() ? tr("Add external repo") : tr("Change external repo"));
    m_sourceLineEdit->setObjectName(QStringLiteral("m_sourceLineEdit"));
    m_sourceLineEdit->setPlaceholderText(QStringLiteral("http://example.org/debian dogwood main"));
    m_sourceLineEdit->setMinimumWidth(fontMetrics().averageCharWidth() * WidthInCharacters);
    m_sourceLineEdit->setToolTip(tr("Address, suite and components, as in a sources list"));
    m_aliasLineEdit->setObjectName(QStringLiteral("m_aliasLineEdit"));
    m_aliasLineEdit->setPlaceholderText(tr("name to show in place of the address"));
    m_refusalLabel->setObjectName(QStringLiteral("m_refusalLabel"));
    m_refusalLabel->setTextFormat(Qt::PlainText);
    m_refusalLabel->setWordWrap(true);
    m_refusalLabel->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    // Reserved from the start, so that the layout does not move while the user types.
    m_refusalLabel->setMinimumHeight(fontMetrics().lineSpacing() * RefusalLines);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    m_okButton = buttons->button(QDialogButtonBox::Ok);

    auto *layout = new QVBoxLayout(this);
    auto *form = new QFormLayout;
    form->addRow(tr("&Source line:"), m_sourceLineEdit);
    form->addRow(tr("A&lias:"), m_aliasLineEdit);
    layout->addLayout(form);
    layout->addWidget(m_refusalLabel);
    layout->addStretch();
    layout->addWidget(buttons);
    connect(m_sourceLineEdit, &QLineEdit::textChanged, this, &ExternalRepoSourceDialog::judge);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    judge();
}

QString ExternalRepoSourceDialog::source() const
{
    return m_sourceLineEdit->text();
}

QString ExternalRepoSourceDialog::alias() const
{
    return m_aliasLineEdit->text();
}

void ExternalRepoSourceDialog::judge()
{
    const QString refusal = m_check(source());
    m_refusalLabel->setText(refusal);
    m_okButton->setEnabled(refusal.isEmpty());
}
