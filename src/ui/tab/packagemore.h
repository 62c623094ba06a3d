// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/installability/backgroundquery.h"

#include <QWidget>

class QAction;
class QFormLayout;
class QHBoxLayout;
class QLabel;
class QToolButton;

/**
 * What folds out below the rows of a package's page: facts from its control data and about its file, and buttons for
 * commands. The file is looked at on the thread pool, and only while the part is open.
 */
class PackageMore : public QWidget
{
    Q_OBJECT
public:
    explicit PackageMore(QWidget *parent = nullptr);

    void showPackage(const PackageInfo &package);
    /** Commands that get a button. */
    void setCommands(const QList<QAction *> &commands);

protected:
    void showEvent(QShowEvent *event) override;

private:
    /** What is known of the package file on the disk. */
    struct PoolFile
    {
        bool exists = false;
        qint64 size = 0; ///< in bytes
        qint64 changed = 0; ///< in milliseconds since the epoch
    };

    QToolButton *m_button;
    QWidget *m_rows;
    QFormLayout *m_form;
    QLabel *m_size;
    QLabel *m_installedSize;
    QLabel *m_source;
    QLabel *m_homepage;
    QLabel *m_poolFile;
    QLabel *m_sha256;
    QLabel *m_added;
    QHBoxLayout *m_buttons;
    PackageInfo m_package;
    bool m_isShown = false; ///< the rows are those of m_package
    BackgroundQuery m_query;

    QLabel *addRow(const QString &title, const QString &name);
    void setOpen(bool isOpen);
    void fill();
    void showFile(const PoolFile &file, qint64 listedSize);
};
