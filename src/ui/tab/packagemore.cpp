// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/packagemore.h"

#include "core/settingskeys.h"
#include "core/storedvalues.h"
#include "ui/packages/packagefacts.h"

#include <QAction>
#include <QDateTime>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSettings>
#include <QToolButton>
#include <QVBoxLayout>

PackageMore::PackageMore(QWidget *parent)
    : QWidget(parent)
    , m_button(new QToolButton(this))
    , m_rows(new QWidget(this))
    , m_form(new QFormLayout)
    , m_buttons(new QHBoxLayout)
{
    m_button->setObjectName(QStringLiteral("m_moreButton"));
    m_button->setText(tr("More"));
    m_button->setToolTip(tr("Size, source, place and checksum of the package file"));
    m_button->setCheckable(true);
    m_button->setAutoRaise(true);
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_size = addRow(tr("Size:"), QStringLiteral("m_sizeLabel"));
    m_installedSize = addRow(tr("Installed size:"), QStringLiteral("m_installedSizeLabel"));
    m_source = addRow(tr("Source package:"), QStringLiteral("m_sourceLabel"));
    m_homepage = addRow(tr("Homepage:"), QStringLiteral("m_homepageLabel"));
    m_homepage->setTextFormat(Qt::RichText);
    m_homepage->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    m_homepage->setOpenExternalLinks(true);
    m_added = addRow(tr("Added:"), QStringLiteral("m_addedLabel"));
    m_poolFile = addRow(tr("Pool file:"), QStringLiteral("m_poolFileLabel"));
    m_sha256 = addRow(tr("SHA-256:"), QStringLiteral("m_sha256Label"));
    m_buttons->addStretch();
    auto *inside = new QVBoxLayout(m_rows);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addLayout(m_form);
    inside->addLayout(m_buttons);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    layout->addWidget(m_rows);
    layout->addStretch();
    setOpen(false);
    connect(m_button, &QToolButton::toggled, this, [this](bool isOpen) {
        QSettings().setValue(SettingsKey::ShowPackageMore, isOpen);
        setOpen(isOpen);
    });
}

QLabel *PackageMore::addRow(const QString &title, const QString &name)
{
    auto *field = new QLabel(m_rows);
    field->setObjectName(name);
    field->setTextFormat(Qt::PlainText);
    field->setWordWrap(true);
    field->setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
    auto *titleLabel = new QLabel(title, m_rows);
    titleLabel->setAlignment(Qt::AlignLeading | Qt::AlignLeft | Qt::AlignTop);
    titleLabel->setBuddy(field);
    m_form->addRow(titleLabel, field);
    return field;
}

void PackageMore::setCommands(const QList<QAction *> &commands)
{
    for (QAction *command : commands) {
        // The mark in the text is the key of the command in its menu.
        const QString text = command->text().remove(QLatin1Char('&'));
        auto *button = new QPushButton(command->icon(), text, m_rows);
        button->setEnabled(command->isEnabled());
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, command, &QAction::trigger);
        connect(command, &QAction::changed, button, [command, button] {
            button->setEnabled(command->isEnabled());
        });
        m_buttons->insertWidget(m_buttons->count() - 1, button);
    }
}

void PackageMore::showEvent(QShowEvent *event)
{
    // Another tab may have folded the part out or away.
    setOpen(storedBool(QSettings(), SettingsKey::ShowPackageMore, false));
    QWidget::showEvent(event);
}

void PackageMore::setOpen(bool isOpen)
{
    {
        const QSignalBlocker blocker(m_button);
        m_button->setChecked(isOpen);
    }
    m_button->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    m_rows->setVisible(isOpen);
    if (isOpen && !m_isShown)
        fill();
}

void PackageMore::showPackage(const PackageInfo &package)
{
    m_package = package;
    m_isShown = false;
    if (m_button->isChecked())
        fill();
}

void PackageMore::fill()
{
    m_isShown = true;
    const PackageFacts facts = PackageFacts::of(m_package);
    const auto set = [this](QLabel *label, const QString &text) {
        label->setText(text);
        label->setVisible(!text.isEmpty());
        m_form->labelForField(label)->setVisible(!text.isEmpty());
    };
    set(m_size, PackageFacts::sizeText(facts.size, true));
    set(m_installedSize, PackageFacts::sizeText(facts.installedSize));
    set(m_source, facts.source);
    set(m_homepage, facts.homepage.isEmpty() ? QString() : PackageFacts::linkTo(facts.homepage));
    set(m_poolFile, facts.poolFile);
    set(m_sha256, facts.sha256);
    m_added->setText(QString());
    const QString path = m_package.filePath();
    m_query.ask(
        this,
        [path](const StopRequest &) {
            const QFileInfo info(path);
            return PoolFile{info.isFile(), info.size(), info.lastModified().toMSecsSinceEpoch()};
        },
        [this, listed = facts.size](const PoolFile &file) { showFile(file, listed); });
}

void PackageMore::showFile(const PoolFile &file, qint64 listedSize)
{
    if (!file.exists) {
        m_added->setText(tr("The file is missing."));
        return;
    }
    const QDateTime changed = QDateTime::fromMSecsSinceEpoch(file.changed);
    QString text = QLocale().toString(changed, QLocale::ShortFormat);
    if (listedSize >= 0 && file.size != listedSize)
        text += QLatin1Char('\n')
                + tr("The file has another size: %1").arg(PackageFacts::sizeText(file.size, true));
    m_added->setText(text);
}
