// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"
#include "server/sourceline.h"

/** A repository that is published, and how its service does. */
struct Publication
{
    PublishedRepo repo; ///< its path is canonical where the directory exists
    int protocol = HttpProtocol;
    QString state; ///< the service's: "active", "failed", "inactive" and so on; empty when it cannot be told
    bool isThere = true; ///< its directory exists
    bool isForeign = false; ///< somebody else has set up its server, which is not ours to stop

    /** Whether it is served, or may be: a state that cannot be told counts as running. */
    bool isRunning() const;
    /** The port on which it waits; the FTP server has a port of its own where its settings name none. */
    int port() const;

    bool operator==(const Publication &other) const;

    /** The canonical form of a path, or its clean form when nothing is there. Reads the file system. */
    static QString placeOf(const QString &path);
};
