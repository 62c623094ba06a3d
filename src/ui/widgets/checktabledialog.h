// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QSet>
#include <QStringList>

class CheckTableModel;
class ElidedLabel;
class QCheckBox;
class QPushButton;
class QTreeView;

/** Lets the user choose rows of a table: check boxes, "Select all", and the space bar for whatever is selected. */
class CheckTableDialog : public QDialog
{
    Q_OBJECT
public:
    CheckTableDialog(const QString &title, const QString &about, const QStringList &headers, QWidget *parent);

protected:
    CheckTableModel *model() const { return m_model; }
    /** Says below the table how things stand; empty: how many rows are chosen. */
    void setState(const QString &text);
    /** Which columns hold versions of packages, for the order. */
    void setVersionColumns(const QSet<int> &columns);
    /** Whether the dialog can be confirmed with nothing chosen; it can at first. */
    void setEmptyChoiceAllowed(bool allowed);
    /** Gives each column the room that its texts need, the last one the rest. */
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
    QPushButton *m_okButton = nullptr;
    QString m_state;
    bool m_emptyChoiceAllowed = true;
};
