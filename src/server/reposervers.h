// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

#include <map>
#include <memory>

/** One server of each kind, by the number of its protocol. */
class RepoServers
{
public:
    /** Those of this system. */
    RepoServers();

    /** Null for a protocol that nothing serves. */
    RepoServer *server(int protocol) const;
    /** Those over HTTP first. */
    QList<PublishedRepo> publishedRepos() const;
    bool isPublished(int port, int protocol) const;

private:
    std::map<int, std::unique_ptr<RepoServer>> m_servers;
};
