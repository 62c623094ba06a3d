// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/keymanager.h"

#include "platform/packagemanager.h"

#include <QProcess>
#include <QSocketNotifier>

#include <sys/syscall.h>
#include <unistd.h>

namespace
{
const QString &programName()
{
    static const QString name = QStringLiteral("kgpg");
    return name;
}

/** A descriptor that becomes readable when the process ends; -1 when the process has already ended. */
int processDescriptor(qint64 processId)
{
    return static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(processId), 0));
}
} // namespace

KeyManager::KeyManager(QObject *parent)
    : QObject(parent)
{ }

KeyManager::~KeyManager()
{
    if (m_end)
        ::close(static_cast<int>(m_end->socket()));
}

void KeyManager::start()
{
    if (m_isRunning)
        return;
    setRunning(true);
    VeltAdmin::PackageManager::isPackageInstalled(programName(), this, [this](bool isInstalled) {
        if (isInstalled) {
            launch();
            return;
        }
        setRunning(false);
        Q_EMIT packageMissing(programName());
    });
}

void KeyManager::launch()
{
    // Detached, because a QProcess kills its program when it is deleted.
    qint64 processId = 0;
    if (QProcess::startDetached(programName(), {}, QString(), &processId)) {
        follow(processId);
    } else {
        setRunning(false);
        Q_EMIT startFailed(programName());
    }
}

void KeyManager::follow(qint64 processId)
{
    const int descriptor = processDescriptor(processId);
    if (descriptor < 0) {
        setRunning(false);
        return;
    }
    m_end = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(m_end.get(), &QSocketNotifier::activated, this, [this, descriptor] {
        m_end->setEnabled(false);
        ::close(descriptor);
        m_end.release()->deleteLater();
        setRunning(false);
    });
}

void KeyManager::setRunning(bool isRunning)
{
    m_isRunning = isRunning;
    Q_EMIT runningChanged(isRunning);
}
