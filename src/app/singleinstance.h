// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>
#include <QStringList>

class QLocalSocket;

/**
 * Makes the program run once for a user: the first start holds a lock and listens, every later one hands a message
 * over to it. Lock and socket lie in a folder that only the user can enter.
 *
 * The first instance answers each message (see InstanceFrames) with one byte when it has it, and hangs up on who sends
 * something else. What arrives before startDelivery() is kept.
 */
class SingleInstance : public QObject
{
    Q_OBJECT
public:
    enum Outcome {
        Delivered, ///< the first instance has the message
        NotDelivered, ///< nobody took it within the time
        TooLong, ///< nobody would take a message of this length
        BecameFirst ///< the first instance has ended meanwhile; this one is now the first and the message is unsent
    };

    /** Takes the lock in `folder`, and listens, when no other instance holds it. */
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    /** Stops listening and then frees the lock. */
    ~SingleInstance() override;

    bool isFirst() const { return m_first; }

    /**
     * Sends `message` to the first instance, waiting at most `timeout` milliseconds, also for one that is still
     * starting. One that is ending, which holds the lock and listens no more, gets `endingTimeout` to end. Blocks: only
     * for a start that shows nothing.
     */
    Outcome handOver(const QString &message, int timeout, int endingTimeout = 0);

    /** From now on messages are announced, those that came earlier first. Call it when the receiver is connected. */
    void startDelivery();

    /** No message is taken any more; a sender that is waiting sees it and tries again. The lock stays held. */
    void stopListening();

    /**
     * The folder for lock and socket: `runtimeFolder` if it exists and belongs to the user alone, otherwise one of the
     * user's own below `temporaryFolder`, made when missing. Empty when somebody else holds that name.
     */
    static QString privateFolder(const QString &runtimeFolder, const QString &temporaryFolder);

Q_SIGNALS:
    void messageReceived(const QString &message);

private:
    bool takeLock(int timeout);
    void listen();
    void acceptConnections();
    void readMessages(QLocalSocket *socket);
    void deliverPending();
    enum class Sent { Taken, Unanswered, NobodyListens };
    Sent send(const QByteArray &frame, int timeout);
    bool takeStaleLock();

    QString m_socketPath;
    QLockFile m_lock;
    QLocalServer m_server;
    QStringList m_pending;
    bool m_first = false;
    bool m_delivering = false;
};
