// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <map>
#include <memory>

/** One server for each protocol, by the number of the protocol. */
class RepoServers
{
public:
    using Servers = std::map<int, std::unique_ptr<RepoServer>>;

    /** The servers of this system. */
    RepoServers();
    explicit RepoServers(Servers servers);

    /** Null for a protocol without a server. */
    RepoServer *server(int protocol) const;
    /** HTTP comes first. */
    QList<PublishedRepo> publishedRepos() const;
    bool isPublished(int port, int protocol) const;

private:
    Servers m_servers;
};
