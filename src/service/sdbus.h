// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

#include <systemd/sd-bus.h>

/** Owners of the objects of libsystemd's bus library. */
namespace SdBus
{
struct Release
{
    /** Sends the pending messages and closes the connection. */
    void operator()(sd_bus *bus) const { sd_bus_flush_close_unref(bus); }
    void operator()(sd_bus_message *message) const { sd_bus_message_unref(message); }
    void operator()(sd_bus_slot *slot) const { sd_bus_slot_unref(slot); }
};

using Connection = std::unique_ptr<sd_bus, Release>;
using Message = std::unique_ptr<sd_bus_message, Release>;
/** Registration of a handler, which is called as long as this object lives. */
using Slot = std::unique_ptr<sd_bus_slot, Release>;

/** The error of one call, in the form of the library. */
class Error
{
public:
    Error() = default;
    ~Error() { sd_bus_error_free(&m_error); }
    Q_DISABLE_COPY(Error)

    sd_bus_error *get() { return &m_error; }
    QByteArray name() const { return m_error.name; }
    QString message() const { return QString::fromUtf8(m_error.message); }

private:
    sd_bus_error m_error = {};
};
} // namespace SdBus
