// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/**
 * The result codes and job types that the engine and the interface exchange. They are in a class of their own, so that
 * code can use them without the engine. RepoShell inherits the class, therefore RepoShell::SUCCESS and so on exist too.
 */
class RepoEnums
{
    Q_GADGET
public:
    /** Outcome of a job or of one of its steps. */
    enum ErrorCode {
        ERROR = -1, ///< the job or step failed
        SUCCESS = 0,
        CANCEL = 1, ///< stopped by the user
        PACKAGE_EXISTS_NEW_VERSION = 2, ///< the repository already holds a newer version
        PACKAGE_EXISTS_OLD_VERSION = 3, ///< the repository already holds an older version
        PACKAGE_EXISTS = 4, ///< the repository already holds the same version
        PACKAGE_GPGERROR = 5, ///< the package was added, but the repository could not be signed
        PACKAGE_UNSIGNED = 6 ///< the package itself could not be signed and was not added
    };
    Q_ENUM(ErrorCode)

    /** How an error is shown: as a critical error or as a warning. */
    enum ErrorType { CRITICAL = 0, WARNING = 1 };
    Q_ENUM(ErrorType)

    /** What an error is about, where the interface does more than to show its text. */
    enum ErrorCause {
        OTHER_CAUSE = 0,
        NOTHING_TO_UPGRADE = 1, ///< the sources offer no newer version
        SOURCES_NOT_WRITTEN = 2, ///< the private list of sources could not be written
        REPOSITORY_BUSY = 3 ///< another job or program works on the repository
    };
    Q_ENUM(ErrorCause)

    /** The type of a job that has ended; the interface refreshes its views accordingly. */
    enum JobId {
        COMMON_JOB = 0,
        DOWNLOAD_JOB = 1,
        UPGRADE_JOB = 2,
        CHECK_DEPENDS_JOB = 3,
        CHANGE_REPO_JOB = 4,
        PREVIEW_JOB = 5 ///< has changed nothing
    };
    Q_ENUM(JobId)
};

Q_DECLARE_METATYPE(RepoEnums::ErrorCode)
Q_DECLARE_METATYPE(RepoEnums::ErrorType)
Q_DECLARE_METATYPE(RepoEnums::ErrorCause)
Q_DECLARE_METATYPE(RepoEnums::JobId)
