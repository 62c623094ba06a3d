// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/packagechoice.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>

class FilterLine;
class KFilterProxySearchLine;
class QAction;
class QMenu;
class QWidget;
class RepoProxyModel;
class RepoTreeView;

/**
 * The search line above the package tree, the menu "Packet Filter", which chooses by what checks and records say, and
 * the line that shows these choices.
 */
class TreeFilter : public QObject
{
    Q_OBJECT
public:
    /** `search` and `tree` outlive the filter. `window` is the parent of the menu and the filter. */
    TreeFilter(KFilterProxySearchLine &search, RepoTreeView &tree, RepoProxyModel &proxy, QWidget *window);

    QMenu *menu() const { return m_menu; }
    /** Stands between the search line and the tree. */
    FilterLine *line() const { return m_line; }
    /** Empties the search line, and takes back all choices of the menu. */
    void showAll();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpMenu();
    void setUpLine();
    /** A submenu with the values that the packages have, of which the user checks some. */
    void addValues(const QString &title,
                   QStringList PackageChoice::*values,
                   const std::function<QString(const QString &value)> &text);
    void addSignatures();
    void applyChoice();
    void showFilters();
    void removeFilter(int id);
    void count();
    void search(const QString &text);
    void applyStates();
    void applyFaults();

    KFilterProxySearchLine &m_search;
    RepoTreeView &m_tree;
    RepoProxyModel &m_proxy;
    QMenu *m_menu;
    FilterLine *m_line;
    PackageChoice m_choice;
    QTimer m_countTimer; ///< counts the packages after several changes at once
    QList<QAction *> m_states;
    QList<QAction *> m_faults;
};
