// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/preview/changepreview.h"
#include "ui/installability/backgroundquery.h"
#include "ui/preview/packagedifference.h"

#include <QDialog>

class DifferenceModel;
class QLabel;
class QProgressBar;
class QTreeView;

/** Compares the present file of a package with the one that would take its place, and advises on a version. */
class DifferenceDialog : public QDialog
{
    Q_OBJECT
public:
    /** `repository` is the path of the one that holds the present file. */
    DifferenceDialog(const PreviewRow &row, const QString &repository, QWidget *parent);

    /** Stores the place. */
    void done(int result) override;

private:
    void showDifference(const PackageDifference &difference);

    BackgroundQuery m_query;
    QLabel *m_state;
    QProgressBar *m_progress;
    DifferenceModel *m_model;
    QTreeView *m_view;
};
