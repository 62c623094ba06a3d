// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/**
 * Whether a server can read a repository. It is brought to the repository's directory, whoever may enter the folders
 * above. The server for HTTP reads there what the directory's owner may, if that is not root and nobody else's folder
 * is above; else, like the server for FTP, what everybody on this machine may.
 */
struct PublicationAccess
{
    Q_DECLARE_TR_FUNCTIONS(PublicationAccess)
public:
    static constexpr int MostNamed = 10;

    bool isEntered = true; ///< whether the repository's own directory lets the server in
    QStringList unreadable; ///< the first MostNamed files and folders of the repository that it cannot read
    int unreadableCount = 0; ///< all of them

    bool isOpen() const { return isEntered && unreadableCount == 0; }

    /** Looks at every file that is served: not for the interface thread. */
    static PublicationAccess examine(const QString &repoPath, int protocol);
    /**
     * Gives everybody on this machine the right to read what examine() found closed. Returns why that failed; empty
     * when it did not. Not for the interface thread.
     */
    static QString openUp(const QString &repoPath);
};
