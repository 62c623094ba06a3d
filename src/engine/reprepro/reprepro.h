// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QCoreApplication>
#include <QMutex>
#include <QString>
#include <QStringList>

class JobControl;
class JobErrors;
class OpenRepository;
class QElapsedTimer;
class RepositoryGate;

/**
 * Runs reprepro on the open repository, and waits for the database where another program uses it. For the thread of
 * the running job. The references outlive the object.
 */
class Reprepro
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    Reprepro(const OpenRepository &repository, RepositoryGate &gate, JobControl &control, JobErrors &errors)
        : m_repository(repository)
        , m_gate(gate)
        , m_control(control)
        , m_errors(errors)
    { }

    /**
     * `environment` holds "NAME=value" entries on top of our own environment. An error has been told when the program
     * could not be started or crashed, and when the database stays locked; all other failures are the caller's to tell.
     */
    ProcessResult run(const QString &arguments, const QStringList &environment = {});
    /** Absolute path of a package's file as the database knows it; the repository's path when it does not. */
    QString packageFilePath(const QString &name, const QString &component, const QString &architecture);
    /** The result of the last run(); any thread. */
    ProcessResult lastResult() const;

private:
    const OpenRepository &m_repository;
    RepositoryGate &m_gate;
    JobControl &m_control;
    JobErrors &m_errors;
    mutable QMutex m_mutex; ///< guards m_lastResult
    ProcessResult m_lastResult;

    /** Whether to try once more; false after an error, or when the job has been stopped. */
    bool waitForLock(const QString &repoPath, QElapsedTimer *waited);
    bool removeStaleLock(const QString &repoPath);
};
