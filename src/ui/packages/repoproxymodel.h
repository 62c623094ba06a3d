// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/packagechoice.h"
#include "ui/packages/packageorder.h"

#include <QAbstractProxyModel>
#include <QFlags>
#include <QHash>
#include <QTimer>

#include <vector>

class RepoModel;
struct RepoItem;

/**
 * Filters and sorts a RepoModel. Containers are always shown; packages are shown when the text filter and the
 * dependency-state filter accept them. The repository item can be hidden; then its children are the top level.
 *
 * This is not a QSortFilterProxyModel, because that class announces a new filter as one removal or insertion for each
 * group of rows. With ten thousand expanded rows, the view then needs half a minute for one key press. Here a new
 * filter is one layout change, and views keep their expansion and selection. The setters that a KFilterProxySearchLine
 * calls are not virtual, so the tab passes the text of its line to this class.
 */
class RepoProxyModel : public QAbstractProxyModel
{
    Q_OBJECT
public:
    enum State { ShowUndefined = 1, ShowError = 2, ShowSuccess = 4, ShowAll = 7 };
    Q_DECLARE_FLAGS(States, State)
    /** Packages that the complete checks found to have a fault. */
    enum Fault { CannotBeInstalled = 1, BreaksOthers = 2 };
    Q_DECLARE_FLAGS(Faults, Fault)

    explicit RepoProxyModel(QObject *parent = nullptr);

    /** Accepts only a RepoModel; any other model counts as none. */
    void setSourceModel(QAbstractItemModel *sourceModel) override;
    const RepoModel *repoModel() const { return m_model; }

    /** Shows packages whose text contains `text`, ignoring case; an empty text shows all packages. */
    void setFilterFixedString(const QString &text);
    /** Shows packages in these dependency states. Packages without a check result are always shown. */
    void setShownStates(States states);
    /** Shows only packages with one of these faults; no fault shows all packages. */
    void setShownFaults(Faults faults);
    /** Shows only the packages of this choice. */
    void setChoice(const PackageChoice &choice);
    /** Whether a text or another filter can hide packages. */
    bool isFiltering() const
    {
        return !m_text.isEmpty() || m_states != ShowAll || m_faults != 0 || !m_choice.isEmpty();
    }
    /** See RepoModel::setColumns(). */
    void setColumns(const PackageColumns::Columns &columns);
    void setRepositoryItemHidden(bool hidden);
    bool isRepositoryItemHidden() const { return m_rootHidden; }

    PackageColumns::Column sortedColumn() const { return m_sorting.column(); }

    /** Number of packages below the container that the filters show. */
    int shownPackages(const QModelIndex &container = QModelIndex()) const;

    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    QModelIndex sibling(int row, int column, const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    /**
     * By the first column all items are sorted, by another one only the packages within their sections. The order is
     * mended a moment after packages have changed, so that rows do not jump while a job runs.
     */
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    using Ids = std::vector<int>;

    /** The invisible parent of the top level. */
    static constexpr int TopId = -1;
    /** If more rows of a batch change their visibility, a layout change is announced instead. */
    static constexpr int RelayoutThreshold = 50;

    RepoModel *m_model = nullptr;
    QHash<int, Ids> m_shown; ///< ids of the visible children in source order, by container
    QString m_text;
    States m_states = ShowAll;
    Faults m_faults;
    PackageChoice m_choice;
    bool m_rootHidden = false;
    Qt::SortOrder m_order = Qt::AscendingOrder;
    PackageOrder m_sorting;
    QTimer m_sortTimer; ///< runs when packages have changed that are not sorted by name
    int m_removeFirst = 0; ///< rows of m_shown[m_removeFrom] that the present removal takes
    int m_removeCount = 0;
    int m_removeFrom = TopId;

    bool hasFault(const RepoItem &item) const;
    /** Other packages break others now. */
    void breakingChanged();
    bool accepts(const RepoItem &item) const;
    void rebuild();
    void rebuildBelow(int id);
    void relayout();
    /** Leads the persistent indexes of before to the same items. */
    void restore(const QModelIndexList &persistent);
    /** A new package stands last until all are sorted again. */
    void appendSorted(int id);

    int containerId(const QModelIndex &proxyIndex) const;
    QModelIndex indexOfId(int id, int column = 0) const;
    /** Index of an item in the visible children of its container, or the index where it would be inserted. */
    int placeOf(const Ids &shown, int id) const;
    const Ids &shownIn(int container) const;
    bool isShown(int container, int id) const;
    bool isReversed(int container) const;
    /** Converts an index in the visible children of a container to a row, or a row to an index. */
    int mirrored(int place, int container) const;
    void insertShown(int container, const Ids &ids);
    void beginRemoval(int container, int first, int count);
    void endRemoval();

    void sourceRowsInserted(const QModelIndex &parent, int first, int last);
    void sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void
    sourceDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(RepoProxyModel::States)
Q_DECLARE_OPERATORS_FOR_FLAGS(RepoProxyModel::Faults)
