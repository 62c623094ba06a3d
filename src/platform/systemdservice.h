// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <chrono>

namespace VeltAdmin
{
/**
 * One service of the system's service manager, which is spoken to over the system bus. Every call waits until what it
 * asks for is done and takes from some milliseconds to many seconds: not for the interface thread. Reading is
 * allowed to everybody; changing takes the rights that the service manager wants. Usable on any thread, one at a time.
 */
class SystemdService
{
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

    bool isActive() const;
    bool isEnabled() const;
    /** "active", "inactive", "failed", "activating" and so on; empty when the manager cannot be asked. */
    QString activeState() const;
    /** Whether the service is active and still is after this time; false as soon as it is not. */
    bool staysActive(std::chrono::milliseconds time) const;

    /** Why the last call on this object failed, in words; empty after one that did not. */
    QString errorText() const { return m_errorText; }

    /** Lets the manager read all unit files again; due after one was written or deleted. */
    static bool reload(QString *errorText = nullptr);

private:
    QString m_unit;
    mutable QString m_errorText;
};
} // namespace VeltAdmin
