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
 * The editor of the external repositories. It shows the stored sources at once, and apt's sources after apt has
 * answered. It stores nothing: after the dialog was accepted, the caller takes repos().
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
    /** Opens the editor of a source. `row` is the entry to replace, -1 for a new source. */
    void editSource(int row);

    Prompts &m_prompts;
    ExternalReposModel *m_model;
    QTreeView *m_view;
    QLabel *m_emptyLabel; ///< shown over the view while it is empty
    ElidedLabel *m_stateLabel; ///< state of the question to apt
    QPushButton *m_addButton;
    QPushButton *m_editButton;
    QPushButton *m_removeButton;
};
