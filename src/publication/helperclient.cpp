// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/helperclient.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QTimer>

namespace
{
HelperClient::Result
resultOf(const QDBusPendingReply<bool> &reply, const QString &errorText, bool refusalIsError)
{
    if (reply.isError())
        return {
            false, errorText, VeltAdminRepoInterface::describe(reply.error().type()), reply.error().type()};
    if (!reply.value())
        return {false, refusalIsError ? errorText : QString(), {}};
    return {true, {}, {}};
}
} // namespace

HelperClient::HelperClient(QObject *parent)
    : QObject(parent)
{ }

bool HelperClient::isReachable()
{
    return QDBusConnection::systemBus().isConnected();
}

QString HelperClient::advice(QDBusError::ErrorType error)
{
    switch (error) {
    case QDBusError::AccessDenied:
        return tr(
            "This takes the rights of an administrator. If no password was asked for, no authentication "
            "agent runs in this session, or a rule of this machine refuses.");
    case QDBusError::ServiceUnknown:
        return tr("The helper that does this with the rights of an administrator is not installed. Install "
                  "the package of this program once more.");
    case QDBusError::Disconnected:
        return tr(
            "The system bus cannot be reached. Without it, nothing in the system can be changed. Start the "
            "service dbus, then this program once more.");
    default:
        return {};
    }
}

void HelperClient::addLocalSource(const QString &entry, const QByteArray &key, const Answer &answer)
{
    follow(key.isEmpty() ? m_helper.AddLocalSource(entry)
                         : m_helper.AddSignedLocalSource(entry, QString::fromLatin1(key)),
           tr("Failed to add repository to local sources list!"),
           true,
           answer);
}

void HelperClient::removeLocalSource(const QString &entry, const Answer &answer)
{
    follow(m_helper.RemoveLocalSource(entry),
           tr("Failed to remove repository from local sources list!"),
           true,
           answer);
}

void HelperClient::publishRepo(const QString &path, int port, int protocol, const Answer &answer)
{
    const QString errorText = tr("The repository is not published!");
    const QString directory = QFileInfo(path).canonicalFilePath();
    if (directory.isEmpty())
        answerLater({false, errorText, tr("The directory \"%1\" is not there.").arg(path)}, answer);
    else
        follow(m_helper.PublishRepo(directory, port, protocol), errorText, false, answer);
}

void HelperClient::unpublishRepo(int port, int protocol, const Answer &answer)
{
    follow(m_helper.UnpublishRepo(port, protocol), tr("The repository is not unpublished!"), false, answer);
}

void HelperClient::answerLater(const Result &result, const Answer &answer)
{
    // The caller expects no answer before the call has returned.
    QTimer::singleShot(0, this, [answer, result] { answer(result); });
}

void HelperClient::follow(const QDBusPendingReply<bool> &reply,
                          const QString &errorText,
                          bool refusalIsError,
                          const Answer &answer)
{
    if (reply.isFinished()) {
        // Without a bus the reply is an error at once, of which no watcher tells.
        answerLater(resultOf(reply, errorText, refusalIsError), answer);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(reply, this);
    connect(watcher,
            &QDBusPendingCallWatcher::finished,
            this,
            [errorText, refusalIsError, answer](QDBusPendingCallWatcher *finished) {
                finished->deleteLater();
                answer(resultOf(*finished, errorText, refusalIsError));
            });
}
