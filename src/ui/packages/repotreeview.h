// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QStringList>
#include <QTreeView>

class RepoProxyModel;

/**
 * The tree of a repository's packages. It takes package files that are dropped on it, and it keeps what is expanded,
 * selected and scrolled to when its model is filtered anew or reset, and what is selected when a package is replaced.
 */
class RepoTreeView : public QTreeView
{
    Q_OBJECT
public:
    explicit RepoTreeView(QWidget *parent = nullptr);

    /** A RepoProxyModel gives the items names that outlive a reset; with another model a reset loses the state. */
    void setModel(QAbstractItemModel *model) override;

    /**
     * Call with true before the first search text is set: whatever holds a match is expanded from then on. Call with
     * false after the text was removed: what was expanded before returns.
     */
    void setSearching(bool searching);
    /** Opens the repository and selects all that is shown; a closed component or section stands for its packages. */
    void selectAll() override;
    /** Takes the focus from a search: the first package that is shown becomes the current one, unless one is. */
    void enterFromSearch();
    /** Brings the first package that is shown into view, unless the current one is shown; for a new filter. */
    void showFirstMatch();

Q_SIGNALS:
    /** Package files, or what may be folders with packages, were dropped: absolute paths. */
    void filesDropped(const QStringList &files);
    /** The model was reset or filtered anew and the view shows again what it showed before, as far as it exists. */
    void stateRestored();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last) override;
    void rowsInserted(const QModelIndex &parent, int first, int last) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    RepoProxyModel *m_proxy = nullptr;
    bool m_searching = false;
    QStringList m_expanded; ///< keys, from before a reset
    QStringList m_selected;
    QString m_current;
    QStringList m_visible; ///< keys of the rows in sight, from the top
    QStringList m_expandedBeforeSearch;
    QSet<QString> m_lostSelected; ///< keys of packages that went while they were selected
    QString m_lostCurrent;

    void forgetLost();
    void takeUpLost(const QModelIndex &parent, int first, int last);
    void requestMenuAtCurrent();
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
