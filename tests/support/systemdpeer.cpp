// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/systemdpeer.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFile>
#include <QTimer>

namespace
{
const QString connectionName = QStringLiteral("systemd-peer");
const QString managerPath = QStringLiteral("/org/freedesktop/systemd1");
const QString managerInterface = QStringLiteral("org.freedesktop.systemd1.Manager");
const QString unitInterface = QStringLiteral("org.freedesktop.systemd1.Unit");

/** The object path of a unit. Its name is encoded in hexadecimal digits. */
QString unitPath(const QString &name)
{
    return managerPath + QLatin1String("/unit/u") + QString::fromLatin1(name.toUtf8().toHex());
}

QString unitName(const QString &path)
{
    const QString encoded = path.section(QLatin1String("/u"), -1);
    return QString::fromUtf8(QByteArray::fromHex(encoded.toLatin1()));
}

QDBusObjectPath jobPath(uint job)
{
    return QDBusObjectPath(QStringLiteral("%1/job/%2").arg(managerPath).arg(job));
}

} // namespace

SystemdPeer::SystemdPeer(const QString &busAddress, QString unitDir)
    : m_unitDir(std::move(unitDir))
{
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress, connectionName);
    if (!bus.registerVirtualObject(managerPath, this, QDBusConnection::SubPath)
        || !bus.registerService(QStringLiteral("org.freedesktop.systemd1")))
        qFatal("no place for the service manager on the bus");
    moveToThread(&m_thread);
    m_thread.start();
}

SystemdPeer::~SystemdPeer()
{
    // The connection does not notice the deletion of a virtual object.
    QDBusConnection(connectionName).unregisterObject(managerPath, QDBusConnection::UnregisterTree);
    m_thread.quit();
    m_thread.wait();
    QDBusConnection::disconnectFromBus(connectionName);
}

void SystemdPeer::setUnit(const QString &name, const Unit &unit)
{
    const QMutexLocker lock(&m_mutex);
    m_units.insert(name, unit);
}

QString SystemdPeer::introspect(const QString & /*path*/) const
{
    return {};
}

bool SystemdPeer::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/)
{
    const QMutexLocker lock(&m_mutex);
    send(message.interface() == managerInterface ? answer(message) : readProperty(message));
    return true;
}

void SystemdPeer::send(const QDBusMessage &message) const
{
    QDBusConnection(connectionName).send(message);
}

bool SystemdPeer::load(const QString &name)
{
    if (!m_units.contains(name) && QFile::exists(m_unitDir + u'/' + name))
        m_units.insert(name, {});
    return m_units.contains(name);
}

QDBusMessage SystemdPeer::answer(const QDBusMessage &message)
{
    const QString method = message.member();
    if (method == QLatin1String("Subscribe") || method == QLatin1String("Reload"))
        return message.createReply();
    const QString name
        = message.arguments().value(0).toStringList().value(0); // works for a single string too
    if (!load(name))
        return message.createErrorReply(QStringLiteral("org.freedesktop.systemd1.NoSuchUnit"),
                                        QStringLiteral("Unit %1 not found.").arg(name));
    if (method == QLatin1String("GetUnit"))
        return message.createReply(QVariant::fromValue(QDBusObjectPath(unitPath(name))));
    if (method == QLatin1String("GetUnitFileState"))
        return message.createReply(QStringLiteral("disabled"));
    // No caller reads the list of changes.
    if (method == QLatin1String("EnableUnitFiles"))
        return message.createReply(true);
    if (method == QLatin1String("DisableUnitFiles") || method == QLatin1String("ResetFailedUnit"))
        return message.createReply();
    return doJob(message, name);
}

QDBusMessage SystemdPeer::doJob(const QDBusMessage &message, const QString &name)
{
    const uint job = ++m_jobs;
    QTimer::singleShot(0, this, [this, isStop = message.member() == QLatin1String("StopUnit"), name, job] {
        const QMutexLocker lock(&m_mutex);
        Unit &unit = m_units[name];
        setState(name, isStop ? QStringLiteral("inactive") : QStringLiteral("active"));
        unit.startNumber += isStop ? 0 : 1;
        // A signal about a job of somebody else must be ignored.
        sendJobRemoved(0, QStringLiteral("other.service"), QStringLiteral("canceled"));
        sendJobRemoved(job, name, QStringLiteral("done"));
    });
    return message.createReply(QVariant::fromValue(jobPath(job)));
}

void SystemdPeer::sendJobRemoved(uint job, const QString &name, const QString &result) const
{
    QDBusMessage signal
        = QDBusMessage::createSignal(managerPath, managerInterface, QStringLiteral("JobRemoved"));
    signal << job << QVariant::fromValue(jobPath(job)) << name << result;
    send(signal);
}

void SystemdPeer::setState(const QString &name, const QString &state)
{
    m_units[name].activeState = state;
    QDBusMessage signal = QDBusMessage::createSignal(unitPath(name),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << unitInterface
           << QVariantMap{{QStringLiteral("SubState"), state}, {QStringLiteral("ActiveState"), state}}
           << QStringList();
    send(signal);
}

QDBusMessage SystemdPeer::readProperty(const QDBusMessage &message)
{
    const Unit unit = m_units.value(unitName(message.path()));
    const QString property = message.arguments().value(1).toString();
    if (property == QLatin1String("ActiveState"))
        return message.createReply(QVariant::fromValue(QDBusVariant(unit.activeState)));
    if (property == QLatin1String("ActiveEnterTimestampMonotonic"))
        return message.createReply(QVariant::fromValue(QDBusVariant(unit.startNumber)));
    return message.createErrorReply(QDBusError::UnknownProperty, property);
}
