// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/veltadminrepointerface.h"

#include <QObject>

#include <functional>

/**
 * Asks the privileged helper for what needs root's rights. The calls return at once; the answer comes on the calling
 * thread, from its event loop, exactly once unless the client is deleted before. It may take minutes, since the system
 * may ask the user for a password.
 */
class HelperClient : public QObject
{
    Q_OBJECT
public:
    struct Result
    {
        bool done = false;
        QString errorText; ///< a sentence for the user; empty when there is nothing to tell
        QString details; ///< of the error
        QDBusError::ErrorType error = QDBusError::NoError; ///< of the bus
    };
    using Answer = std::function<void(const Result &)>;

    explicit HelperClient(QObject *parent = nullptr);
    /** Whether there is a bus; without one, nothing of the system can be learnt or changed. */
    static bool isReachable();

    /** `key` is the one that the entry names, in ASCII armor; empty when it names none. */
    void addLocalSource(const QString &entry, const QByteArray &key, const Answer &answer);
    void removeLocalSource(const QString &entry, const Answer &answer);
    /** Publishes the repository in the directory `path`, which may be a link. A reply "no" comes without an error text. */
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
