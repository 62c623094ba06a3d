// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/reposervers.h"

#include "server/ftpserver.h"
#include "server/httpserver.h"
#include "server/sourceline.h"

RepoServers::RepoServers()
{
    m_servers.emplace(HttpProtocol, std::make_unique<HttpServer>());
    m_servers.emplace(FtpProtocol, std::make_unique<FtpServer>());
}

RepoServers::RepoServers(Servers servers)
    : m_servers(std::move(servers))
{ }

RepoServer *RepoServers::server(int protocol) const
{
    const auto found = m_servers.find(protocol);
    return found == m_servers.end() ? nullptr : found->second.get();
}

QList<PublishedRepo> RepoServers::publishedRepos() const
{
    QList<PublishedRepo> repos;
    for (const auto &[protocol, server] : m_servers)
        repos += server->publishedRepos();
    return repos;
}

bool RepoServers::isPublished(int port, int protocol) const
{
    RepoServer *const found = server(protocol);
    return found != nullptr && found->isPublished(port);
}
