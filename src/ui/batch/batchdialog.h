// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/batch/batchreport.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/** The report of a command on several repositories, while it works and afterwards. */
class BatchDialog : public QDialog
{
    Q_OBJECT
public:
    BatchDialog(const BatchReport &report, QWidget *parent);

    /** Shows the entry as it is now. */
    void setEntry(int index, const BatchReport::Entry &entry);
    /** The work has ended. */
    void setOver(const BatchReport &report);

Q_SIGNALS:
    void stopWanted();
    void savingWanted();
    /** The user wants to see the repository. */
    void repositoryWanted(const QString &path);

private:
    QLabel *m_summary;
    QTreeWidget *m_list;
    QPushButton *m_stopButton;
    QPushButton *m_saveButton;
};
