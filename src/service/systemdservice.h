// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

#include <chrono>

namespace VeltAdmin
{
/**
 * One service of the system's service manager, over the system bus. Every call waits until it is done. It takes from
 * some milliseconds to many seconds: not for the interface thread. Everybody may read. Changes need the privileges that
 * the service manager requires; nobody is asked for a password. Each call opens a connection of its own. Any thread can
 * use an object, but only one thread at a time.
 */
class SystemdService
{
    Q_DECLARE_TR_FUNCTIONS(SystemdService)
public:
    /** `name` with or without the suffix ".service". */
    explicit SystemdService(const QString &name);

    /** These wait until the manager's job has ended. True when it succeeded. */
    bool start();
    bool stop();
    bool restart();
    /** Decides whether the service starts with the system. The running service does not change. */
    bool enable();
    bool disable();
    /**
     * Resets the "failed" state of the service in the manager, and its count of starts: it refuses the sixth within ten
     * seconds.
     */
    bool resetFailed();

    bool isActive() const;
    /** Whether the service neither runs nor starts; false also when the manager cannot be asked. */
    bool isStopped() const;
    bool isEnabled() const;
    /** "active", "inactive", "failed", "activating" and so on; empty when the manager cannot be asked. */
    QString activeState() const;
    /**
     * Whether the service is active at the end of this time, without a restart in between. It may still be starting at
     * first. Returns false as soon as the service stops.
     */
    bool staysActive(std::chrono::milliseconds time) const;

    /** Why the last call on this object failed; empty when it succeeded. */
    QString errorText() const { return m_errorText; }

    /** Lets the manager read all unit files again. Call it after a unit file was written or deleted. */
    static bool reload(QString *errorText = nullptr);

private:
    QString m_unit;
    mutable QString m_errorText;

    bool runJob(const char *method);
    /** Stores the error; true when there is no error. */
    bool settle(const QString &errorText) const;
};
} // namespace VeltAdmin
