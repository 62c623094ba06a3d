// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"
#include "server/sourceline.h"

/** A repository that is published, and the state of its service. */
struct Publication
{
    PublishedRepo repo; ///< its path is canonical when the directory exists
    int protocol = HttpProtocol;
    QString state; ///< of the service: "active", "failed", "inactive" and so on; empty when it is unknown
    bool isThere = true; ///< the directory exists
    bool isForeign = false; ///< somebody else has set up the server, so we must not stop it

    /** Whether the repository is served; an unknown state counts as running. */
    bool isRunning() const;
    /** The port of the server; the FTP server has its standard port when its settings name none. */
    int port() const;

    bool operator==(const Publication &other) const;

    /** The canonical form of a path; its clean form when the path does not exist. Reads the file system. */
    static QString canonicalPathOf(const QString &path);
};
