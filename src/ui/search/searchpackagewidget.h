// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"
#include "ui/search/foundpackagesmodel.h"
#include "ui/search/packagefilter.h"

#include <QWidget>

#include <memory>

class AddedSourcesBar;
class DelayedLineEdit;
class FoundPackagesProxy;
class PackageSearcher;
class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QTableView;

/**
 * Searches packages by the start of their names while the user types, and shows the found packages for selection. A
 * result is shown only if its text is still in the field.
 */
class SearchPackageWidget : public QWidget
{
    Q_OBJECT
public:
    SearchPackageWidget(const PackageFilter &filter,
                        const FoundPackagesModel::AliasLookup &aliases,
                        const FoundPackagesModel::PresentLookup &present,
                        const AddedSources &added = {},
                        QWidget *parent = nullptr);
    ~SearchPackageWidget() override;

    /** The selected packages in the displayed order; their repository is the origin, even if an alias is shown. */
    QList<PackageInfo> selectedPackages() const;
    /** The search field, for the buddy of a label. */
    QWidget *searchField() const;

public Q_SLOTS:
    /** Replaces the rows of the table. */
    void updateTableWidget(const QList<PackageInfo> &packages);

Q_SIGNALS:
    void selectionChanged();
    /** The user chose a row with Enter or a double click. */
    void packagesChosen();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void connectParts();
    /** Cancels the search; the present rows belong to an earlier text from now on. */
    void textEdited();
    void search(const QString &text);
    /** Searches once more for the text whose result is shown or expected, because there are new lists. */
    void repeat();
    void showResult(const QList<PackageInfo> &packages);
    void select(const QList<PackageInfo> &packages);
    void refill(QComboBox *filter, FoundPackagesModel::Column column);
    void setBusy(bool busy);
    void showCount();

    std::unique_ptr<PackageSearcher> m_searcher;
    DelayedLineEdit *m_searchEdit;
    QCheckBox *m_descriptionsCheckBox;
    QProgressBar *m_busyBar;
    QLabel *m_statusLabel;
    QComboBox *m_architectureComboBox;
    QComboBox *m_repositoryComboBox;
    QTableView *m_packagesTable;
    AddedSourcesBar *m_addedSources;
    FoundPackagesModel *m_model;
    FoundPackagesProxy *m_proxy;
    QString m_wantedPattern; ///< pattern of the present search; empty when no result is expected
    QString m_shownPattern; ///< pattern of the rows; empty when they belong to an earlier text
    bool m_keepsSelection = false; ///< the next result takes the place of one for the same text
    QString m_foundPattern; ///< pattern of the next result
    QString m_failure; ///< why the next result is empty, or not whole
};
