// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/historylimits.h"
#include "engine/history/repositoryhistory.h"

#include <QDialog>

#include <optional>

class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;

/** Asks how much of the history of each repository is kept, and offers to delete what is too much. */
class HistorySettingsDialog : public QDialog
{
    Q_OBJECT
public:
    explicit HistorySettingsDialog(const HistoryLimits &limits, QWidget *parent = nullptr);

    /** The history of the repository in front; none while it is not known. */
    void setHistory(const std::optional<RepositoryHistory> &history);
    /** Why nothing can be deleted now; empty when it can. */
    void setObstacle(const QString &obstacle);

    /** The initial limits with the user's changes. */
    HistoryLimits limits() const;

Q_SIGNALS:
    /** The user wants the limits() to be applied now, which deletes these points. */
    void pruneRequested(const RepositoryHistory::Pruning &pruning);

private:
    QSpinBox *spinBox(const QString &name, int least, int most);
    void update();

    HistoryLimits m_limits;
    std::optional<RepositoryHistory> m_history;
    RepositoryHistory::Pruning m_pruning; ///< what the shown limits would delete
    QString m_obstacle;
    QCheckBox *m_isOn;
    QSpinBox *m_points;
    QSpinBox *m_days;
    QSpinBox *m_size;
    QLabel *m_taken;
    QLabel *m_freed;
    QPushButton *m_prune;
};
