// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "core/repoenums.h"
#include "engine/control/collidingfile.h"
#include "engine/control/question.h"

#include <QMutex>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <mutex>

class JobSignals;

/**
 * How the user leads a running job: he can stop it, and he answers its questions. The functions are for the job's
 * thread, unless their comment says "any thread".
 */
class JobControl
{
public:
    /** `engineSignals` carries the questions and outlives the object. */
    explicit JobControl(JobSignals &engineSignals)
        : m_signals(engineSignals)
    { }

    // --- the stop --------------------------------------------------------------------------------------------------

    /** The next job begins. A stop that arrived after the previous job had ended must not stop this one. */
    void prepare();
    void cancel(); ///< any thread
    /** The program closes: a stop that nothing takes back. From now on every question gets its safe answer. */
    void setClosing(); ///< any thread
    bool isCanceled() const { return m_canceled; } ///< any thread
    bool isClosing() const { return m_closing; } ///< any thread
    /** The job waited in vain for the database, which it has told. It runs reprepro no more. */
    void setLockedOut(bool isLockedOut) { m_lockedOut = isLockedOut; }
    bool isLockedOut() const { return m_lockedOut; }
    /** Whether a job of several items must not begin a further item. */
    bool mustEnd() const { return m_canceled || m_lockedOut; }
    /** Takes back a stop in the middle of the job. The user can ask for another one. */
    void goOn();
    /** The job ends, and its stop with it. */
    void reset() { m_canceled = false; }
    /** Waits for a moment. False when the job has been stopped; a stop does not count unless `heedsStop`. */
    bool pause(bool heedsStop);

    // --- questions -------------------------------------------------------------------------------------------------

    /** Asks and waits for the answer; `safeAnswer` when nobody can be asked or nobody answers. */
    bool
    ask(const QString &title, const QString &text, bool safeAnswer, QuestionKind kind = QuestionKind::GoOn);
    bool ask(const QString &title, const QString &text, const QuestionTraits &traits);
    /** Those of the pending question; any thread. */
    QuestionTraits questionTraits() const;
    void setAnswer(bool answer) { m_answer = answer; } ///< any thread
    /** Asks what becomes of the collision of `file` with `package`. Without an answer the rules stay as they are. */
    void askForReplacement(const CollidingFile &file,
                           RepoEnums::ErrorCode collision,
                           PackageReplacementRules *rules,
                           const PackageInfoPtr &package,
                           bool singlePackage);
    /** The file of the last askForReplacement(); any thread. */
    CollidingFile collidingFile() const;

private:
    JobSignals &m_signals;
    std::atomic<bool> m_answer{false};
    std::atomic<bool> m_canceled{false};
    std::atomic<bool> m_closing{false};
    std::atomic<bool> m_lockedOut{false};
    std::mutex m_waiting;
    std::condition_variable m_stopWish; ///< with m_waiting: m_canceled has become true
    mutable QMutex m_mutex; ///< guards m_collidingFile and m_traits
    CollidingFile m_collidingFile;
    QuestionTraits m_traits;

    bool canAsk() const;
};
