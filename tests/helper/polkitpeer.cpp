// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/polkitpeer.h"

#include "support/literals.h"

#include <QDBusArgument>
#include <QDBusMetaType>

namespace
{
const QString connectionName = QStringLiteral("polkit");

QVariant result(bool authorised, const QMap<QString, QString> &details)
{
    QDBusArgument structure;
    structure.beginStructure();
    structure << authorised << false << details;
    structure.endStructure();
    return QVariant::fromValue(structure);
}
} // namespace

PolkitPeer::PolkitPeer(const QString &busAddress)
{
    qDBusRegisterMetaType<QMap<QString, QString>>();
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress, connectionName);
    if (!bus.registerVirtualObject("/org/freedesktop/PolicyKit1/Authority"_s, this)
        || !bus.registerService("org.freedesktop.PolicyKit1"_s))
        qFatal("polkit cannot be played");
}

PolkitPeer::~PolkitPeer()
{
    QDBusConnection(connectionName).unregisterObject("/org/freedesktop/PolicyKit1/Authority"_s);
    QDBusConnection::disconnectFromBus(connectionName);
}

QString PolkitPeer::introspect(const QString & /*path*/) const
{
    return {};
}

bool PolkitPeer::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QVariantList arguments = message.arguments();
    if (message.member() == "CancelCheckAuthorization"_s) {
        takenBack += arguments.value(0).toString();
        return connection.send(message.createReply());
    }
    if (message.member() != "CheckAuthorization"_s || message.signature() != "(sa{sv})sa{ss}us"_s)
        return false;
    QString kind;
    QVariantMap subject;
    const auto structure = arguments[0].value<QDBusArgument>();
    structure.beginStructure();
    structure >> kind >> subject;
    structure.endStructure();
    questions.append({kind + u' ' + subject["name"_s].toString(),
                      arguments[1].toString(),
                      qdbus_cast<QMap<QString, QString>>(arguments[2]),
                      arguments[3].toUInt(),
                      arguments[4].toString()});
    switch (answer) {
    case Yes:
        return connection.send(message.createReply(result(true, {})));
    case No:
        return connection.send(message.createReply(result(false, {})));
    case Dismissed:
        return connection.send(message.createReply(result(false, {{"polkit.dismissed"_s, "true"_s}})));
    case Broken:
        return connection.send(
            message.createErrorReply("org.freedesktop.PolicyKit1.Error.Cancelled"_s, "x"_s));
    case Nonsense:
        return connection.send(message.createReply(true));
    case Silence:
        break;
    }
    return true;
}
