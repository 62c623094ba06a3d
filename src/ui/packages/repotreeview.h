// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QStringList>
#include <QTreeView>

class ColumnChoice;
class RepoProxyModel;

/**
 * The tree of a repository's packages. It accepts drops of package files and of packages of such a tree, and its
 * packages can be dragged. It keeps the expanded items, the selection
 * and the scroll position when its model is filtered or reset, and the selection when a package is replaced.
 */
class RepoTreeView : public QTreeView
{
    Q_OBJECT
public:
    explicit RepoTreeView(QWidget *parent = nullptr);

    /** A RepoProxyModel has item keys that stay valid over a reset. With another model, a reset loses the state. */
    void setModel(QAbstractItemModel *model) override;

    /** Shows the chosen columns and keeps their widths. The header offers the choice. `choice` outlives the view. */
    void setColumnChoice(ColumnChoice &choice);
    /**
     * Call with true before the first search text is set: from then on, groups with matches are expanded. Call with
     * false after the text was removed: the earlier expansion is restored.
     */
    void setSearching(bool searching);
    /**
     * Expands the repository and selects all visible items. A collapsed component or section stands for its packages.
     */
    void selectAll() override;
    /** Takes the focus from the search field. If no package is current, the first visible package becomes current. */
    void enterFromSearch();
    /** Scrolls to the first visible package after a new filter, unless the current package is visible. */
    void showFirstMatch();

Q_SIGNALS:
    /** Package files or folders were dropped: absolute paths. */
    void filesDropped(const QStringList &files);
    /**
     * Packages of `source`, which is such a tree, were dropped on this one: those that are selected there. `component`
     * is that of the row; empty when it was none of a component or section. `moves` says that they are to leave.
     */
    void packagesDropped(QWidget *source, const QString &component, bool moves);
    /** After a reset or a new filter, the view has restored its earlier state as far as possible. */
    void stateRestored();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last) override;
    void rowsInserted(const QModelIndex &parent, int first, int last) override;
    void startDrag(Qt::DropActions supported) override;
    void
    drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    RepoProxyModel *m_proxy = nullptr;
    bool m_searching = false;
    QStringList m_expanded; ///< keys from before a reset
    QStringList m_selected;
    QString m_current;
    QStringList m_visible; ///< keys of the visible rows, from the top
    QStringList m_expandedBeforeSearch;
    QSet<QString> m_lostSelected; ///< keys of packages that were selected when they were removed
    QString m_lostCurrent;
    QPersistentModelIndex m_dropRow; ///< a component or section on which packages would be dropped now

    void showColumns(const ColumnChoice &choice);
    /** The component or section at this place; invalid when there is none. */
    QModelIndex placeAt(const QPoint &position) const;
    QString componentOf(const QModelIndex &place) const;
    void setDropRow(const QModelIndex &index);
    void forgetLost();
    void takeUpLost(const QModelIndex &parent, int first, int last);
    bool isPackage(const QModelIndex &index) const;
    QStringList expandedKeys() const;
    QModelIndex indexOfKey(const QString &key) const;
    QString keyOf(const QModelIndex &index) const;
    void saveScroll();
    void restoreScroll();
    void saveState();
    void restoreState();
    void expandMatches(const QModelIndex &parent);
    QModelIndex firstMatch(const QModelIndex &parent) const;
};
