// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/ftpserver.h"

#include "platform/systemdservice.h"
#include "server/publicationpath.h"
#include "server/systemfile.h"
#include "server/vsftpdconfig.h"

#include <QLoggingCategory>

namespace
{
Q_LOGGING_CATEGORY(category, "velt.server")

const QString serviceName = QStringLiteral("vsftpd");
/** A server that cannot have its port, or does not like its configuration, ends well within this time. */
constexpr std::chrono::seconds WatchTime(1);
constexpr int HighestPort = 65535;

void warn(const QString &errorText)
{
    if (!errorText.isEmpty())
        qCWarning(category, "%ls", qUtf16Printable(errorText));
}

QString configText(const std::optional<SystemFile::State> &state)
{
    return state && state->exists ? QString::fromUtf8(state->contents) : QString();
}
} // namespace

FtpServer::FtpServer()
    : FtpServer(QStringLiteral("/etc/vsftpd.conf"))
{ }

FtpServer::FtpServer(QString configPath)
    : m_configPath(std::move(configPath))
    , m_service(std::make_unique<VeltAdmin::SystemdService>(serviceName))
{ }

FtpServer::~FtpServer() = default;

bool FtpServer::publish(const QString &path, int port)
{
    if (port < 1 || port > HighestPort || !PublicationPath::isPublishable(path))
        return false;
    QString errorText;
    const auto before = SystemFile::read(m_configPath, &errorText);
    const auto kept = SystemFile::read(m_configPath + KeptSuffix, &errorText);
    if (!before || !kept || !keepForeign(*before)) {
        warn(errorText);
        return false;
    }
    const bool wasActive = m_service->isActive();
    const bool isWritten = SystemFile::write(m_configPath,
                                             VsftpdConfig::text(path, port).toUtf8(),
                                             0644,
                                             SystemFile::Existing::Replaced,
                                             &errorText);
    warn(errorText);
    if (!isWritten || !(wasActive ? m_service->restart() : m_service->start())
        || !m_service->staysActive(WatchTime) || !isPublished(port)) {
        warn(m_service->errorText());
        withdraw(*before, *kept, wasActive);
        return false;
    }
    if (!m_service->isEnabled() && !m_service->enable())
        warn(m_service->errorText());
    return true;
}

bool FtpServer::keepForeign(const SystemFile::State &before) const
{
    if (!before.exists || VsftpdConfig::isOurs(QString::fromUtf8(before.contents)))
        return true;
    QString errorText;
    const bool isKept = SystemFile::write(
        m_configPath + KeptSuffix, before.contents, before.mode, SystemFile::Existing::Kept, &errorText);
    warn(errorText);
    return isKept;
}

void FtpServer::withdraw(const SystemFile::State &before, const SystemFile::State &kept, bool wasActive)
{
    QString errorText;
    // In this order, so that the administrator's own is never without a place.
    if (SystemFile::restore(m_configPath, before, &errorText) && !kept.exists)
        SystemFile::remove(m_configPath + KeptSuffix, &errorText);
    warn(errorText);
    if (wasActive) {
        m_service->restart();
    } else {
        m_service->stop();
        m_service->resetFailed();
    }
}

bool FtpServer::unpublish(int /*port*/)
{
    m_service->stop();
    m_service->disable();
    return true;
}

bool FtpServer::isPublished(int port)
{
    return VeltAdmin::SystemdService(serviceName).isActive()
           && VsftpdConfig::mentionsPort(configText(SystemFile::read(m_configPath)), port);
}

QList<PublishedRepo> FtpServer::publishedRepos()
{
    const auto config = SystemFile::read(m_configPath);
    if (!config || !config->exists || !VeltAdmin::SystemdService(serviceName).isActive())
        return {};
    return {VsftpdConfig::read(configText(config))};
}

QString FtpServer::log()
{
    return {};
}

bool FtpServer::isConfiguredByUs() const
{
    return VsftpdConfig::isOurs(configText(SystemFile::read(m_configPath)));
}
