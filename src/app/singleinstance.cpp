// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/singleinstance.h"

#include "app/instanceframes.h"
#include "core/countof.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLocalSocket>
#include <QLoggingCategory>
#include <QTimer>

#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
Q_LOGGING_CATEGORY(log, "velt.app", QtInfoMsg)

constexpr char receipt = '\x06';
// Milliseconds between attempts while the first instance has its lock but no socket yet, or is ending.
constexpr int retryInterval = 100;
// Milliseconds that a peer may take between its connection and a complete message.
constexpr int patience = 10000;
constexpr int maxPeers = 128;

QString lockPath(const QString &folder)
{
    return folder + QStringLiteral("/velt-admin-repo.lock");
}

/** Whether this is a folder (not a link) of this user that nobody else can enter. */
bool belongsToUserAlone(const QString &folder)
{
    struct stat status = {};
    return !folder.isEmpty() && ::lstat(QFile::encodeName(folder).constData(), &status) == 0
           && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid()
           && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}
} // namespace

SingleInstance::SingleInstance(const QString &folder, QObject *parent)
    : QObject(parent)
    , m_socketPath(folder + QStringLiteral("/velt-admin-repo.socket"))
    , m_lock(lockPath(folder))
{
    // The lock has no time limit: it is stale only when its process has ended.
    m_lock.setStaleLockTime(0);
    if (folder.isEmpty()) {
        qCWarning(log, "no private folder for the lock: starting without hand-over");
        m_first = true;
    } else if (takeLock(0))
        listen();
}

SingleInstance::~SingleInstance()
{
    // Before the lock is released by the member's destructor: the next holder must not find our socket.
    stopListening();
}

bool SingleInstance::takeLock(int timeout)
{
    if (!m_first) {
        m_first = m_lock.tryLock(timeout);
        // A failure to create the lock file (full or read-only disk) must not prevent the user from working.
        if (!m_first && m_lock.error() != QLockFile::LockFailedError
            && m_lock.error() != QLockFile::NoError) {
            qCWarning(log, "no lock file in the runtime folder: starting without hand-over");
            m_first = true;
        }
    }
    return m_first;
}

void SingleInstance::listen()
{
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::acceptConnections);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.setMaxPendingConnections(maxPeers);
    // We hold the lock, so an existing socket belongs to no running instance.
    QLocalServer::removeServer(m_socketPath);
    if (!m_server.listen(m_socketPath))
        qCWarning(log, "no hand-over from later starts: %s", qPrintable(m_server.errorString()));
}

void SingleInstance::stopListening()
{
    m_server.close();
    const QList<QLocalSocket *> peers = m_server.findChildren<QLocalSocket *>();
    for (QLocalSocket *peer : peers)
        peer->abort();
}

void SingleInstance::acceptConnections()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        if (m_server.findChildren<QLocalSocket *>().size() > maxPeers) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        socket->setReadBufferSize(InstanceFrames::HeaderSize + InstanceFrames::LongestMessage);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readMessages(socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QTimer::singleShot(patience, socket, [socket] { socket->abort(); });
    }
}

void SingleInstance::readMessages(QLocalSocket *socket)
{
    // Acknowledged only after reading: writing to a sender that has left closes the socket and discards unread data.
    const InstanceFrames::Taken taken = InstanceFrames::take(*socket);
    const int accepted = countOf(taken.messages);
    m_pending += taken.messages;
    if (!taken.fault.isEmpty()) {
        qCWarning(log, "refused %s", qPrintable(taken.fault));
        socket->abort();
    }
    if (accepted > 0 && socket->state() == QLocalSocket::ConnectedState) {
        socket->write(QByteArray(accepted, receipt));
        socket->flush();
    }
    // Queued, because a receiver may open a dialog, whose event loop could read from and delete this socket.
    if (accepted > 0)
        QMetaObject::invokeMethod(this, &SingleInstance::deliverPending, Qt::QueuedConnection);
}

void SingleInstance::startDelivery()
{
    m_delivering = true;
    QMetaObject::invokeMethod(this, &SingleInstance::deliverPending, Qt::QueuedConnection);
}

void SingleInstance::deliverPending()
{
    while (m_delivering && !m_pending.isEmpty())
        Q_EMIT messageReceived(m_pending.takeFirst());
}

SingleInstance::Outcome SingleInstance::handOver(const QString &message, int timeout, int endingTimeout)
{
    const QByteArray frame = InstanceFrames::frame(message);
    if (frame.isEmpty())
        return TooLong;
    const QDeadlineTimer deadline(timeout);
    const QDeadlineTimer ending(qMax(timeout, endingTimeout));
    bool mayBeStale = true;
    Sent sent = Sent::Unanswered;
    do {
        sent = send(frame, static_cast<int>(qMax<qint64>(retryInterval, deadline.remainingTime())));
        if (sent == Sent::Taken)
            return Delivered;
        if (takeLock(static_cast<int>(qMin<qint64>(retryInterval, ending.remainingTime())))) {
            listen();
            return BecameFirst;
        }
        if (deadline.hasExpired() && std::exchange(mayBeStale, false) && takeStaleLock())
            return BecameFirst;
    } while (!deadline.hasExpired() || (sent == Sent::NobodyListens && !ending.hasExpired()));
    return NotDelivered;
}

bool SingleInstance::takeStaleLock()
{
    // If an instance died while writing its lock, the lock names no process. After a change of the host name, it names
    // another machine. Removing the lock succeeds only when no living process holds it.
    if (!m_lock.removeStaleLockFile() || !takeLock(0))
        return false;
    listen();
    return true;
}

SingleInstance::Sent SingleInstance::send(const QByteArray &frame, int timeout)
{
    const QDeadlineTimer deadline(timeout);
    const auto remaining = [&deadline] { return static_cast<int>(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(m_socketPath);
    if (!socket.waitForConnected(remaining())) {
        const bool isThere = socket.error() != QLocalSocket::ServerNotFoundError
                             && socket.error() != QLocalSocket::ConnectionRefusedError;
        return isThere ? Sent::Unanswered : Sent::NobodyListens;
    }
    socket.write(frame);
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(remaining()))
            return Sent::Unanswered;
    }
    char answer = 0;
    const bool isTaken = (socket.bytesAvailable() > 0 || socket.waitForReadyRead(remaining()))
                         && socket.read(&answer, 1) == 1 && answer == receipt;
    return isTaken ? Sent::Taken : Sent::Unanswered;
}

QString SingleInstance::privateFolder(const QString &runtimeFolder, const QString &temporaryFolder)
{
    if (belongsToUserAlone(runtimeFolder))
        return runtimeFolder;
    const QString own = temporaryFolder + QStringLiteral("/velt-admin-repo-") + QString::number(::geteuid());
    // Not mkpath(): the folder must have the right mode from the beginning.
    ::mkdir(QFile::encodeName(own).constData(), S_IRWXU);
    return belongsToUserAlone(own) ? own : QString();
}
