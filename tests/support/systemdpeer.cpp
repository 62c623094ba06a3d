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

/** A name as it can stand in an object's path, as hexadecimal digits. */
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

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    // The connection does not notice by itself that such an object goes.
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

SystemdPeer::Unit SystemdPeer::unit(const QString &name) const
{
    const QMutexLocker lock(&m_mutex);
    return m_units.value(name);
}

void SystemdPeer::setNewUnits(const Unit &unit)
{
    const QMutexLocker lock(&m_mutex);
    m_newUnit = unit;
}

QStringList SystemdPeer::takeCalls()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_calls, {});
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
    if (!m_units.contains(name) && QFile::exists(m_unitDir + QLatin1Char('/') + name)) {
        m_units.insert(name, m_newUnit);
        m_units[name].text = contents(m_unitDir + QLatin1Char('/') + name);
    }
    return m_units.contains(name);
}

QDBusMessage SystemdPeer::answer(const QDBusMessage &message)
{
    const QString method = message.member();
    if (method == QLatin1String("Subscribe"))
        return message.createReply();
    if (method == QLatin1String("Reload")) {
        m_calls << method;
        for (auto unit = m_units.begin(); unit != m_units.end();) {
            unit->text = contents(m_unitDir + QLatin1Char('/') + unit.key());
            const bool isGone = unit->activeState == QLatin1String("inactive") && unit->text.isEmpty()
                                && unit.key().startsWith(QLatin1String("public-repo"));
            unit = isGone ? m_units.erase(unit) : std::next(unit);
        }
        return message.createReply();
    }
    const QString name = message.arguments().value(0).toStringList().value(0); // also of a single text
    const bool isRead = method.startsWith(QLatin1String("Get"));
    if (!isRead)
        m_calls << method + QLatin1Char(' ') + name;
    if (!load(name))
        return message.createErrorReply(QStringLiteral("org.freedesktop.systemd1.NoSuchUnit"),
                                        QStringLiteral("Unit %1 not found.").arg(name));
    Unit &unit = m_units[name];
    if (!isRead && !unit.refusal.isEmpty())
        return message.createErrorReply(unit.refusal, QStringLiteral("Unit %1 is not for you.").arg(name));
    if (method == QLatin1String("GetUnit"))
        return message.createReply(QVariant::fromValue(QDBusObjectPath(unitPath(name))));
    if (method == QLatin1String("GetUnitFileState"))
        return message.createReply(unit.fileState);
    if (method == QLatin1String("ResetFailedUnit")) {
        if (unit.activeState == QLatin1String("failed"))
            unit.activeState = QStringLiteral("inactive");
        return message.createReply();
    }
    if (method == QLatin1String("EnableUnitFiles") || method == QLatin1String("DisableUnitFiles")) {
        const bool enables = method.startsWith(QLatin1Char('E'));
        unit.fileState = enables ? QStringLiteral("enabled") : QStringLiteral("disabled");
        // The list of changes is of no interest to anybody who asks here.
        return enables ? message.createReply(true) : message.createReply();
    }
    return beginJob(message, name);
}

QDBusMessage SystemdPeer::beginJob(const QDBusMessage &message, const QString &name)
{
    const uint job = ++m_jobs;
    const QString method = message.member();
    QTimer::singleShot(m_units[name].jobTime, this, [this, method, name, job] { endJob(method, name, job); });
    return message.createReply(QVariant::fromValue(jobPath(job)));
}

void SystemdPeer::endJob(const QString &method, const QString &name, uint job)
{
    const QMutexLocker lock(&m_mutex);
    Unit &unit = m_units[name];
    QString result = QStringLiteral("done");
    if (method == QLatin1String("StopUnit")) {
        if (unit.activeState != QLatin1String("failed")) // which only resetting ends
            setState(name, QStringLiteral("inactive"));
    } else if (unit.startResult != result) {
        result = unit.startResult;
        setState(name, QStringLiteral("failed"));
    } else if (unit.activeState != QLatin1String("active") || method == QLatin1String("RestartUnit")) {
        setState(name, QStringLiteral("active"));
        const quint64 start = ++unit.startNumber;
        if (unit.lifeTime == 0)
            setState(name, QStringLiteral("failed"));
        else if (unit.lifeTime > 0)
            QTimer::singleShot(unit.lifeTime, this, [this, name, start] {
                const QMutexLocker inner(&m_mutex);
                Unit &dying = m_units[name];
                if (dying.startNumber != start)
                    return;
                setState(name, dying.comesBack ? QStringLiteral("activating") : QStringLiteral("failed"));
                if (!dying.comesBack)
                    return;
                ++dying.startNumber;
                setState(name, QStringLiteral("active"));
            });
    }
    // Others have jobs too.
    sendJobRemoved(0, QStringLiteral("other.service"), QStringLiteral("canceled"));
    sendJobRemoved(job, name, result);
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
