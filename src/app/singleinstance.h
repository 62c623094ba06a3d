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
 * Lets only one instance of the program run for each user. The first instance holds a lock and listens; every later one
 * sends its message to the first. Lock and socket are in a folder that only the user can enter.
 *
 * The first instance acknowledges each message (see InstanceFrames) with one byte, and disconnects a peer that sends
 * other data. Messages that arrive before startDelivery() are kept.
 */
class SingleInstance : public QObject
{
    Q_OBJECT
public:
    /** The result of handOver(). */
    enum Outcome {
        Delivered, ///< the first instance has the message
        NotDelivered, ///< the message was not acknowledged in time
        TooLong, ///< no instance accepts a message of this length
        BecameFirst ///< the first instance has ended meanwhile; this one is the first now, and the message is unsent
    };

    /** Takes the lock in `folder` and listens, unless another instance holds the lock. */
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    /** Stops listening and then releases the lock. */
    ~SingleInstance() override;

    bool isFirst() const { return m_first; }

    /**
     * Sends `message` to the first instance and waits for at most `timeout` milliseconds, also when that instance is
     * still starting. An instance that is ending holds the lock but does not listen; it gets `endingTimeout`
     * milliseconds to end. Blocks: only for a start without a window.
     */
    Outcome handOver(const QString &message, int timeout, int endingTimeout = 0);

    /** From now on messages are emitted, earlier ones first. Call it after connecting the receiver. */
    void startDelivery();

    /** Accepts no more messages; waiting senders notice it and try again. The lock stays held. */
    void stopListening();

    /**
     * The folder for lock and socket: `runtimeFolder` if it exists and belongs only to the user, or else a folder of
     * the user below `temporaryFolder`, which is created if missing. Empty when another user owns that folder.
     */
    static QString privateFolder(const QString &runtimeFolder, const QString &temporaryFolder);

Q_SIGNALS:
    /** A later start of the program has sent this message. */
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
