// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>
#include <QString>

#include <memory>

struct JobContext;
class JobFrame;
class RepositoryCopy;

/**
 * Moves the open repository to another path, as a part of a change. To another file system it is copied, and the
 * original stays until removeOriginal().
 */
class RepositoryMove : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    RepositoryMove(JobContext &context, QString newPath);
    ~RepositoryMove();
    RepositoryMove(const RepositoryMove &) = delete;
    RepositoryMove &operator=(const RepositoryMove &) = delete;

    bool isNeeded() const { return m_to != m_from; }
    /** Whether the new path is a possible one; false after an error. */
    bool isPossible();
    /** SUCCESS, ERROR after an error, or CANCEL after a stop. Until SUCCESS the repository is where it was. */
    ErrorCode run(JobFrame *frame);
    /** Whether the original is there too, untouched by what has been done since at the new path. */
    bool isCopied() const { return m_copy != nullptr; }
    void removeOriginal();
    /** Takes the repository back to its old path, after run(). False when it stays at the new one. */
    bool undo();

private:
    JobContext &m_context;
    const QString m_from;
    const QString m_to;
    std::unique_ptr<RepositoryCopy> m_copy; ///< null when a rename was enough

    ErrorCode failed(const QString &reason);
    ErrorCode makeCopy(JobFrame *frame);
    QString takePlace();
    void settleAt(const QString &path);
};
