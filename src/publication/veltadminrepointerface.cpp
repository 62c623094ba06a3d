// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/veltadminrepointerface.h"

#include "server/answerlimits.h"

#include <QDBusConnection>
#include <QDBusMessage>

VeltAdminRepoInterface::VeltAdminRepoInterface(QObject *parent)
    : QDBusAbstractInterface(QString::fromLatin1(Service),
                             QString::fromLatin1(Path),
                             Interface,
                             QDBusConnection::systemBus(),
                             parent)
{
    // The bus waits 25 seconds at most, but a password takes longer. The helper would then do its work after the user
    // was told of a failure.
    setTimeout(int(std::chrono::milliseconds(AnswerLimits::Client).count()));
}

QDBusPendingReply<bool> VeltAdminRepoInterface::AddLocalSource(const QString &entry)
{
    return ask(QStringLiteral("AddLocalSource"), {entry});
}

QDBusPendingReply<bool> VeltAdminRepoInterface::AddSignedLocalSource(const QString &entry, const QString &key)
{
    return ask(QStringLiteral("AddSignedLocalSource"), {entry, key});
}

QDBusPendingReply<bool> VeltAdminRepoInterface::RemoveLocalSource(const QString &entry)
{
    return ask(QStringLiteral("RemoveLocalSource"), {entry});
}

QDBusPendingReply<bool> VeltAdminRepoInterface::PublishRepo(const QString &path, int port, int protocol)
{
    return ask(QStringLiteral("PublishRepo"), {path, port, protocol});
}

QDBusPendingReply<bool> VeltAdminRepoInterface::UnpublishRepo(int port, int protocol)
{
    return ask(QStringLiteral("UnpublishRepo"), {port, protocol});
}

QDBusPendingCall VeltAdminRepoInterface::ask(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service(), path(), interface(), method);
    message.setArguments(arguments);
    message.setInteractiveAuthorizationAllowed(true);
    return connection().asyncCall(message, timeout());
}

QString VeltAdminRepoInterface::describe(QDBusError::ErrorType type)
{
    switch (type) {
    case QDBusError::Failed:
        return tr("The call failed.");
    case QDBusError::NoMemory:
        return tr("Out of memory.");
    case QDBusError::ServiceUnknown:
        return tr("The called service is not known.");
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return tr("Timeout reply.");
    case QDBusError::BadAddress:
        return tr("The address given is not valid.");
    case QDBusError::NotSupported:
        return tr("The call/operation is not supported.");
    case QDBusError::LimitsExceeded:
        return tr("The limits allocated to this process/call/connection exceeded the pre-defined values.");
    case QDBusError::AccessDenied:
        return tr("Authorization error.");
    case QDBusError::NoServer:
        return tr("No server found.");
    case QDBusError::NoNetwork:
        return tr("No network found.");
    case QDBusError::AddressInUse:
        return tr("QDBusServer tried to bind to an address that is already in use.");
    case QDBusError::Disconnected:
        return tr("The call/process/message was sent after QDBusConnection disconnected.");
    case QDBusError::InvalidArgs:
        return tr("The arguments passed to this call/operation are not valid.");
    case QDBusError::UnknownMethod:
        return tr("The method called was not found in this object/interface with the given parameters.");
    case QDBusError::InvalidSignature:
        return tr("The type signature is not valid or compatible.");
    case QDBusError::UnknownInterface:
        return tr("The interface is not known in this object.");
    case QDBusError::UnknownObject:
        return tr("The object path points to an object that does not exist.");
    case QDBusError::UnknownProperty:
        return tr("The property does not exist in this interface.");
    case QDBusError::PropertyReadOnly:
        return tr("The property set failed because the property is read-only.");
    case QDBusError::InternalError:
        return tr("An internal error occurred.");
    case QDBusError::InvalidService:
        return tr("The service requested is invalid.");
    case QDBusError::InvalidObjectPath:
        return tr("The object path provided is invalid.");
    case QDBusError::InvalidInterface:
        return tr("The interface is invalid.");
    case QDBusError::InvalidMember:
        return tr("The member is invalid.");
    default:
        return tr("Unknown error.");
    }
}
