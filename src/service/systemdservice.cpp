// SPDX-License-Identifier: GPL-3.0-or-later
#include "service/systemdservice.h"

#include "service/systemdbus.h"

#include <QDeadlineTimer>

namespace
{
using namespace std::chrono_literals;

/** Longer than the default limit of the manager, so that the manager reports its own result first. */
constexpr auto JobLimit = 100s;

constexpr const char *Manager = "org.freedesktop.systemd1.Manager";
constexpr const char *Unit = "org.freedesktop.systemd1.Unit";
const QLatin1String active("active");

/** The end of a job that we wait for. The handler fills it while messages are processed. */
struct JobEnd
{
    QByteArray job;
    QByteArray result;
};

int jobRemoved(sd_bus_message *message, void *data, sd_bus_error * /*error*/)
{
    auto &end = *static_cast<JobEnd *>(data);
    uint32_t number = 0;
    const char *job = nullptr;
    const char *unit = nullptr;
    const char *result = nullptr;
    if (sd_bus_message_read(message, "uoss", &number, &job, &unit, &result) > 0 && end.job == job)
        end.result = result;
    return 0;
}

/** The states of a unit that were reported since the watch began. */
struct StateWatch
{
    bool wasActive = false;
    bool hasLeft = false;

    void see(const QByteArray &state)
    {
        if (state == active.data())
            wasActive = true;
        else if (wasActive || (state != "activating" && state != "reloading"))
            hasLeft = true;
    }
};

int propertiesChanged(sd_bus_message *message, void *data, sd_bus_error * /*error*/)
{
    const char *interface = nullptr;
    if (sd_bus_message_read(message, "s", &interface) <= 0 || qstrcmp(interface, Unit) != 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return 0;
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const char *name = nullptr;
        const char *state = nullptr;
        if (sd_bus_message_read(message, "s", &name) <= 0)
            return 0;
        if (qstrcmp(name, "ActiveState") != 0)
            sd_bus_message_skip(message, "v");
        else if (sd_bus_message_read(message, "v", "s", &state) > 0)
            static_cast<StateWatch *>(data)->see(state);
        sd_bus_message_exit_container(message);
    }
    return 0;
}
} // namespace

