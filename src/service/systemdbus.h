// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "service/sdbus.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QString>

#include <initializer_list>

/**
 * One conversation with the service manager: a connection to the system bus that closes with the object. Needs no
 * event loop. After a call that gave nothing errorText() says why.
 */
class SystemdBus
{
    Q_DECLARE_TR_FUNCTIONS(SystemdService)
public:
    using Reply = SdBus::Message;

    SystemdBus();

    /** Calls a method that takes texts. */
    Reply call(const char *interface, const char *method, std::initializer_list<QString> arguments);
    /** Enabling and its like: a list of one unit, then switches. */
    Reply changeUnitFiles(const char *method, const QString &unit, std::initializer_list<bool> switches);
    bool reload();

    /** These give nothing for a property that cannot be read. */
    QString text(const QByteArray &object, const char *interface, const char *property);
    quint64 number(const QByteArray &object, const char *interface, const char *property);

    /** Lets the handler see a signal of the manager, or of changed properties, while processUntil() runs. */
    bool watch(const char *interface, const char *signal, sd_bus_message_handler_t handler, void *data);
    bool watchProperties(const QByteArray &object, sd_bus_message_handler_t handler, void *data);
    /** Handles what has come, else waits for something to come; false when the connection has broken. */
    bool processUntil(const QDeadlineTimer &deadline);

    QString errorText() const { return m_errorText; }
    /** Whether the last error was that there is no such unit in the manager's memory. */
    bool isUnitUnknown() const;

    /** The object that a reply names; empty when there is no reply. */
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
