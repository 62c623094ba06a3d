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
 * Asks polkit whether a program on the bus may do something; polkit may ask the program's user for a password, which
 * takes as long as the user does. Only polkit's clear "yes" is one: without an answer nobody is authorised.
 */
class Authority
{
public:
    /** `reason` says in a sentence why the answer is no. */
    using Answer = std::function<void(bool authorised, const QString &reason)>;

    explicit Authority(BusConnection &bus)
        : m_bus(bus)
    { }

    /**
     * `caller` is a unique name of the bus, `action` one of the installed policy, `details` what the question may show.
     * The answer comes from the event loop, once, after any time. Returns the name under which the question can be
     * taken back; it is empty when the question cannot be sent, and then no answer comes.
     */
    QByteArray check(const QByteArray &caller,
                     const QString &action,
                     const QMap<QString, QString> &details,
                     const Answer &answer);
    /** Takes a question back: its dialog is closed, and no answer comes any more. */
    void cancel(const QByteArray &question);

private:
    BusConnection &m_bus;
    quint64 m_count = 0;
    std::map<QByteArray, std::unique_ptr<BusCall>> m_questions;
};
