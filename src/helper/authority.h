// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/busconnection.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>
#include <map>
#include <memory>

/**
 * Asks polkit whether a program on the bus may do something. polkit may ask the user of that program for a password, so
 * the answer takes as long as the user. Only a clear "yes" of polkit authorises: without an answer nobody is
 * authorised.
 */
class Authority
{
public:
    /** `reason` is a sentence that explains a negative answer. */
    using Answer = std::function<void(bool authorised, const QString &reason)>;

    explicit Authority(BusConnection &bus)
        : m_bus(bus)
    { }

    /**
     * Sends a question. `caller` is a unique name on the bus, `action` an action of the installed policy, and `details`
     * is text for the dialog. The answer comes once, from the event loop, after any time. Returns a name for cancel().
     * The name is empty when the question cannot be sent; then no answer comes.
     */
    QByteArray check(const QByteArray &caller,
                     const QString &action,
                     const QMap<QString, QString> &details,
                     const Answer &answer);
    /** Cancels a question: its dialog closes, and no answer comes. */
    void cancel(const QByteArray &question);

private:
    BusConnection &m_bus;
    quint64 m_count = 0;
    std::map<QByteArray, std::unique_ptr<BusCall>> m_questions;
};
