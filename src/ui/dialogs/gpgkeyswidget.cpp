// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/gpgkeyswidget.h"

#include "signing/keylisting.h"
#include "signing/keymanager.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <QStandardItemModel>
#include <QStylePainter>
#include <QToolButton>

namespace
{
/**
 * Draws the placeholder text in normal colours, because Qt draws it too faintly. Cuts a long text in the middle,
 * because its end is the id, which distinguishes two keys of one person.
 */
class KeysComboBox : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        if (currentIndex() < 0)
            option.currentText = placeholderText();
        const int space
            = style()
                  ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
                  .width();
        const int icon = option.currentIcon.isNull() ? 0 : option.iconSize.width() + 4;
        constexpr int Margins = 4;
        option.currentText
            = fontMetrics().elidedText(option.currentText, Qt::ElideMiddle, space - icon - Margins);
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};
} // namespace

GpgKeysWidget::GpgKeysWidget(QWidget *parent)
    : QWidget(parent)
    , m_startKGpgToolButton(new QToolButton(this))
    , m_keysComboBox(new KeysComboBox(this))
    , m_warningLabel(new QLabel(this))
    , m_keyManager(new KeyManager(this))
{
    setObjectName(QStringLiteral("GpgKeysWidget"));
    m_startKGpgToolButton->setObjectName(QStringLiteral("m_startKGpgToolButton"));
    m_startKGpgToolButton->setFixedSize(32, 32);
    m_startKGpgToolButton->setIcon(QIcon::fromTheme(QStringLiteral("kgpg")));
    m_startKGpgToolButton->setToolTip(tr("Start KGpg"));
    m_startKGpgToolButton->setAccessibleName(tr("Start KGpg"));
    m_keysComboBox->setObjectName(QStringLiteral("m_keysComboBox"));
    // A user id can be long, but the dialog must not become as wide as the longest one.
    m_keysComboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int ShownCharacters = 40;
    m_keysComboBox->setMinimumContentsLength(ShownCharacters);
    m_keysComboBox->view()->setTextElideMode(Qt::ElideMiddle);
    m_warningLabel->setObjectName(QStringLiteral("m_warningLabel"));
    m_warningLabel->setTextFormat(Qt::PlainText);
    m_warningLabel->setWordWrap(true);
    auto *label = new QLabel(tr("Package signing key:"), this);
    label->setBuddy(m_keysComboBox);
    auto *information = new QLabel(tr("Select GPG key for signing packages. Use KGpg to add/delete GPG keys. "
                                      "After add/delete GPG keys need reload program."),
                                   this);
    information->setWordWrap(true);
    information->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    information->setEnabled(false);

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_startKGpgToolButton, 0, 0);
    layout->addWidget(label, 0, 1);
    layout->addWidget(m_keysComboBox, 0, 2);
    layout->addWidget(m_warningLabel, 1, 2);
    layout->addWidget(information, 2, 0, 1, 3);
    layout->setColumnStretch(2, 1);
    layout->setRowStretch(2, 1);

    connect(m_startKGpgToolButton, &QToolButton::clicked, m_keyManager, &KeyManager::start);
    connect(m_keyManager, &KeyManager::runningChanged, m_startKGpgToolButton, &QWidget::setDisabled);
    connect(m_keyManager, &KeyManager::packageMissing, this, &GpgKeysWidget::packageMissing);
    connect(m_keyManager, &KeyManager::startFailed, this, &GpgKeysWidget::startFailed);
    connect(
        m_keysComboBox, qOverload<int>(&QComboBox::currentIndexChanged), this, &GpgKeysWidget::showWarning);
    fill({});
}

void GpgKeysWidget::readKeys()
{
    m_isReading = true;
    selectKeyInUse();
    KeyListing::readInBackground(this, [this](const KeyListing &listing) {
        m_isReading = false;
        fill(listing.keys, listing.unusable, listing.warnings);
    });
}

void GpgKeysWidget::fill(const QStringList &keys,
                         const QHash<QString, QString> &unusable,
                         const QHash<QString, QString> &warnings)
{
    m_keysComboBox->clear();
    const auto *model = qobject_cast<const QStandardItemModel *>(m_keysComboBox->model());
    for (const QString &key : keys) {
        const QString id = keyIdOf(key);
        m_keysComboBox->addItem(key, id);
        const QString warning = warnings.value(key);
        m_keysComboBox->setItemData(m_keysComboBox->count() - 1, warning, Qt::ToolTipRole);
        if (!warning.isEmpty())
            m_keysComboBox->setItemIcon(m_keysComboBox->count() - 1,
                                        QIcon::fromTheme(QStringLiteral("dialog-warning")));
        const QString obstacle = unusable.value(key);
        QStandardItem *item = model == nullptr ? nullptr : model->item(m_keysComboBox->count() - 1);
        if (item == nullptr || (obstacle.isEmpty() && !id.isEmpty()))
            continue;
        item->setEnabled(false);
        if (!obstacle.isEmpty())
            item->setText(tr("%1 (%2)").arg(key, obstacle));
    }
    // The pop-up list has space for complete texts of keys.
    QAbstractItemView *list = m_keysComboBox->view();
    list->setMinimumWidth(qMin(list->sizeHintForColumn(0) + m_keysComboBox->height(),
                               screen()->availableSize().width() * 2 / 3));
    m_keysComboBox->setEnabled(!keys.isEmpty());
    selectKeyInUse();
}

void GpgKeysWidget::setKeyId(const QString &keyId)
{
    m_keyInUse = keyId;
    selectKeyInUse();
}

void GpgKeysWidget::selectKeyInUse()
{
    // A key that is not listed is shown too, because it stays in use.
    QString none = tr("No key is selected");
    if (m_isReading)
        none = tr("The keys are being read");
    else if (m_keysComboBox->count() == 0)
        none = m_keyInUse.isEmpty() ? tr("No keys are listed")
                                    : tr("No keys are listed (in use: %1)").arg(m_keyInUse);
    else if (!m_keyInUse.isEmpty())
        none = tr("%1 (not listed)").arg(m_keyInUse);
    m_keysComboBox->setPlaceholderText(none);
    m_keysComboBox->setCurrentIndex(m_keyInUse.isEmpty() ? -1 : m_keysComboBox->findData(m_keyInUse));
    showWarning();
}

void GpgKeysWidget::showWarning()
{
    const QString warning = m_keysComboBox->currentData(Qt::ToolTipRole).toString();
    m_warningLabel->setText(warning);
    m_warningLabel->setVisible(!warning.isEmpty());
}

QString GpgKeysWidget::keyId() const
{
    const QString chosen = m_keysComboBox->currentData().toString();
    return chosen.isEmpty() ? m_keyInUse : chosen;
}

QString GpgKeysWidget::keyIdOf(const QString &key)
{
    // A user id may contain brackets, so the last ones are used.
    static const QRegularExpression pattern(QStringLiteral("^.*\\[(.+)\\]"));
    return pattern.match(key).captured(1);
}
