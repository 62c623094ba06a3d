// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "service/sdbus.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QString>

#include <initializer_list>

/**
 * One connection to the service manager over the system bus. The destructor closes it. It needs no event loop. After a
 * call without a result, errorText() tells the reason.
 */
class SystemdBus
{
    Q_DECLARE_TR_FUNCTIONS(SystemdService)
public:
    using Reply = SdBus::Message;

    SystemdBus();

    /** Calls a method whose arguments are strings. */
    Reply call(const char *interface, const char *method, std::initializer_list<QString> arguments);
    /** Calls EnableUnitFiles or a similar method: its arguments are a list with one unit, then booleans. */
    Reply changeUnitFiles(const char *method, const QString &unit, std::initializer_list<bool> switches);
    /** Makes the manager read all unit files again. */
    bool reload();

    /** The value of a property. Empty or 0 when the property cannot be read. */
    QString text(const QByteArray &object, const char *interface, const char *property);
    quint64 number(const QByteArray &object, const char *interface, const char *property);

    /** Calls the handler for a signal of the manager, or for changed properties, while processUntil() runs. */
    bool watch(const char *interface, const char *signal, sd_bus_message_handler_t handler, void *data);
    bool watchProperties(const QByteArray &object, sd_bus_message_handler_t handler, void *data);
    /** Handles a pending message, or waits for one until the deadline; false when the connection has broken. */
    bool processUntil(const QDeadlineTimer &deadline);

    QString errorText() const { return m_errorText; }
    /** Whether the last error was that the manager has not loaded such a unit. */
    bool isUnitUnknown() const;

    /** The object path in a reply; empty when there is no reply. */
    static QByteArray objectPath(const Reply &reply);

private:
    SdBus::Connection m_bus;
    QString m_errorText;
    QByteArray m_errorName;

    Reply newCall(const char *interface, const char *method);
    Reply send(const Reply &call);
    bool check(int result, const SdBus::Error &error);
    bool check(int result);
};
