// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class ScratchFolder;

/**
 * What a repository would have reprepro do besides its work, as found on open descriptors. Reads files: not for the
 * interface thread.
 */
struct RepositoryInspection
{
    QString identity; ///< of the repository's folder, by device and inode
    QStringList named; ///< programs, and places outside of the repository, one a line; see ConfiguredPrograms
    QByteArray
        digest; ///< of the options, of what is named, and of the programs that lie in the configuration
    QString refusal; ///< why nothing may be run at all; empty when that is not so
    bool isShared = false; ///< others than the user and root can change the repository
    QString configFolder; ///< what reprepro is to read: the repository's own, or `copy`
    /** Of a shared repository, since its own could be exchanged between this look and the one that reprepro takes. */
    std::shared_ptr<const ScratchFolder> copy;

    static RepositoryInspection of(const QString &repoPath);
    /** By device and inode; empty when there is no such folder. */
    static QString identityOf(const QString &repoPath);
    /** Whether conf and db are folders of the user's own, and no links. */
    static bool belongsToUser(const QString &repoPath);
};
