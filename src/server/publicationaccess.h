// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/**
 * Whether a server can read a repository. The server reaches the repository's directory even if the folders above it
 * are closed. The HTTP server has the rights of the directory's owner, unless the owner is root or a folder above
 * belongs to another user. Otherwise, and for FTP, the server can read only what every user of this machine can read.
 */
struct PublicationAccess
{
    Q_DECLARE_TR_FUNCTIONS(PublicationAccess)
public:
    static constexpr int MostNamed = 10;

    bool isEntered = true; ///< whether the server may enter the repository's own directory
    QStringList unreadable; ///< the first MostNamed files and folders that the server cannot read
    int unreadableCount = 0; ///< number of all such files and folders

    bool isOpen() const { return isEntered && unreadableCount == 0; }

    /** Checks every file that is served: not for the interface thread. */
    static PublicationAccess examine(const QString &repoPath, int protocol);
    /**
     * Makes all that is served readable for every user of this machine. Returns the reason of a failure; empty on
     * success. Not for the interface thread.
     */
    static QString openUp(const QString &repoPath);
};
