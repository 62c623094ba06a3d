// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>

class KFilterProxySearchLine;
class QAction;
class QMenu;
class QWidget;
class RepoProxyModel;
class RepoTreeView;

/** The search line above the package tree, and the menu "Packet Filter", which chooses by what checks have said. */
class TreeFilter : public QObject
{
    Q_OBJECT
public:
    /** `search` and `tree` outlive the filter. `window` is the parent of the menu and the filter. */
    TreeFilter(KFilterProxySearchLine &search, RepoTreeView &tree, RepoProxyModel &proxy, QWidget *window);

    QMenu *menu() const { return m_menu; }
    /** Empties the search line, and takes back all choices of the menu. */
    void showAll();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpMenu();
    void search(const QString &text);
    void applyStates();
    void applyFaults();

    KFilterProxySearchLine &m_search;
    RepoTreeView &m_tree;
    RepoProxyModel &m_proxy;
    QMenu *m_menu;
    QList<QAction *> m_states;
    QList<QAction *> m_faults;
};
