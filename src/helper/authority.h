// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QMap>
#include <QObject>
#include <QString>

#include <functional>
#include <map>

class QDBusPendingCallWatcher;

/**
 * Asks polkit whether a program on the bus may do something; polkit may ask the program's user for a password, which
 * takes as long as the user does. Only polkit's clear "yes" is one: without an answer nobody is authorised.
 */
class Authority : public QObject
{
    Q_OBJECT
public:
    /** `reason` says in a sentence why the answer is no. */
    using Answer = std::function<void(bool authorised, const QString &reason)>;

    explicit Authority(QDBusConnection bus, QObject *parent = nullptr);

    /**
     * `caller` is a unique name of the bus, `action` one of the installed policy, `details` what the question may show.
     * The answer comes from the event loop, once. Returns the name under which the question can be taken back.
     */
    QString check(const QString &caller,
                  const QString &action,
                  const QMap<QString, QString> &details,
                  const Answer &answer);
    /** Takes a question back: its dialog is closed, and no answer comes any more. */
    void cancel(const QString &question);

private:
    QDBusConnection m_bus;
    quint64 m_count = 0;
    std::map<QString, QDBusPendingCallWatcher *> m_questions;

    void withdraw(const QString &question);
};
