// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class RepoModel;

/**
 * Finds out when the files of packages came into the pool, while the model has the column for it. The files are looked
 * at on the thread pool, all that are not known yet at once: a repository can have tens of thousands.
 */
class PoolDates : public QObject
{
    Q_OBJECT
public:
    /** Belongs to the model. */
    explicit PoolDates(RepoModel *model);

private:
    RepoModel *m_model;
    QTimer m_timer; ///< takes several changes together
    bool m_isReading = false;

    void askLater();
    void ask();
};
