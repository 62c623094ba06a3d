// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/installability/companionstree.h"

#include "core/countof.h"
#include "installability/installabilitytext.h"
#include "ui/widgets/tooltiptext.h"

#include <QHeaderView>
#include <QLocale>

namespace
{
enum Column { Package, Version, From, Download, Installed, Columns };

/** Sorts sizes by number and the rest by text. */
class CompanionItem : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem &other) const override
    {
        const int column = treeWidget() == nullptr ? 0 : treeWidget()->sortColumn();
        if (column == Download || column == Installed)
            return data(column, Qt::UserRole).toLongLong() < other.data(column, Qt::UserRole).toLongLong();
        return text(column).compare(other.text(column), Qt::CaseInsensitive) < 0;
    }

    void setSize(int column, qint64 bytes)
    {
        setText(column, QLocale().formattedDataSize(bytes));
        setData(column, Qt::UserRole, bytes);
        setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
};
} // namespace

CompanionsTree::CompanionsTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setColumnCount(Columns);
    setHeaderLabels({tr("Package"), tr("Version"), tr("From"), tr("Download"), tr("Installed")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setTextElideMode(Qt::ElideMiddle);
    const int character = fontMetrics().averageCharWidth();
    constexpr int PackageCharacters = 26;
    constexpr int Characters = 16;
    for (int column = 0; column < Columns; ++column)
        header()->resizeSection(column, character * (column == Package ? PackageCharacters : Characters));
    for (const Column column : {Download, Installed})
        headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    sortByColumn(Package, Qt::AscendingOrder);
}

void CompanionsTree::showCompanions(const QVector<Companion> &companions, const CompleteCheckBase &base)
{
    const QString elsewhere = base.kind == CompleteCheckBase::Repository
                                  ? InstallabilityText::shown(base.repository)
                                  : tr("public sources");
    setSortingEnabled(false);
    clear();
    QList<QTreeWidgetItem *> items;
    items.reserve(companions.size());
    for (const Companion &companion : companions) {
        auto *item = new CompanionItem;
        const NamedPackage &package = companion.package;
        item->setText(Package, InstallabilityText::name(package, false, true));
        item->setText(Version, InstallabilityText::shown(package.version));
        item->setText(From, package.isLocal ? tr("this repository") : elsewhere);
        item->setToolTip(From, toolTipText(item->text(From)));
        item->setSize(Download, companion.downloadSize);
        item->setSize(Installed, companion.installedSize);
        items.append(item);
    }
    addTopLevelItems(items);
    setSortingEnabled(true);
}

QString CompanionsTree::totals(const QVector<Companion> &companions)
{
    qint64 download = 0;
    qint64 installed = 0;
    for (const Companion &companion : companions) {
        download += companion.downloadSize;
        installed += companion.installedSize;
    }
    return tr("On a bare system %n package(s) come in: %1 to download, %2 on the disk",
              nullptr,
              countOf(companions))
        .arg(QLocale().formattedDataSize(download), QLocale().formattedDataSize(installed));
}
