// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/upgradepackagesdialog.h"

#include "ui/widgets/checktablemodel.h"
#include "ui/widgets/mnemonics.h"

#include <QHash>
#include <QPushButton>

#include <algorithm>
#include <utility>

UpgradePackagesDialog::UpgradePackagesDialog(QVector<UpgradablePackage> packages,
                                             const std::function<QString(const QString &)> &alias,
                                             QWidget *parent)
    : CheckTableDialog(
        tr("Choose packages to upgrade"),
        tr("The chosen packages are fetched and take the places of the old versions."),
        {tr("Package"), tr("Architecture"), tr("Old version"), tr("New version"), tr("Source")},
        parent)
    , m_packages(std::move(packages))
{
    // The packages are ordered by index before.
    std::stable_sort(m_packages.begin(), m_packages.end(), [](const auto &left, const auto &right) {
        return left.name < right.name;
    });
    QHash<QString, int> counts;
    for (const UpgradablePackage &package : std::as_const(m_packages))
        ++counts[package.name];
    QVector<CheckTableModel::Row> rows;
    rows.reserve(m_packages.size());
    for (const UpgradablePackage &package : std::as_const(m_packages)) {
        QString architecture
            = package.ownArchitecture.isEmpty() ? package.architecture : package.ownArchitecture;
        if (architecture != package.architecture && counts.value(package.name) > 1)
            architecture = tr("%1 (%2)").arg(architecture, package.architecture);
        rows.append(
            {{package.name, architecture, package.oldVersion, package.newVersion, alias(package.source)},
             true});
    }
    constexpr int OldVersion = 2;
    constexpr int NewVersion = 3;
    setVersionColumns({OldVersion, NewVersion});
    model()->setRows(rows);
    fitColumns();
    setEmptyChoiceAllowed(false);
    const QPushButton *preview = addConfirmation(tr("Preview..."), QStringLiteral("m_previewButton"));
    connect(preview, &QPushButton::clicked, this, [this] {
        m_wantsPreview = true;
        accept();
    });
    Mnemonics::markForm(this);
}

QVector<UpgradablePackage> UpgradePackagesDialog::packages() const
{
    QVector<UpgradablePackage> kept;
    for (int row = 0; row < m_packages.size(); ++row) {
        if (model()->isChecked(row))
            kept.append(m_packages.at(row));
    }
    return kept;
}
