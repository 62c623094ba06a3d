// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/aptaccess.h"
#include "server/publication.h"

#include <optional>

/** What the choice of a source line for this machine follows from. */
struct LocalSourceFacts
{
    SourceLine offered; ///< the line for clients of the network; its protocol is -1 as long as none is chosen
    QString directory; ///< the repository's, canonical
    AptAccess access;
    QString fingerprint; ///< of the key that has signed the repository, if it can be handed out; else empty
    QVector<Publication> publications; ///< the repository's
};

/**
 * The line by which this machine's own apt is to use a repository. A line stays when a publication ends, and then
 * anybody on the machine can take the port: so the directory goes before the network, and a key before trust.
 */
struct LocalSourceChoice
{
    enum Risk {
        NoRisk,
        OthersWrite, ///< other users can change a directory that is trusted as it is
        OthersServe ///< whoever has the port is trusted
    };

    SourceLine line;
    Risk risk = NoRisk;

    /** Nothing when only the network remains, and the user has yet to choose how the repository is served. */
    static std::optional<LocalSourceChoice> of(const LocalSourceFacts &facts);
};
