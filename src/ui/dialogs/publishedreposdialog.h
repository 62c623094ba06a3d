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
 * What is published from this machine, how its services do, and what the chosen one's server has logged. It follows
 * the monitor, closely as long as it is shown.
 */
class PublishedReposDialog : public QDialog
{
    Q_OBJECT
public:
    PublishedReposDialog(PublicationMonitor &monitor, Prompts &prompts, QWidget *parent);
    ~PublishedReposDialog() override;

    /** Shows the lines of this machine's list of sources that lead to ports on which nothing is published. */
    void showOrphanedLines(const QStringList &lines);

Q_SIGNALS:
    void openRequested(const QString &repoPath);
    /** The user has agreed. */
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
    void showPicture();
    void readHosts();
    void updateForCurrent();
    void showLog(const QString &text);
    /** The row of the model; -1 when none is current. */
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
    QLabel *m_emptyLabel; ///< over the view while there is nothing in it
    OrphanedLines *m_orphanedLines;
    QLabel *m_logLabel;
    QPlainTextEdit *m_log;
    LogTail *m_tail;
    QAction *m_openAction = nullptr;
    QAction *m_copyAction = nullptr;
    QAction *m_unpublishAction = nullptr;
    QString m_host; ///< under which others reach this machine
};
