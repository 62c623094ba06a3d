// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <memory>

namespace VeltAdmin
{
class SystemdService;
}

/**
 * Serves one repository over FTP with the system's vsftpd, and replaces its configuration. The administrator's own
 * configuration is kept in a file beside it. Lines that were added to our configuration are copied into the next one. A
 * drop-in of the unit restricts the server to the directory that was there at its start. A publication that fails
 * leaves the configuration, the drop-in and the service unchanged. Several threads may read at once; only one thread
 * may publish.
 */
class FtpServer final : public RepoServer
{
public:
    /** Suffix of the file that keeps the administrator's own configuration. */
    static inline const QString KeptSuffix = QStringLiteral(".velt-admin-repo.orig");

    FtpServer();
    FtpServer(QString configPath, const QString &unitDir);
    ~FtpServer() override;

    bool publish(const QString &path, int port) override;
    /** Ends the publication on any port; the argument is ignored. */
    bool unpublish(int port) override;
    std::optional<PublicationState> state(int port) override;
    /** If somebody else has changed the configuration meanwhile, it stays, and so does the service. */
    bool restore(int port, const PublicationState &state) override;
    bool isPublished(int port) override;
    QList<PublishedRepo> publishedRepos() override;
    /** Always empty: there is no log. */
    QString log() override;

    /** True also when the administrator has added lines to the configuration of publish(). */
    bool isConfiguredByUs() const override;

private:
    QString m_configPath;
    QString m_guardDir;
    QString m_guardPath;
    std::unique_ptr<VeltAdmin::SystemdService> m_service;

    bool keepForeign(const SystemFile::State &before) const;
    /** The configuration that publish() writes in place of the one in `before`. */
    static QByteArray newConfig(const QString &path, int port, const PublicationState &before);
    bool putGuard(const QString &path) const;
    bool restoreGuard(const SystemFile::State &guard) const;
    bool restoreConfig(const SystemFile::State &config, const SystemFile::State &kept) const;
};
