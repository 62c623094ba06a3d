// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"

#include <QDialog>

class ElidedLabel;
class ExternalReposModel;
class Prompts;
class QLabel;
class QPushButton;
class QTreeView;

/**
 * The editor of the external repositories. It shows what is stored at once, and what apt knows when apt has answered.
 * Nothing is stored here: the caller takes repos() when the dialog was accepted.
 */
class ExternalReposDialog : public QDialog
{
    Q_OBJECT
public:
    ExternalReposDialog(const ExternalRepos &stored, Prompts &prompts, QWidget *parent = nullptr);

    const ExternalRepos &repos() const;

    void accept() override;

private:
    void buildView();
    QPushButton *button(const QString &text, const QString &name, void (ExternalReposDialog::*slot)());
    void addKey(int key, void (ExternalReposDialog::*slot)());
    void showAnswer(const QStringList &sources, const QString &failure);
    void updateButtons();
    QList<int> selectedRows() const;
    void addSource();
    void edit();
    void editAt(const QModelIndex &index);
    void removeSelected();
    /** Lets the user type a source; `row` is the one to be replaced, -1 for a new one. */
    void editSource(int row);

    Prompts &m_prompts;
    ExternalReposModel *m_model;
    QTreeView *m_view;
    QLabel *m_emptyLabel; ///< over the view while there is nothing in it
    ElidedLabel *m_stateLabel; ///< how far apt has come
    QPushButton *m_addButton;
    QPushButton *m_editButton;
    QPushButton *m_removeButton;
};
