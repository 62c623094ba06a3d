// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/helperclient.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QTimer>

namespace
{
HelperClient::Result
resultOf(const QDBusPendingReply<bool> &reply, const QString &errorText, bool refusalIsError)
{
    if (reply.isError())
        return {false, errorText, VeltAdminRepoInterface::describe(reply.error().type())};
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
    follow(m_helper.PublishRepo(path, port, protocol), tr("The repository is not published!"), false, answer);
}

void HelperClient::unpublishRepo(int port, int protocol, const Answer &answer)
{
    follow(m_helper.UnpublishRepo(port, protocol), tr("The repository is not unpublished!"), false, answer);
}

void HelperClient::follow(const QDBusPendingReply<bool> &reply,
                          const QString &errorText,
                          bool refusalIsError,
                          const Answer &answer)
{
    if (reply.isFinished()) {
        // There is no bus. No watcher would ever tell, and the caller expects no answer before it has gone on.
        const Result result = resultOf(reply, errorText, refusalIsError);
        QTimer::singleShot(0, this, [answer, result] { answer(result); });
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
