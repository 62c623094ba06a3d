// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

#include <chrono>

namespace VeltAdmin
{
/**
 * One service of the system's service manager, which is spoken to over the system bus. Every call waits until what it
 * asks for is done and takes from some milliseconds to many seconds: not for the interface thread. Reading is
 * allowed to everybody; changing takes the rights that the service manager wants, which nobody is asked for a password
 * to get. Each call has a connection of its own: usable on any thread, one object by one thread at a time.
 */
class SystemdService
{
    Q_DECLARE_TR_FUNCTIONS(SystemdService)
public:
    /** `name` with or without its ".service". */
    explicit SystemdService(const QString &name);

    /** These wait until the manager's job has ended and say whether it has succeeded. */
    bool start();
    bool stop();
    bool restart();
    /** From the next start of the system on, the service is started, or not. */
    bool enable();
    bool disable();
    /** Lets the manager forget that the service has failed. */
    bool resetFailed();

    bool isActive() const;
    /** Neither running nor on the way there; false also when the manager cannot be asked. */
    bool isStopped() const;
    bool isEnabled() const;
    /** "active", "inactive", "failed", "activating" and so on; empty when the manager cannot be asked. */
    QString activeState() const;
    /** Whether the service is active and still is after this time, without a restart; false as soon as it is not. */
    bool staysActive(std::chrono::milliseconds time) const;

    /** Why the last call on this object failed, in words; empty after one that did not. */
    QString errorText() const { return m_errorText; }

    /** Lets the manager read all unit files again; due after one was written or deleted. */
    static bool reload(QString *errorText = nullptr);

private:
    QString m_unit;
    mutable QString m_errorText;

    bool runJob(const char *method);
    /** Keeps the error; true when there is none. */
    bool settle(const QString &errorText) const;
};
} // namespace VeltAdmin
