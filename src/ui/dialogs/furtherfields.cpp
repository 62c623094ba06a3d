// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/furtherfields.h"

#include "engine/repository/descriptionfields.h"
#include "signing/keylisting.h"
#include "ui/widgets/checkcombobox.h"

#include <QAbstractItemView>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
const QString GzipOnly = QStringLiteral(".gz");
} // namespace

FurtherFields::FurtherFields(QWidget *parent)
    : QWidget(parent)
    , m_button(new QToolButton(this))
    , m_area(new QScrollArea(this))
    , m_origin(new QLineEdit)
    , m_label(new QLineEdit)
    , m_description(new QLineEdit)
    , m_key(new QComboBox)
    , m_contents(new CheckComboBox)
    , m_validFor(new QSpinBox)
    , m_otherFields(new QPlainTextEdit)
{
    m_button->setObjectName(QStringLiteral("m_moreToolButton"));
    m_button->setText(tr("More"));
    m_button->setToolTip(tr("Show the rarer fields of the description"));
    m_button->setCheckable(true);
    m_button->setAutoRaise(true);
    m_button->setFocusPolicy(Qt::StrongFocus);
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    auto *fields = new QWidget;
    auto *form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_area->setWidget(fields);
    addField(tr("Origin"),
             m_origin,
             "m_originLineEdit",
             tr("This required field.\nWho makes the packages. Clients can select by it."));
    addField(tr("Label"),
             m_label,
             "m_labelLineEdit",
             tr("This optional field.\nClients can select the repository by it."));
    addField(tr("Description"),
             m_description,
             "m_descriptionLineEdit",
             tr("This optional field.\nOne line that tells what is in the repository."));
    addField(tr("Signing key"),
             m_key,
             "m_signKeyComboBox",
             tr("The key that signs the repository (apt). Clients need its public part."));
    addField(tr("Contents"),
             m_contents,
             "m_contentsComboBox",
             tr("How the lists of the packages' files are compressed, and what they list.\nWithout a choice, "
                ".gz."));
    addField(tr("Valid for (days)"),
             m_validFor,
             "m_validForSpinBox",
             tr("Clients refuse the repository when its indices have not been written for so many days."));
    addField(tr("Other fields"),
             m_otherFields,
             "m_otherFieldsTextEdit",
             tr("What else is in the description. It stays as it is."));

    // A user id can be long, but the dialog must not become as wide as the longest one.
    m_key->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_key->view()->setTextElideMode(Qt::ElideMiddle);
    m_contents->setChoices(DescriptionFields::contentsWords());
    m_contents->setTextReadOnly(true);
    m_validFor->setRange(0, DescriptionFields::MostDays);
    m_validFor->setSpecialValueText(tr("no limit"));
    m_otherFields->setReadOnly(true);
    m_otherFields->setTabChangesFocus(true);
    m_otherFields->setLineWrapMode(QPlainTextEdit::NoWrap);
    constexpr int ShownLines = 4;
    m_otherFields->setFixedHeight(m_otherFields->fontMetrics().lineSpacing() * ShownLines
                                  + m_otherFields->horizontalScrollBar()->sizeHint().height());

    m_area->setObjectName(QStringLiteral("m_furtherScrollArea"));
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->viewport()->setAutoFillBackground(false);
    fields->setAutoFillBackground(false);
    m_area->setMinimumWidth(fields->minimumSizeHint().width()
                            + m_area->verticalScrollBar()->sizeHint().width());
    // On a small screen the area gets what the other rows leave.
    m_area->setMinimumHeight(m_origin->sizeHint().height() * 3 / 2);
    m_area->setFocusPolicy(Qt::NoFocus);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button, 0, Qt::AlignLeft);
    layout->addWidget(m_area);
    connect(m_button, &QToolButton::toggled, this, [this](bool isOpen) {
        showOpen(isOpen);
        Q_EMIT folded();
    });
    showOpen(false);
    setInfo({});
}

void FurtherFields::addField(const QString &caption, QWidget *field, const char *name, const QString &toolTip)
{
    field->setObjectName(QLatin1String(name));
    field->setToolTip(toolTip);
    auto *label = new QLabel(caption);
    label->setBuddy(field);
    static_cast<QFormLayout *>(m_area->widget()->layout())->addRow(label, field);
}

