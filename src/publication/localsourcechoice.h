// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/aptaccess.h"
#include "server/publication.h"

#include <optional>

/** The facts from which the source line for this machine follows. */
struct LocalSourceFacts
{
    SourceLine offered; ///< the line for clients of the network; its protocol is -1 as long as none is chosen
    QString directory; ///< the repository's, canonical
    AptAccess access;
    QString fingerprint; ///< of the key that has signed the repository, if it can be handed out; else empty
    QVector<Publication> publications; ///< the repository's
    bool hasFtp
        = true; ///< whether this machine's apt can use FTP: a source that it cannot use stops every update
};

/**
 * The line by which this machine's own apt uses a repository. The line outlives the publication, and then anybody on
 * the machine can take the port. So the directory is preferred to the network, and a key to trust.
 */
struct LocalSourceChoice
{
    enum Risk {
        NoRisk,
        OthersWrite, ///< apt trusts the directory without a key, and other users can change it
        OthersServe ///< apt trusts any program that has the port
    };

    SourceLine line;
    Risk risk = NoRisk;

    /** Nothing when only the network is possible and the user has not chosen a server type that apt can use. */
    static std::optional<LocalSourceChoice> of(const LocalSourceFacts &facts);
};
