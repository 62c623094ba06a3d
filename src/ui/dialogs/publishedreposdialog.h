// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/publicationmonitor.h"

#include <QDialog>

#include <optional>

class LogTail;
class OrphanedLines;
class Prompts;
class PublishedReposModel;
class QAction;
class QLabel;
class QPlainTextEdit;
class QSortFilterProxyModel;
class QSplitter;
class QTreeView;
class QVBoxLayout;

/**
 * Shows the publications of this machine, the states of their services, and the log of the chosen server. It follows
 * the monitor, which updates more often while the dialog is visible.
 */
class PublishedReposDialog : public QDialog
{
    Q_OBJECT
public:
    PublishedReposDialog(PublicationMonitor &monitor, Prompts &prompts, QWidget *parent);
    ~PublishedReposDialog() override;

    /** Shows the lines of this machine's source list whose ports have no publication. */
    void showOrphanedLines(const QStringList &lines);

Q_SIGNALS:
    void openRequested(const QString &repoPath);
    /** Emitted after the user has agreed. */
    void unpublishRequested(const Publication &publication);
    void addressCopied();
    void lineRemovalRequested(const QString &line);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void buildView();
    void buildActions();
    QAction *action(const QString &text, const char *icon, const QKeySequence &key, const char *name);
    QWidget *logArea();
    void showSnapshot();
    void readHosts();
    void updateForCurrent();
    void showLog(const QString &text);
    /** The current row in the model; -1 when there is none. */
    int currentRow() const;
    void openCurrent();
    void copyAddress();
    void unpublishCurrent();

    PublicationMonitor &m_monitor;
    Prompts &m_prompts;
    PublishedReposModel *m_model;
    QSortFilterProxyModel *m_sorted;
    QSplitter *m_splitter;
    QTreeView *m_view;
    QLabel *m_emptyLabel; ///< shown over the view while it is empty
    OrphanedLines *m_orphanedLines;
    QLabel *m_logLabel;
    QPlainTextEdit *m_log;
    LogTail *m_tail;
    QAction *m_openAction = nullptr;
    QAction *m_copyAction = nullptr;
    QAction *m_unpublishAction = nullptr;
    QString m_host; ///< address of this machine for other machines
};
