// SPDX-License-Identifier: GPL-3.0-or-later
#include "service/systemdbus.h"

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace
{
constexpr const char *Service = "org.freedesktop.systemd1";
constexpr const char *Object = "/org/freedesktop/systemd1";
constexpr const char *Manager = "org.freedesktop.systemd1.Manager";

/** Microseconds. The longest call, a reload of all units, takes seconds on a busy machine. */
constexpr quint64 CallLimit = 90ULL * 1000 * 1000;
} // namespace

SystemdBus::SystemdBus()
{
    sd_bus *bus = nullptr;
    const int result = sd_bus_open_system(&bus);
    m_bus.reset(bus);
    if (result < 0)
        m_errorText = tr("The system bus cannot be reached: %1").arg(qt_error_string(-result));
    else
        sd_bus_set_method_call_timeout(bus, CallLimit);
}

bool SystemdBus::check(int result, const SdBus::Error &error)
{
    if (result >= 0)
        return true;
    m_errorName = error.name();
    const auto isOneOf = [this](std::initializer_list<const char *> names) {
        return std::any_of(
            names.begin(), names.end(), [this](const char *name) { return m_errorName == name; });
    };
    if (isOneOf({"org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NameHasNoOwner"})
        || m_errorName.startsWith("org.freedesktop.DBus.Error.Spawn."))
        m_errorText = tr("There is no service manager (systemd) on the system bus.");
    else if (isOneOf({"org.freedesktop.DBus.Error.AccessDenied",
                      "org.freedesktop.DBus.Error.InteractiveAuthorizationRequired"}))
        m_errorText = tr("The service manager allows this to the administrator only.");
    else if (isUnitUnknown() || isOneOf({"org.freedesktop.DBus.Error.FileNotFound"}))
        m_errorText = tr("There is no such service: %1").arg(error.message());
    else if (isOneOf({"org.freedesktop.systemd1.UnitMasked"}))
        m_errorText = tr("The administrator has masked the service: %1").arg(error.message());
    else if (error.message().isEmpty())
        m_errorText = tr("The system bus cannot be reached: %1").arg(qt_error_string(-result));
    else
        m_errorText = tr("The service manager answers: %1").arg(error.message());
    return false;
}

bool SystemdBus::check(int result)
{
    return check(result, SdBus::Error());
}

bool SystemdBus::isUnitUnknown() const
{
    return m_errorName == "org.freedesktop.systemd1.NoSuchUnit"
           || m_errorName == "org.freedesktop.DBus.Error.UnknownObject";
}

SystemdBus::Reply SystemdBus::newCall(const char *interface, const char *method)
{
    sd_bus_message *message = nullptr;
    if (m_bus)
        check(sd_bus_message_new_method_call(m_bus.get(), &message, Service, Object, interface, method));
    return Reply(message);
}

SystemdBus::Reply SystemdBus::send(const Reply &call)
{
    SdBus::Error error;
    sd_bus_message *reply = nullptr;
    check(sd_bus_call(m_bus.get(), call.get(), CallLimit, error.get(), &reply), error);
    return Reply(reply);
}

SystemdBus::Reply
SystemdBus::call(const char *interface, const char *method, std::initializer_list<QString> arguments)
{
    const Reply call = newCall(interface, method);
    if (!call)
        return {};
    for (const QString &argument : arguments) {
        if (!check(sd_bus_message_append(call.get(), "s", argument.toUtf8().constData())))
            return {};
    }
    return send(call);
}

SystemdBus::Reply
SystemdBus::changeUnitFiles(const char *method, const QString &unit, std::initializer_list<bool> switches)
{
    const Reply call = newCall(Manager, method);
    if (!call || !check(sd_bus_message_append(call.get(), "as", 1, unit.toUtf8().constData())))
        return {};
    for (const bool on : switches) {
        if (!check(sd_bus_message_append(call.get(), "b", static_cast<int>(on))))
            return {};
    }
    return send(call);
}

bool SystemdBus::reload()
{
    return call(Manager, "Reload", {}) != nullptr;
}

QString SystemdBus::text(const QByteArray &object, const char *interface, const char *property)
{
    SdBus::Error error;
    char *value = nullptr;
    if (!m_bus
        || !check(sd_bus_get_property_string(
                      m_bus.get(), Service, object.constData(), interface, property, error.get(), &value),
                  error))
        return {};
    const std::unique_ptr<char, decltype(&std::free)> owner(value, &std::free);
    return QString::fromUtf8(value);
}

quint64 SystemdBus::number(const QByteArray &object, const char *interface, const char *property)
{
    SdBus::Error error;
    uint64_t value = 0;
    if (m_bus)
        check(sd_bus_get_property_trivial(
                  m_bus.get(), Service, object.constData(), interface, property, error.get(), 't', &value),
              error);
    return value;
}

bool SystemdBus::watch(const char *interface,
                       const char *signal,
                       sd_bus_message_handler_t handler,
                       void *data)
{
    return m_bus
           && check(
               sd_bus_match_signal(m_bus.get(), nullptr, Service, Object, interface, signal, handler, data));
}

bool SystemdBus::watchProperties(const QByteArray &object, sd_bus_message_handler_t handler, void *data)
{
    return m_bus
           && check(sd_bus_match_signal(m_bus.get(),
                                        nullptr,
                                        Service,
                                        object.constData(),
                                        "org.freedesktop.DBus.Properties",
                                        "PropertiesChanged",
                                        handler,
                                        data));
}

bool SystemdBus::processUntil(const QDeadlineTimer &deadline)
{
    if (!m_bus)
        return false;
    int result = sd_bus_process(m_bus.get(), nullptr);
    if (result == 0) {
        const auto left
            = std::chrono::microseconds(std::max<qint64>(deadline.remainingTimeNSecs() / 1000, 0));
        result = sd_bus_wait(m_bus.get(), static_cast<uint64_t>(left.count()));
    }
    return result == -EINTR || check(result);
}

QByteArray SystemdBus::objectPath(const Reply &reply)
{
    const char *path = nullptr;
    return reply && sd_bus_message_read(reply.get(), "o", &path) > 0 ? QByteArray(path) : QByteArray();
}
