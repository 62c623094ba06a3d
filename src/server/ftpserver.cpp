// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/ftpserver.h"

#include "server/portrange.h"
#include "server/publicationpath.h"
#include "server/vsftpdconfig.h"
#include "service/systemdservice.h"

#include <QLoggingCategory>

namespace
{
Q_LOGGING_CATEGORY(category, "velt.server")

const QString serviceName = QStringLiteral("vsftpd");

/** Index of each file in PublicationState::files. */
enum File { Config, Kept, Guard, FileCount };

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
    : FtpServer(QStringLiteral("/etc/vsftpd.conf"), QStringLiteral("/etc/systemd/system"))
{ }

FtpServer::FtpServer(QString configPath, const QString &unitDir)
    : m_configPath(std::move(configPath))
    , m_guardDir(unitDir + QStringLiteral("/vsftpd.service.d"))
    , m_guardPath(m_guardDir + QStringLiteral("/velt-admin-repo.conf"))
    , m_service(std::make_unique<VeltAdmin::SystemdService>(serviceName))
{ }

FtpServer::~FtpServer() = default;

bool FtpServer::publish(const QString &path, int port)
{
    if (!PortRange::contains(port) || !PublicationPath::isPublishable(path))
        return false;
    const auto before = state(port);
    if (!before || !keepForeign(before->files.at(Config)))
        return false;
    QString errorText;
    // The guard is written first. If somebody starts the server between the two writes, it serves the old directory or
    // none.
    const bool isWritten
        = putGuard(path)
          && SystemFile::write(
              m_configPath, newConfig(path, port, *before), 0644, SystemFile::Existing::Replaced, &errorText);
    warn(errorText);
    // Requests in a row are no restart loop.
    m_service->resetFailed();
    if (!isWritten || !(before->isActive ? m_service->restart() : m_service->start())
        || !m_service->staysActive(WatchTime) || !isPublished(port)) {
        warn(m_service->errorText());
        restore(port, *before);
        return false;
    }
    if (!m_service->isEnabled() && !m_service->enable())
        warn(m_service->errorText());
    return true;
}

QByteArray FtpServer::newConfig(const QString &path, int port, const PublicationState &before)
{
    return VsftpdConfig::text(path, port).toUtf8()
           + VsftpdConfig::additions(before.files.at(Config).contents, configText(before.files.at(Guard)));
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

bool FtpServer::putGuard(const QString &path) const
{
    QString errorText;
    const bool isDone = SystemFile::makeFolder(m_guardDir, &errorText)
                        && SystemFile::write(m_guardPath,
                                             VsftpdConfig::guard(path).toUtf8(),
                                             0644,
                                             SystemFile::Existing::Replaced,
                                             &errorText)
                        && VeltAdmin::SystemdService::reload(&errorText);
    warn(errorText);
    return isDone;
}

bool FtpServer::restoreGuard(const SystemFile::State &guard) const
{
    QString errorText;
    const bool isDone = SystemFile::restore(m_guardPath, guard, &errorText)
                        && (guard.exists || SystemFile::removeEmptyFolder(m_guardDir, &errorText))
                        && VeltAdmin::SystemdService::reload(&errorText);
    warn(errorText);
    return isDone;
}

std::optional<PublicationState> FtpServer::state(int /*port*/)
{
    QString errorText;
    PublicationState state;
    for (const QString &path : {m_configPath, QString(m_configPath + KeptSuffix), m_guardPath}) {
        const auto file = SystemFile::read(path, &errorText);
        if (!file) {
            warn(errorText);
            return {};
        }
        state.files.append(*file);
    }
    state.isActive = m_service->isActive();
    state.isEnabled = m_service->isEnabled();
    return state;
}

bool FtpServer::restoreConfig(const SystemFile::State &config, const SystemFile::State &kept) const
{
    QString errorText;
    // In this order, so that the administrator's own configuration always exists in one of the two files.
    const bool isDone = SystemFile::restore(m_configPath, config, &errorText)
                        && (kept.exists || SystemFile::remove(m_configPath + KeptSuffix, &errorText));
    warn(errorText);
    return isDone;
}

bool FtpServer::restore(int /*port*/, const PublicationState &state)
{
    if (state.files.size() != FileCount) {
        qCWarning(category, "The state to bring back is none of this server, and is not followed.");
        return true;
    }
    const SystemFile::State &config = state.files.at(Config);
    const auto file = SystemFile::read(m_configPath);
    const QString present = configText(file);
    const PublishedRepo repo = VsftpdConfig::read(present);
    const bool isOurs
        = VsftpdConfig::isOurs(present) || (file && file->contents == newConfig(repo.path, repo.port, state));
    if (!present.isEmpty() && present != configText(config) && !isOurs) {
        qCWarning(category, "The configuration of the FTP server was changed by somebody else, and stays.");
        return restoreGuard(state.files.at(Guard));
    }
    bool isDone = restoreConfig(config, state.files.at(Kept));
    isDone = restoreGuard(state.files.at(Guard)) && isDone;
    if (!state.isEnabled && m_service->isEnabled())
        m_service->disable();
    if (state.isActive) {
        m_service->restart();
    } else {
        m_service->stop();
        m_service->resetFailed();
    }
    return isDone;
}

bool FtpServer::unpublish(int /*port*/)
{
    m_service->stop();
    m_service->disable();
    if (m_service->isStopped())
        restoreGuard({});
    else
        qCWarning(category, "The FTP server cannot be stopped.");
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
    const QString config = configText(SystemFile::read(m_configPath));
    return VsftpdConfig::isOurs(config)
           || VsftpdConfig::isGuarded(config, configText(SystemFile::read(m_guardPath)));
}
