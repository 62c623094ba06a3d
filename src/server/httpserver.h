// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <QFile>

/**
 * Serves repositories over HTTP. Each repository has a service of its own; its unit is made from a template. A
 * publication that fails restores the previous unit, or deletes the new one. Several threads may read at once; only one
 * thread may publish.
 */
class HttpServer final : public RepoServer
{
public:
    /** The folders and files that the server uses. */
    struct Places
    {
        QString unitDir = QStringLiteral("/etc/systemd/system");
        QString stagingDir = QStringLiteral("/tmp");
        QString logPrefix = QStringLiteral("/tmp/http");
        QString templateFile = HttpServer::templateFile();
    };

    HttpServer();
    explicit HttpServer(const Places &places);

    bool publish(const QString &path, int port) override;
    bool unpublish(int port) override;
    std::optional<PublicationState> state(int port) override;
    bool restore(int port, const PublicationState &state) override;
    bool isPublished(int port) override;
    /** One repository for each unit, whether the unit is active or not. */
    QList<PublishedRepo> publishedRepos() override;
    QString log() override;

    /** The log of the server on this port. */
    static QString logFile(int port);
    /**
     * The template that was installed together with the running program, or else the system's template. The privileged
     * helper uses only the former.
     */
    static QString templateFile();

private:
    QString m_logPrefix;
    QFile m_logFile;
    QString m_unitDir;
    QString m_stagingDir;
    QString m_template;

    QString unitFile(int port) const;
    bool install(const QString &unit, int port) const;
};
