// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <memory>

namespace VeltAdmin
{
class SystemdService;
}

/**
 * Serves one repository over FTP, by the system's vsftpd, whose configuration is replaced. The first one that was the
 * administrator's own is kept beside it; lines that were added to ours go over into the next one. A drop-in of its unit
 * keeps the server to the very directory that was there when it was started. A publication that fails leaves all these
 * and the service as they were. Reading is safe on several threads at once, publishing on one.
 */
class FtpServer final : public RepoServer
{
public:
    /** What the name of the configuration file gets to name the administrator's own. */
    static inline const QString KeptSuffix = QStringLiteral(".velt-admin-repo.orig");

    FtpServer();
    FtpServer(QString configPath, const QString &unitDir);
    ~FtpServer() override;

    bool publish(const QString &path, int port) override;
    /** Whatever is published, on this port or another one. */
    bool unpublish(int port) override;
    std::optional<PublicationState> state(int port) override;
    /** A configuration that somebody else has written meanwhile stays, and so does the service. */
    bool restore(int port, const PublicationState &state) override;
    bool isPublished(int port) override;
    QList<PublishedRepo> publishedRepos() override;
    /** There is none. */
    QString log() override;

    /** Also when the administrator has added lines to what publish() has written. */
    bool isConfiguredByUs() const override;

private:
    QString m_configPath;
    QString m_guardDir;
    QString m_guardPath;
    std::unique_ptr<VeltAdmin::SystemdService> m_service;

    bool keepForeign(const SystemFile::State &before) const;
    /** What publish() writes in the place of `before`. */
    static QByteArray newConfig(const QString &path, int port, const PublicationState &before);
    bool putGuard(const QString &path) const;
    bool restoreGuard(const SystemFile::State &guard) const;
    bool restoreConfig(const SystemFile::State &config, const SystemFile::State &kept) const;
};
