// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QMutex>
#include <QStringList>
#include <QThread>

/**
 * Plays the service manager on a bus, in a thread of its own, for units that are files of one folder or are told to
 * it. Like the real one it goes on with the file that it has read until it is told to reload.
 */
class SystemdPeer : public QDBusVirtualObject
{
public:
    struct Unit
    {
        QString activeState = QStringLiteral("inactive");
        QString fileState = QStringLiteral("disabled");
        QString startResult = QStringLiteral("done"); ///< of the job that starts or restarts it
        int jobTime = 0; ///< milliseconds
        int lifeTime = -1; ///< milliseconds from its start to its failure; negative: it lives on
        bool comesBack = false; ///< is started again as soon as it has failed
        QString refusal; ///< the name of the error that changing it gives
        QByteArray text; ///< of the unit file that it runs by
        quint64 startNumber = 0;
    };

    SystemdPeer(const QString &busAddress, QString unitDir);
    ~SystemdPeer() override;

    void setUnit(const QString &name, const Unit &unit);
    /** A unit that is not there is one that was never set. */
    Unit unit(const QString &name) const;
    /** What all units that are found as files get in place of the defaults. */
    void setNewUnits(const Unit &unit);
    /** The methods that change something, with the unit, in order; forgets them. */
    QStringList takeCalls();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QString m_unitDir;
    mutable QMutex m_mutex;
    QHash<QString, Unit> m_units;
    Unit m_newUnit;
    QStringList m_calls;
    uint m_jobs = 0;
    QThread m_thread;

    bool load(const QString &name);
    QDBusMessage answer(const QDBusMessage &message);
    QDBusMessage readProperty(const QDBusMessage &message);
    QDBusMessage beginJob(const QDBusMessage &message, const QString &name);
    void endJob(const QString &method, const QString &name, uint job);
    void sendJobRemoved(uint job, const QString &name, const QString &result) const;
    void setState(const QString &name, const QString &state);
    void send(const QDBusMessage &message) const;
};
