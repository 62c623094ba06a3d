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
 * On the wire a message is a 32-bit big-endian length and that many bytes of UTF-8; the first instance answers each
 * one with one byte when it has it. What arrives before startDelivery() is kept.
 */
class SingleInstance : public QObject
{
    Q_OBJECT
public:
    enum Outcome {
        Delivered, ///< the first instance has the message
        NotDelivered, ///< nobody took it within the time
        BecameFirst ///< the first instance has ended meanwhile; this one is now the first and the message is unsent
    };

    /** Longest message in bytes; what claims to be longer is refused and its sender disconnected. */
    static constexpr quint32 maxMessageSize = 8 * 1024 * 1024;

    /** Takes the lock in `folder`, and listens, when no other instance holds it. */
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    /** Stops listening and then frees the lock. */
    ~SingleInstance() override;

    bool isFirst() const { return m_first; }

    /**
     * Sends `message` to the first instance, waiting at most `timeout` milliseconds, also for one that is still
     * starting. Blocks: only for a start that shows nothing.
     */
    Outcome handOver(const QString &message, int timeout);

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
    /** Moves the whole messages that have come to the pending ones and returns their number. */
    int takeFrames(QLocalSocket *socket);
    void deliverPending();
    bool send(const QByteArray &frame, int timeout);

    QString m_socketPath;
    QLockFile m_lock;
    QLocalServer m_server;
    QStringList m_pending;
    bool m_first = false;
    bool m_delivering = false;
};
