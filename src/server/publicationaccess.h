// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/**
 * Whether a server can read a repository. The servers run with few rights: the one for HTTP must be able to enter the
 * repository's directory and may then read everything; the one for FTP reads only what everybody on this machine may.
 */
struct PublicationAccess
{
    Q_DECLARE_TR_FUNCTIONS(PublicationAccess)
public:
    static constexpr int MostNamed = 10;

    QString closedParent; ///< folder above the repository through which the server does not come; empty: none
    bool isEntered = true; ///< whether the repository's own directory lets the server in
    QStringList unreadable; ///< the first MostNamed files and folders of the repository that it cannot read
    int unreadableCount = 0; ///< all of them

    bool isOpen() const { return isEntered && unreadableCount == 0; }

    /** Looks at every file that is served: not for the interface thread. */
    static PublicationAccess examine(const QString &repoPath, int protocol);
    /**
     * Gives everybody on this machine the right to read what examine() found closed, but for closedParent. Returns
     * why that failed; empty when it did not. Not for the interface thread.
     */
    static QString openUp(const QString &repoPath, int protocol);
};
