// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QString>

#include <atomic>

class JobControl;
class JobSignals;

/** The errors and warnings of the running job. For the job's thread. */
class JobErrors
{
public:
    /** Both outlive the object. */
    JobErrors(JobSignals &engineSignals, const JobControl &control)
        : m_signals(engineSignals)
        , m_control(control)
    { }

    /** The next job begins. */
    void prepare() { m_isAny = false; }
    /** Emits the engine's signal of this name. */
    void critical(const QString &text,
                  const QString &details = QString(),
                  RepoEnums::ErrorType type = RepoEnums::CRITICAL,
                  RepoEnums::ErrorCause cause = RepoEnums::OTHER_CAUSE);
    /** critical() for a run of reprepro that failed; nothing when the job is locked out, which the user knows. */
    void runFailed(const QString &text, const QString &details);
    /** Whether critical() has told of an error, and not only of warnings. */
    bool isAny() const { return m_isAny; }

private:
    JobSignals &m_signals;
    const JobControl &m_control;
    std::atomic<bool> m_isAny{false};
};
