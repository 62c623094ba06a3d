// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QDialog>
#include <QVector>

class ChangesModel;
class QComboBox;
class QLabel;

/** What has changed between two states of a repository. The user can choose other states. */
class StateDifferenceDialog : public QDialog
{
    Q_OBJECT
public:
    /** States are numbers of points, or HistoryDifference::Now. `points` are the newest first. */
    StateDifferenceDialog(const QVector<RestorePoint> &points, int from, int to, QWidget *parent = nullptr);

private:
    QComboBox *stateBox(const QString &name, int state);
    void compare();

    QVector<RestorePoint> m_points;
    ChangesModel *m_model;
    QComboBox *m_from;
    QComboBox *m_to;
    QLabel *m_counts;
    QLabel *m_empty; ///< why there are no rows
    int m_comparison = 0; ///< number of the last comparison
};
