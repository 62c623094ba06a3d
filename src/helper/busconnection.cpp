// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/busconnection.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <poll.h>

namespace
{
/** Messages between two looks at everything else that the program waits for. */
constexpr int MostInATurn = 64;
/** Messages that wait to be sent. With more of them nothing is read, since what is read wants to be answered. */
constexpr uint64_t MostUnsent = 256;

uint64_t unsent(sd_bus *bus)
{
    uint64_t count = 0;
    sd_bus_get_n_queued_write(bus, &count);
    return count;
}
} // namespace

BusConnection::BusConnection(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &BusConnection::turn);
    if (!open())
        return;
    const int descriptor = sd_bus_get_fd(m_bus.get());
    m_readable.emplace(descriptor, QSocketNotifier::Read);
    m_writable.emplace(descriptor, QSocketNotifier::Write);
    connect(&*m_readable, &QSocketNotifier::activated, this, &BusConnection::turn);
    connect(&*m_writable, &QSocketNotifier::activated, this, &BusConnection::turn);
    watch();
}

bool BusConnection::open()
{
    sd_bus *bus = nullptr;
    int result = sd_bus_new(&bus);
    m_bus.reset(bus);
    QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    if (address.isEmpty())
        address = "unix:path=/run/dbus/system_bus_socket";
    if (result >= 0)
        result = sd_bus_set_address(bus, address.constData());
    if (result >= 0)
        result = sd_bus_set_bus_client(bus, 1);
    if (result >= 0)
        result = sd_bus_negotiate_fds(bus, 0);
    if (result >= 0)
        result = sd_bus_start(bus);
    if (result >= 0)
        return true;
    m_bus.reset();
    m_errorText = qt_error_string(-result);
    return false;
}

bool BusConnection::isOpen() const
{
    return m_bus && sd_bus_is_open(m_bus.get()) > 0;
}

SdBus::Message
BusConnection::newCall(const char *service, const char *path, const char *interface, const char *method)
{
    sd_bus_message *message = nullptr;
    sd_bus_message_new_method_call(m_bus.get(), &message, service, path, interface, method);
    return SdBus::Message(message);
}

void BusConnection::send(const SdBus::Message &message)
{
    if (!message)
        return;
    // Without the place for a number the library says in the message that no answer is expected.
    sd_bus_send(m_bus.get(), message.get(), nullptr);
    watch();
}

std::unique_ptr<BusCall> BusConnection::call(const SdBus::Message &message, Answer answer)
{
    auto call = std::make_unique<BusCall>(std::move(answer));
    sd_bus_slot *slot = nullptr;
    if (!message
        || sd_bus_call_async(
               m_bus.get(), &slot, message.get(), BusCall::answered, call.get(), UINT64_MAX) // no time limit
               < 0)
        return {};
    call->m_slot.reset(slot);
    watch();
    return call;
}

int BusCall::answered(sd_bus_message *reply, void *call, sd_bus_error * /*error*/)
{
    // Whoever gets the answer deletes the call.
    const BusConnection::Answer answer = std::move(static_cast<BusCall *>(call)->m_answer);
    answer(reply);
    return 1;
}

void BusConnection::turn()
{
    int result = 1;
    for (int count = 0; result > 0 && count < MostInATurn; ++count) {
        // The library sends before it reads.
        result = sd_bus_process(m_bus.get(), nullptr);
        if (unsent(m_bus.get()) > MostUnsent)
            break;
    }
    if (result < 0 || !isOpen()) {
        m_readable->setEnabled(false);
        m_writable->setEnabled(false);
        Q_EMIT lost();
        return;
    }
    watch();
}

void BusConnection::watch()
{
    const int events = sd_bus_get_events(m_bus.get());
    if (events < 0)
        return;
    m_readable->setEnabled((events & POLLIN) != 0 && unsent(m_bus.get()) <= MostUnsent);
    m_writable->setEnabled((events & POLLOUT) != 0);
    // The time is one of the monotonic clock, which is this one.
    uint64_t due = 0;
    if (sd_bus_get_timeout(m_bus.get(), &due) < 0 || due == UINT64_MAX) {
        m_timer.stop();
        return;
    }
    using namespace std::chrono;
    const auto left = microseconds(due) - steady_clock::now().time_since_epoch();
    m_timer.start(std::max(ceil<milliseconds>(left), milliseconds(0)));
}
