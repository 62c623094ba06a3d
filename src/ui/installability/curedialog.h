// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/cures.h"
#include "ui/installability/backgroundquery.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;

/** Shows what a cure would change before it is done: which packages could be installed then, and which not any more. */
class CureDialog : public QDialog
{
    Q_OBJECT
public:
    CureDialog(const Cure &cure, const CheckScope &scope, QWidget *parent);

    /** The word for the button that does it. */
    static QString verb(Cure::Kind kind);

private:
    BackgroundQuery m_query;
    QLabel *m_state;
    QProgressBar *m_progress;
    QTreeWidget *m_tree;
    QPushButton *m_doIt;

    void showEffect(const CureEffect &effect);
    void addPackages(const QString &title, const QList<PackageInfoPtr> &packages);
};