namespace VeltAdmin
{
SystemdService::SystemdService(const QString &name)
    : m_unit(name.endsWith(QLatin1String(".service")) ? name : name + QLatin1String(".service"))
{ }

bool SystemdService::settle(const QString &errorText) const
{
    m_errorText = errorText;
    return errorText.isEmpty();
}

bool SystemdService::start()
{
    if (!runJob("StartUnit"))
        return false;
    // The manager's job succeeds even when the service dies at once.
    const QString state = activeState();
    if (!m_errorText.isEmpty() || state == active || state == QLatin1String("activating"))
        return m_errorText.isEmpty();
    return settle(tr("The service %1 has ended right after its start (%2).").arg(m_unit, state));
}

bool SystemdService::stop()
{
    return runJob("StopUnit");
}

bool SystemdService::restart()
{
    return runJob("RestartUnit");
}

bool SystemdService::runJob(const char *method)
{
    SystemdBus bus;
    JobEnd end;
    // The manager reports the end of a job only to subscribers, so we must subscribe before the job begins.
    const bool isAsked
        = bus.call(Manager, "Subscribe", {}) && bus.watch(Manager, "JobRemoved", jobRemoved, &end);
    const SystemdBus::Reply reply
        = isAsked ? bus.call(Manager, method, {m_unit, QStringLiteral("replace")}) : SystemdBus::Reply();
    if (!reply)
        return settle(bus.errorText());
    end.job = SystemdBus::objectPath(reply);
    const QDeadlineTimer deadline(JobLimit);
    while (end.result.isEmpty()) {
        if (!bus.processUntil(deadline))
            return settle(bus.errorText());
        if (end.result.isEmpty() && deadline.hasExpired())
            return settle(tr("The service manager has not done with %1 in time.").arg(m_unit));
    }
    if (end.result == "done")
        return settle({});
    if (end.result == "failed")
        return settle(tr("The service %1 has failed.").arg(m_unit));
    if (end.result == "timeout")
        return settle(tr("The service %1 was not ready in time.").arg(m_unit));
    if (end.result == "dependency")
        return settle(tr("Something that the service %1 needs has failed.").arg(m_unit));
    if (end.result == "canceled")
        return settle(tr("The job of the service %1 was cancelled.").arg(m_unit));
    if (end.result == "skipped")
        return settle(tr("The job of the service %1 did not apply to its state.").arg(m_unit));
    return settle(
        tr("The job of the service %1 has ended with \"%2\".").arg(m_unit, QString::fromUtf8(end.result)));
}

bool SystemdService::enable()
{
    SystemdBus bus;
    const SystemdBus::Reply reply = bus.changeUnitFiles("EnableUnitFiles", m_unit, {false, false});
    if (!reply)
        return settle(bus.errorText());
    int carriesInstallInfo = 0;
    if (sd_bus_message_read(reply.get(), "b", &carriesInstallInfo) > 0 && carriesInstallInfo == 0)
        return settle(tr("The service %1 has nothing that says when to start it.").arg(m_unit));
    return settle(bus.reload() ? QString() : bus.errorText());
}

bool SystemdService::disable()
{
    SystemdBus bus;
    const bool isDone = bus.changeUnitFiles("DisableUnitFiles", m_unit, {false}) && bus.reload();
    return settle(isDone ? QString() : bus.errorText());
}

bool SystemdService::resetFailed()
{
    SystemdBus bus;
    return settle(bus.call(Manager, "ResetFailedUnit", {m_unit}) ? QString() : bus.errorText());
}

bool SystemdService::isActive() const
{
    return activeState() == active;
}

bool SystemdService::isStopped() const
{
    const QString state = activeState();
    return state == QLatin1String("inactive") || state == QLatin1String("failed");
}

bool SystemdService::isEnabled() const
{
    SystemdBus bus;
    const SystemdBus::Reply reply = bus.call(Manager, "GetUnitFileState", {m_unit});
    const char *state = nullptr;
    settle(reply ? QString() : bus.errorText());
    return reply && sd_bus_message_read(reply.get(), "s", &state) > 0 && qstrcmp(state, "enabled") == 0;
}

QString SystemdService::activeState() const
{
    SystemdBus bus;
    const QByteArray unit = SystemdBus::objectPath(bus.call(Manager, "GetUnit", {m_unit}));
    QString state = unit.isEmpty() ? QString() : bus.text(unit, Unit, "ActiveState");
    // The manager unloads a unit that nobody needs, perhaps between the two calls.
    if (state.isEmpty() && bus.isUnitUnknown()) {
        settle({});
        return QStringLiteral("inactive");
    }
    settle(bus.errorText());
    return state;
}

bool SystemdService::staysActive(std::chrono::milliseconds time) const
{
    const QDeadlineTimer deadline(time);
    SystemdBus bus;
    const SystemdBus::Reply reply
        = bus.call(Manager, "Subscribe", {}) ? bus.call(Manager, "GetUnit", {m_unit}) : SystemdBus::Reply();
    const QByteArray unit = SystemdBus::objectPath(reply);
    StateWatch watch;
    if (unit.isEmpty() || !bus.watchProperties(unit, propertiesChanged, &watch))
        return settle(bus.errorText());
    // Change signals may come late or be merged, so the time of the last start is compared too.
    const quint64 start = bus.number(unit, Unit, "ActiveEnterTimestampMonotonic");
    watch.see(bus.text(unit, Unit, "ActiveState").toUtf8());
    const bool wasActive = watch.wasActive;
    while (bus.errorText().isEmpty() && !watch.hasLeft && !deadline.hasExpired())
        bus.processUntil(deadline);
    if (bus.errorText().isEmpty() && !watch.hasLeft) {
        const QString state = bus.text(unit, Unit, "ActiveState");
        watch.hasLeft = state != active
                        || (wasActive && bus.number(unit, Unit, "ActiveEnterTimestampMonotonic") != start);
    }
    if (!bus.errorText().isEmpty())
        return settle(bus.errorText());
    return settle(watch.hasLeft ? tr("The service %1 does not stay active.").arg(m_unit) : QString());
}

bool SystemdService::reload(QString *errorText)
{
    SystemdBus bus;
    const bool isDone = bus.reload();
    if (errorText != nullptr)
        *errorText = bus.errorText();
    return isDone;
}
} // namespace VeltAdmin
