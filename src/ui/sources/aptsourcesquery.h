// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QStringList>

#include <atomic>
#include <memory>

/** Asks apt once for its sources, on the thread pool. There is no answer when the object is deleted first. */
class AptSourcesQuery : public QObject
{
    Q_OBJECT
public:
    explicit AptSourcesQuery(QObject *parent = nullptr);
    ~AptSourcesQuery() override;

    void start();

Q_SIGNALS:
    /** Each source has the form after "deb " in a sources list. `failure` tells why apt failed; empty on success. */
    void answered(const QStringList &sources, const QString &failure);

private:
    struct Answer
    {
        QStringList sources;
        QString failure;
    };

    static Answer ask(const std::shared_ptr<const std::atomic_bool> &stopped);

    QFutureWatcher<Answer> m_watcher;
    std::shared_ptr<std::atomic_bool> m_stopped; ///< read by ask(), which may run after our deletion
};
