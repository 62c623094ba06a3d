// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QSet>
#include <QStringList>
#include <QVector>

class CheckTableModel;
class ElidedLabel;
class QCheckBox;
class QDialogButtonBox;
class QPushButton;
class QTreeView;

/** Lets the user choose rows of a table with check boxes, "Select all", and the space bar for the selected rows. */
class CheckTableDialog : public QDialog
{
    Q_OBJECT
public:
    CheckTableDialog(const QString &title, const QString &about, const QStringList &headers, QWidget *parent);

protected:
    CheckTableModel *model() const { return m_model; }
    /** Sets the status text below the table; empty: the number of chosen rows. */
    void setState(const QString &text);
    /** The columns that contain package versions, for sorting. */
    void setVersionColumns(const QSet<int> &columns);
    /** Sorts a column by these numbers, one for each row, instead of by its texts. */
    void setNumbers(int column, const QVector<qint64> &numbers);
    /** Adds a widget above the buttons. */
    void addBelow(QWidget *widget);
    /** Whether the user can confirm without choosing a row. The default is yes. */
    void setEmptyChoiceAllowed(bool allowed);
    /** Adds a button that, like OK, needs a choice where an empty one is not allowed. */
    QPushButton *addConfirmation(const QString &text, const QString &name);
    /** Makes each column as wide as its texts; the last column gets the rest. */
    void fitColumns();

private:
    class SortedTable;

    void buildView();
    void toggleSelected();
    void updateWidgets();

    CheckTableModel *m_model;
    SortedTable *m_sorted;
    QTreeView *m_view;
    QCheckBox *m_selectAllCheckBox;
    ElidedLabel *m_stateLabel;
    QDialogButtonBox *m_buttons = nullptr;
    QList<QPushButton *> m_confirmations;
    QString m_state;
    bool m_emptyChoiceAllowed = true;
};
