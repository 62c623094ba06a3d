// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/veltadminrepointerface.h"

#include <QObject>

#include <functional>

/**
 * Asks the privileged helper for everything that needs root's rights. The calls return at once. The answer comes on the
 * calling thread, from its event loop, exactly once unless the client is deleted before. An answer may take minutes,
 * because the system may ask the user for a password.
 */
class HelperClient : public QObject
{
    Q_OBJECT
public:
    struct Result
    {
        bool done = false;
        QString errorText; ///< a sentence for the user; may be empty
        QString details; ///< of the error
        QDBusError::ErrorType error = QDBusError::NoError; ///< of the bus
    };
    using Answer = std::function<void(const Result &)>;

    explicit HelperClient(QObject *parent = nullptr);
    /** Whether there is a system bus. Without a bus, the system's state can be neither read nor changed. */
    static bool isReachable();
    /** What the administrator can do about this error of the bus; empty: nothing. */
    static QString advice(QDBusError::ErrorType error);

    /** `key` is the key that the entry names, in ASCII armor; empty when the entry names no key. */
    void addLocalSource(const QString &entry, const QByteArray &key, const Answer &answer);
    void removeLocalSource(const QString &entry, const Answer &answer);
    /** Publishes the directory `path`, which may be a link. A reply "no" comes without an error text. */
    void publishRepo(const QString &path, int port, int protocol, const Answer &answer);
    void unpublishRepo(int port, int protocol, const Answer &answer);

private:
    void answerLater(const Result &result, const Answer &answer);
    void follow(const QDBusPendingReply<bool> &reply,
                const QString &errorText,
                bool refusalIsError,
                const Answer &answer);

    VeltAdminRepoInterface m_helper;
};
