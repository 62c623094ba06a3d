// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QMutex>
#include <QThread>

/**
 * Plays the service manager on a bus, in a thread of its own, where the real one cannot run. Its units are the files of
 * one folder and the units of setUnit(). All jobs succeed.
 */
class SystemdPeer : public QDBusVirtualObject
{
public:
    struct Unit
    {
        QString activeState = QStringLiteral("inactive");
        quint64 startNumber = 0;
    };

    SystemdPeer(const QString &busAddress, QString unitDir);
    ~SystemdPeer() override;

    void setUnit(const QString &name, const Unit &unit);
    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QString m_unitDir;
    mutable QMutex m_mutex;
    QHash<QString, Unit> m_units;
    uint m_jobs = 0;
    QThread m_thread;

    bool load(const QString &name);
    QDBusMessage answer(const QDBusMessage &message);
    QDBusMessage readProperty(const QDBusMessage &message);
    QDBusMessage doJob(const QDBusMessage &message, const QString &name);
    void sendJobRemoved(uint job, const QString &name, const QString &result) const;
    void setState(const QString &name, const QString &state);
    void send(const QDBusMessage &message) const;
};
