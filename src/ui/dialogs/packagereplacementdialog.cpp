// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/packagereplacementdialog.h"

#include "ui/widgets/mnemonics.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

namespace
{
QString questionText(RepoEnums::ErrorCode collision, const PackageInfo &package)
{
    QString text;
    switch (collision) {
    case RepoEnums::PACKAGE_EXISTS_NEW_VERSION:
        text = PackageReplacementDialog::tr("The repository already contains a package %1 (%2) of a newer "
                                            "version. Do you want to replace it?");
        break;
    case RepoEnums::PACKAGE_EXISTS_OLD_VERSION:
        text = PackageReplacementDialog::tr("The repository already contains a package %1 (%2) of an earlier "
                                            "version. Do you want to replace it?");
        break;
    default:
        text = PackageReplacementDialog::tr("The package %1 (%2) already exists. Do you want to replace it?");
    }
    return text.arg(package.name, package.version);
}

QLabel *plainLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}
} // namespace

PackageReplacementDialog::PackageReplacementDialog(RepoEnums::ErrorCode collision,
                                                   const PackageInfo &package,
                                                   bool singlePackage,
                                                   QWidget *parent)
    : QDialog(parent)
    , m_options(new QButtonGroup(this))
    , m_repositoryLabel(plainLabel(QString(), this))
    , m_versionsLabel(plainLabel(QString(), this))
    , m_presentVersion(tr("%1 (%2)").arg(package.version, package.ownArchitecture()))
{
    setWindowTitle(tr("Package replacement"));
    auto *rows = new QVBoxLayout(this);
    auto *question = plainLabel(questionText(collision, package), this);
    question->setObjectName(QStringLiteral("m_questionLabel"));
    rows->addWidget(question);
    m_versionsLabel->setObjectName(QStringLiteral("m_versionsLabel"));
    m_versionsLabel->hide();
    rows->addWidget(m_versionsLabel);
    m_repositoryLabel->hide();
    rows->addWidget(m_repositoryLabel);

    // Added before the buttons, so that the Tab key moves from top to bottom.
    if (!singlePackage)
        addOptions(rows);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Yes | QDialogButtonBox::No, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    connect(buttons->button(QDialogButtonBox::Yes), &QPushButton::clicked, this, [this] {
        finish(PackageReplacementRules::ReplaceThis);
    });
    QPushButton *no = buttons->button(QDialogButtonBox::No);
    connect(no, &QPushButton::clicked, this, [this] { finish(PackageReplacementRules::KeepThis); });
    if (!singlePackage) {
        QPushButton *applyToAll = buttons->addButton(tr("Apply to all"), QDialogButtonBox::ApplyRole);
        applyToAll->setObjectName(QStringLiteral("m_applyToAllButton"));
        // Nothing can be applied before an option is chosen.
        applyToAll->setEnabled(false);
        connect(m_options, qOverload<int>(&QButtonGroup::idClicked), applyToAll, [applyToAll] {
            applyToAll->setEnabled(true);
            applyToAll->setDefault(true);
        });
        connect(applyToAll, &QPushButton::clicked, this, [this] {
            finish(static_cast<PackageReplacementRules::Rule>(m_options->checkedId()));
        });
        QPushButton *stop = buttons->addButton(tr("Stop"), QDialogButtonBox::ResetRole);
        stop->setObjectName(QStringLiteral("m_stopButton"));
        stop->setAutoDefault(false);
        stop->setToolTip(tr("Keep this package and add no more"));
        connect(stop, &QPushButton::clicked, this, [this] {
            m_wantsStop = true;
            finish(PackageReplacementRules::KeepThis);
        });
    }
    rows->addStretch();
    rows->addWidget(buttons);
    Mnemonics::markForm(this);
    // A hasty Enter keeps the present package.
    no->setDefault(true);
    no->setFocus();
    fitHeight();
}

void PackageReplacementDialog::fitHeight()
{
    // Labels with wrapped text report a wrong height, and the dialog would be too tall.
    const int width = fontMetrics().averageCharWidth() * 70;
    resize(width, layout()->totalHeightForWidth(width));
}

void PackageReplacementDialog::offerPreview()
{
    auto *buttons = findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    QPushButton *preview = buttons->addButton(tr("Preview..."), QDialogButtonBox::ActionRole);
    preview->setObjectName(QStringLiteral("m_previewButton"));
    preview->setAutoDefault(false);
    preview->setToolTip(tr("Stops here, and shows what is left in one window"));
    connect(preview, &QPushButton::clicked, this, [this] {
        m_wantsPreview = true;
        m_wantsStop = true;
        finish(PackageReplacementRules::KeepThis);
    });
    Mnemonics::markForm(this);
    fitHeight();
}

void PackageReplacementDialog::setRepository(const QString &path)
{
    m_repositoryLabel->setText(path);
    m_repositoryLabel->setVisible(!path.isEmpty());
    fitHeight();
}

void PackageReplacementDialog::setNewcomer(const QString &fileName,
                                           const QString &version,
                                           const QStringList &architectures)
{
    QString text = tr("Version in the repository: %1").arg(m_presentVersion) + QLatin1Char('\n')
                   + tr("New version: %1 (%2)").arg(version, fileName);
    if (architectures.size() > 1)
        text += QLatin1Char('\n')
                + tr("It is one file for several architectures, so the answer is for all of them: %1")
                      .arg(architectures.join(QLatin1String(", ")));
    m_versionsLabel->setText(text);
    m_versionsLabel->setVisible(!version.isEmpty());
    fitHeight();
}

void PackageReplacementDialog::addOptions(QVBoxLayout *rows)
{
    rows->addWidget(
        plainLabel(tr("You can immediately choose what to do with all subsequent matches; to do this, "
                      "select one of the options and click \"Apply to all\""),
                   this));
    const auto add
        = [this, rows](PackageReplacementRules::Rule rule, const QString &text, const QString &explanation) {
              auto *option = new QRadioButton(text, this);
              option->setAccessibleDescription(explanation);
              m_options->addButton(option, static_cast<int>(rule));
              rows->addWidget(option);
              QLabel *label = plainLabel(explanation, this);
              // Indented to the start of the option's text.
              label->setIndent(style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth)
                               + style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing));
              QFont small = label->font();
              small.setItalic(true);
              label->setFont(small);
              rows->addWidget(label);
          };
    add(PackageReplacementRules::PreferHigher,
        tr("Give preference to versions higer"),
        tr("In case of matching package, preference will be given to the package with a higher version"));
    add(PackageReplacementRules::PreferLower,
        tr("Give preference to versions lower"),
        tr("In case of matching package, preference will be given to the package with a lower version"));
    add(PackageReplacementRules::ReplaceAll,
        tr("Replace all packages"),
        tr("If the package matches, always replace it"));
    add(PackageReplacementRules::ReplaceNone,
        tr("Do not replace packages"),
        tr("Always give preference to packages already present in the repository"));
}

void PackageReplacementDialog::finish(PackageReplacementRules::Rule rule)
{
    m_rule = rule;
    accept();
}
