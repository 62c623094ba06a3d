// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <map>
#include <memory>

/** One server of each kind, by the number of its protocol. */
class RepoServers
{
public:
    using Servers = std::map<int, std::unique_ptr<RepoServer>>;

    /** Those of this system. */
    RepoServers();
    explicit RepoServers(Servers servers);

    /** Null for a protocol that nothing serves. */
    RepoServer *server(int protocol) const;
    /** Those over HTTP first. */
    QList<PublishedRepo> publishedRepos() const;
    bool isPublished(int port, int protocol) const;

private:
    Servers m_servers;
};
