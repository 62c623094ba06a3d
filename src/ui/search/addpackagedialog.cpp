// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/addpackagedialog.h"

#include "ui/search/searchpackagewidget.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

AddPackageDialog::AddPackageDialog(const PackageFilter &filter,
                                   const FoundPackagesModel::AliasLookup &aliases,
                                   const FoundPackagesModel::PresentLookup &present,
                                   const AddedSources &added,
                                   QWidget *parent)
    : QDialog(parent)
    , m_searchWidget(new SearchPackageWidget(filter, aliases, present, added, this))
{
    setWindowTitle(tr("Add package from external repo"));
    auto *prompt = new QLabel(tr("Enter package name:"), this);
    prompt->setBuddy(m_searchWidget->searchField());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    QPushButton *add = buttons->addButton(tr("Add"), QDialogButtonBox::AcceptRole);
    add->setObjectName(QStringLiteral("m_addButton"));
    add->setIcon(QIcon::fromTheme(QStringLiteral("list-add")));
    add->setDefault(true);
    add->setEnabled(false);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addWidget(m_searchWidget, 1);
    layout->addWidget(buttons);
    constexpr int Width = 110; // in characters; an origin has about fifty
    constexpr int Height = 28; // in lines
    const QSize wanted(fontMetrics().averageCharWidth() * Width, fontMetrics().height() * Height);
    // Leaves space for the window frame and a panel.
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
    m_searchWidget->setFocus();

    connect(m_searchWidget, &SearchPackageWidget::selectionChanged, add, [this, add] {
        add->setEnabled(!selectedPackages().isEmpty());
    });
    connect(m_searchWidget, &SearchPackageWidget::packagesChosen, add, &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QList<PackageInfo> AddPackageDialog::selectedPackages() const
{
    return m_searchWidget->selectedPackages();
}
