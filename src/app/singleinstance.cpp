// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/singleinstance.h"

#include "app/instanceframes.h"

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
// Pace of the attempts while the first instance is between its lock and its socket, or is ending, in milliseconds.
constexpr int retryInterval = 100;
// How long a peer may take between connecting and a whole message, in milliseconds.
constexpr int patience = 10000;
constexpr int maxPeers = 128;

QString lockPath(const QString &folder)
{
    return folder + QStringLiteral("/velt-admin-repo.lock");
}

/** A folder, no link to one, of this user, that nobody else can enter. */
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
    // A lock never grows old: it is stale only when the process that holds it is gone.
    m_lock.setStaleLockTime(0);
    if (folder.isEmpty()) {
        qCWarning(log, "no private folder for the lock: starting without hand-over");
        m_first = true;
    } else if (takeLock(0))
        listen();
}

SingleInstance::~SingleInstance()
{
    // Before the lock, which is freed after this body: whoever gets that must not find our socket.
    stopListening();
}

bool SingleInstance::takeLock(int timeout)
{
    if (!m_first) {
        m_first = m_lock.tryLock(timeout);
        // A lock file that cannot be made at all (full or read-only disk) must not keep the user from working.
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
    // Under the lock a socket that is there belongs to nobody.
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
    // Acknowledged after the reading: writing to a sender that has gone closes the socket with all it still holds.
    const InstanceFrames::Taken taken = InstanceFrames::take(*socket);
    const int accepted = taken.messages.size();
    m_pending += taken.messages;
    if (!taken.fault.isEmpty()) {
        qCWarning(log, "refused %s", qPrintable(taken.fault));
        socket->abort();
    }
    if (accepted > 0 && socket->state() == QLocalSocket::ConnectedState) {
        socket->write(QByteArray(accepted, receipt));
        socket->flush();
    }
    // Not from here: a receiver may open a dialog, whose event loop would read and delete this socket.
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
    // A lock of an instance that died while writing it names no process, and one of a renamed machine names another
    // machine. Removing succeeds only when no living process holds it.
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
    // Not mkpath: the mode must be right from the first moment.
    ::mkdir(QFile::encodeName(own).constData(), S_IRWXU);
    return belongsToUserAlone(own) ? own : QString();
}
