// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <QFile>

/**
 * Serves repositories over HTTP, each by a service of its own whose unit is made from a template. A publication that
 * fails leaves the unit that was there before, or none. Reading is safe on several threads at once, publishing on one.
 */
class HttpServer final : public RepoServer
{
public:
    /** Where everything lies. */
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
    /** One for each unit, whether it runs or not. */
    QList<PublishedRepo> publishedRepos() override;
    QString log() override;

    /** The log of whatever is served on this port. */
    static QString logFile(int port);
    /**
     * The template that was installed together with the running program, else the system's. The privileged helper
     * knows the former only.
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
