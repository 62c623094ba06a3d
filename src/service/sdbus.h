// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

#include <systemd/sd-bus.h>

/** Owners of what libsystemd's bus library hands out. */
namespace SdBus
{
struct Release
{
    /** Sends what is still to be sent, and closes. */
    void operator()(sd_bus *bus) const { sd_bus_flush_close_unref(bus); }
    void operator()(sd_bus_message *message) const { sd_bus_message_unref(message); }
    void operator()(sd_bus_slot *slot) const { sd_bus_slot_unref(slot); }
};

using Connection = std::unique_ptr<sd_bus, Release>;
using Message = std::unique_ptr<sd_bus_message, Release>;
/** A handler that is called as long as this lives. */
using Slot = std::unique_ptr<sd_bus_slot, Release>;

/** What went wrong with one call, in the library's own form. */
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
