// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/packagepanel.h"

#include "core/packageinfo.h"
#include "ui/packages/packagedetails.h"
#include "ui/tab/packagemore.h"
#include "ui/widgets/sections.h"

#include "ui_packagepanel.h"

PackagePanel::PackagePanel(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::PackagePanel>())
{
    m_ui->setupUi(this);
    m_more = new PackageMore(m_ui->m_commonWidget);
    m_ui->formLayout_3->addRow(m_more);
}

PackagePanel::~PackagePanel() = default;

void PackagePanel::showPackage(const PackageInfo &package)
{
    m_ui->m_packageLabel->setText(package.name);
    m_ui->m_versionLabel->setText(package.version);
    const QString own = package.ownArchitecture();
    m_ui->m_architectureLabel->setText(
        own == package.architecture ? own : tr("%1 (listed for %2)").arg(own, package.architecture));
    m_ui->m_componentLabel->setText(package.component);
    m_ui->m_sectionLabel->setText(Sections::nameWithCode(package.section));
    m_ui->m_maintainerLabel->setText(package.maintainer());
    m_ui->m_decriptionLabel->setText(PackageDetails::descriptionHtml(package.description()));
    m_ui->m_packageSignLabel->setText(package.isSigned() ? package.signingKey : tr("Unsigned"));
    m_more->showPackage(package);
}

void PackagePanel::setCommands(const QList<QAction *> &commands)
{
    m_more->setCommands(commands);
}
