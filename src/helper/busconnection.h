// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "service/sdbus.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class BusCall;

/**
 * The helper's connection to the system bus. The event loop drives it, a few messages at a time. A flood of messages
 * therefore delays neither signals nor timers nor the results of the work. No call blocks: the library would store all
 * messages that arrive before the answer in memory. Messages with file descriptors are not accepted.
 */
class BusConnection : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(sd_bus_message *reply)>;

    explicit BusConnection(QObject *parent = nullptr);

    bool isOpen() const;
    /** The reason why there is no connection. */
    QString errorText() const { return m_errorText; }
    sd_bus *get() const { return m_bus.get(); }

    SdBus::Message newCall(const char *service, const char *path, const char *interface, const char *method);
    /** Sends a message for which no answer is expected. */
    void send(const SdBus::Message &message);
    /**
     * Sends a call. The answer comes from the event loop and may be an error; there is no time limit. When the returned
     * object is deleted, no answer comes. Null when the message cannot be sent.
     */
    std::unique_ptr<BusCall> call(const SdBus::Message &message, Answer answer);

Q_SIGNALS:
    /** The bus has ended the connection. */
    void lost();

private:
    SdBus::Connection m_bus;
    QString m_errorText;
    std::optional<QSocketNotifier> m_readable;
    std::optional<QSocketNotifier> m_writable;
    QTimer m_timer;

    bool open();
    void turn();
    void watch();
};

/** A pending call. The answer comes only while this object lives. */
class BusCall
{
public:
    explicit BusCall(BusConnection::Answer answer)
        : m_answer(std::move(answer))
    { }
    Q_DISABLE_COPY(BusCall)

private:
    friend class BusConnection;
    BusConnection::Answer m_answer;
    SdBus::Slot m_slot;

    static int answered(sd_bus_message *reply, void *call, sd_bus_error *error);
};
