// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/repositoryhistory.h"

#include <QWidget>

#include <optional>

class DelayedLineEdit;
class HistoryModel;
class QAction;
class QLabel;
class QTreeView;

/** The history of one repository: its restore points with their changes, a filter, and buttons for what can be done. */
class HistoryView : public QWidget
{
    Q_OBJECT
public:
    /** Each action gets a button, and an entry in the menu of the rows. */
    HistoryView(const QList<QAction *> &actions, QWidget *parent);

    /** `note` says what the user should know of the history as a whole; may be empty. */
    void setHistory(const RepositoryHistory &history, const QString &note);
    /** Shows no points, and `why`. */
    void clear(const QString &why);

    /** What an action works on. */
    struct Selection
    {
        QVector<int>
            points; ///< numbers of the points that are selected, by themselves or by a row, newest first
        std::optional<PackageChange> change; ///< the only selected row when it is a package
    };
    Selection selection() const;

    QSize sizeHint() const override;

    /** Widths and order of the columns, to be stored. */
    QByteArray columns() const;
    /** Invalid columns are ignored. */
    void setColumns(const QByteArray &columns);

Q_SIGNALS:
    void selectionChanged();

private:
    /** What was open and selected stays so. */
    void showPoints(const QVector<RestorePoint> &points);
    void filter(const QString &name);
    void showMenu(const QPoint &pos);
    void updateEmptyText();
    /** Opens the points whose matching rows can be read at a glance. */
    void openMatches();

    HistoryModel *m_model;
    DelayedLineEdit *m_filter;
    QTreeView *m_tree;
    QLabel *m_empty; ///< why there are no rows
    QLabel *m_note; ///< the size of the history, and what the user should know
    QList<QAction *> m_actions;
    QString m_why; ///< why there is no history
};
