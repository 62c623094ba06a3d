// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/busconnection.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <poll.h>

namespace
{
/** Most messages in one turn; after it the event loop handles everything else. */
constexpr int MostInATurn = 64;
/** Most messages in the send queue. When there are more, nothing is read, because each read message needs an answer. */
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
    // The null pointer tells the library that no reply is expected.
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
    // The handler of the answer deletes the call.
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
    // The library uses the monotonic clock, the same as steady_clock.
    uint64_t due = 0;
    if (sd_bus_get_timeout(m_bus.get(), &due) < 0 || due == UINT64_MAX) {
        m_timer.stop();
        return;
    }
    using namespace std::chrono;
    const auto left = microseconds(due) - steady_clock::now().time_since_epoch();
    m_timer.start(std::max(ceil<milliseconds>(left), milliseconds(0)));
}
