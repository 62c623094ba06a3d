// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/packagecontents.h"
#include "ui/installability/backgroundquery.h"

#include <QDialog>

class FileListModel;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QTabWidget;
class QTreeView;
struct PackageInfo;
class TextPage;

/**
 * What the file of a package holds: its files, changelog, copyright and control files, with a line that searches in the
 * page in front. The file is read on the thread pool; closing the window stops that.
 */
class PackageContentsDialog : public QDialog
{
    Q_OBJECT
public:
    PackageContentsDialog(const PackageInfo &package, QWidget *parent);

    void done(int result) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *m_search;
    QLabel *m_state;
    QProgressBar *m_progress;
    QTabWidget *m_tabs;
    FileListModel *m_model;
    QTreeView *m_files;
    TextPage *m_changelog;
    TextPage *m_copyright;
    QListWidget *m_controlNames;
    TextPage *m_controlText;
    PackageContents m_contents;
    BackgroundQuery m_query;

    void buildPages();
    void read(const PackageInfo &package);
    void showContents(const PackageContents &contents);
    void showControl(int row);
    /** The text in front; null when the list of files is there. */
    TextPage *textInFront() const;
    void search();
};
