// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class ScratchFolder;

/**
 * What reprepro would do in a repository besides its normal work. The inspection uses open descriptors. Reads files:
 * not for the interface thread.
 */
struct RepositoryInspection
{
    QString identity; ///< device and inode of the repository's folder
    QStringList named; ///< programs and places outside of the repository, see ConfiguredPrograms::lines()
    QByteArray digest; ///< of the options, the named lines, and the programs in the configuration folder
    QString refusal; ///< why reprepro must not run at all; empty when it may run
    bool isShared = false; ///< other users than the user and root can change the repository
    QString configFolder; ///< the folder for reprepro: the repository's own, or `copy`
    /**
     * Copy of the configuration of a shared repository: other users could exchange the original after the inspection.
     */
    std::shared_ptr<const ScratchFolder> copy;

    /** Inspects the repository at this path. */
    static RepositoryInspection of(const QString &repoPath);
    /** Device and inode; empty when there is no such folder. */
    static QString identityOf(const QString &repoPath);
    /** Whether conf and db are folders that belong to the user, and not links. */
    static bool belongsToUser(const QString &repoPath);
};