void FurtherFields::showOpen(bool isOpen)
{
    m_button->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    m_area->setVisible(isOpen);
    if (!isOpen || m_hasReadKeys)
        return;
    m_hasReadKeys = true;
    KeyListing::readInBackground(this, [this](const KeyListing &listing) { fillKeys(listing); });
}

void FurtherFields::setOpen(bool isOpen)
{
    m_button->setChecked(isOpen);
}

QWidgetList FurtherFields::tabOrder() const
{
    return {m_button, m_origin, m_label, m_description, m_key, m_contents, m_validFor, m_otherFields};
}

void FurtherFields::setInfo(const RepoInfo &info)
{
    m_origin->setText(info.origin);
    m_label->setText(info.label);
    m_description->setText(info.description);
    m_keyInUse = info.signKey;
    if (m_key->count() == 0)
        fillKeys({});
    selectKey();
    m_contents->setEditText(info.contentsChoices.isEmpty() ? GzipOnly : info.contentsChoices);
    m_validFor->setValue(info.validFor);
    m_otherFields->setPlainText(info.otherLines.join(QLatin1Char('\n')));
    setSigned(info.signWith);
    setContents(info.contents);
    setOpen(info.origin != DefaultOrigin || !info.label.isEmpty() || !info.description.isEmpty()
            || !info.signKey.isEmpty() || !info.contentsChoices.isEmpty() || info.validFor > 0
            || !info.otherLines.isEmpty());
}

void FurtherFields::apply(RepoInfo *info) const
{
    info->origin = m_origin->text().trimmed();
    info->label = m_label->text().trimmed();
    info->description = m_description->text().trimmed();
    info->signKey = info->signWith ? m_key->currentData().toString() : QString();
    const QString choices = m_contents->currentText();
    info->contentsChoices = info->contents && choices != GzipOnly ? choices : QString();
    info->validFor = m_validFor->value();
}

void FurtherFields::setSigned(bool isSigned)
{
    m_key->setEnabled(isSigned);
}

void FurtherFields::setContents(bool hasContents)
{
    m_contents->setEnabled(hasContents);
}

void FurtherFields::fillKeys(const KeyListing &listing)
{
    const QString chosen = m_key->currentData().toString();
    m_key->clear();
    m_key->addItem(tr("Default key of gpg"), QString());
    const auto *model = qobject_cast<const QStandardItemModel *>(m_key->model());
    for (const QString &text : listing.keys) {
        const QString obstacle = listing.unusable.value(text);
        m_key->addItem(obstacle.isEmpty() ? text : tr("%1 (%2)").arg(text, obstacle),
                       listing.fingerprints.value(text));
        const int row = m_key->count() - 1;
        const QString warning = listing.warnings.value(text);
        m_key->setItemData(row, warning, Qt::ToolTipRole);
        if (!warning.isEmpty())
            m_key->setItemIcon(row, QIcon::fromTheme(QStringLiteral("dialog-warning")));
        if (model != nullptr && (!obstacle.isEmpty() || m_key->itemData(row).toString().isEmpty()))
            model->item(row)->setEnabled(false);
    }
    selectKey();
    // The keys may come after the user has chosen the default key.
    if (const int row = m_key->findData(chosen); row >= 0 && chosen != m_keyInUse)
        m_key->setCurrentIndex(row);
}

void FurtherFields::selectKey()
{
    int found = m_keyInUse.isEmpty() ? 0 : -1;
    for (int row = 1; row < m_key->count() && found < 0; ++row)
        if (m_key->itemData(row).toString().endsWith(m_keyInUse, Qt::CaseInsensitive))
            found = row;
    if (found < 0) {
        found = m_key->count();
        m_key->addItem(tr("%1 (not listed)").arg(m_keyInUse), m_keyInUse);
    } else if (found > 0) {
        // The description keeps the spelling of its key.
        m_key->setItemData(found, m_keyInUse);
    }
    m_key->setCurrentIndex(found);
}
