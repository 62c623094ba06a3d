// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/control/jobcontrol.h"

#include "engine/control/jobsignals.h"

#include <QMutexLocker>
#include <QThread>
#include <QThreadPool>

#include <chrono>

namespace
{
/** While a job waits for its user, another tab's job can have its place in the pool. */
class LentThread
{
public:
    LentThread() { QThreadPool::globalInstance()->releaseThread(); }
    ~LentThread() { QThreadPool::globalInstance()->reserveThread(); }
    LentThread(const LentThread &) = delete;
    LentThread &operator=(const LentThread &) = delete;
};
} // namespace

void JobControl::prepare()
{
    m_canceled = m_closing.load();
    m_lockedOut = false;
}

void JobControl::cancel()
{
    m_canceled = true;
    const std::lock_guard<std::mutex> waiting(m_waiting);
    m_stopWish.notify_all();
}

void JobControl::setClosing()
{
    m_closing = true;
    cancel();
}

void JobControl::goOn()
{
    const bool wasCanceled = m_canceled.exchange(false);
    // The program may have begun to close in between.
    if (m_closing)
        m_canceled = true;
    else if (wasCanceled)
        Q_EMIT m_signals.goingOn();
}

bool JobControl::pause(bool heedsStop)
{
    constexpr std::chrono::milliseconds Interval(100);
    std::unique_lock<std::mutex> lock(m_waiting);
    return !m_stopWish.wait_for(lock, Interval, [this, heedsStop] { return heedsStop && m_canceled; });
}

bool JobControl::canAsk() const
{
    // A question on the interface thread would wait for an answer that this very thread has to give.
    return !m_closing && QThread::currentThread() != m_signals.thread();
}

bool JobControl::ask(const QString &title, const QString &text, bool safeAnswer, QuestionKind kind)
{
    return ask(title, text, {safeAnswer, kind});
}

bool JobControl::ask(const QString &title, const QString &text, const QuestionTraits &traits)
{
    if (!canAsk())
        return traits.safeAnswer;
    // When the receiver goes away while we wait, the emission returns without an answer.
    m_answer = traits.safeAnswer;
    {
        const QMutexLocker lock(&m_mutex);
        m_traits = traits;
    }
    const LentThread lent;
    Q_EMIT m_signals.question(title, text);
    return m_answer;
}

QuestionTraits JobControl::questionTraits() const
{
    const QMutexLocker lock(&m_mutex);
    return m_traits;
}

void JobControl::askForReplacement(const CollidingFile &file,
                                   RepoEnums::ErrorCode collision,
                                   PackageReplacementRules *rules,
                                   const PackageInfoPtr &package,
                                   bool singlePackage)
{
    if (!canAsk())
        return;
    {
        const QMutexLocker lock(&m_mutex);
        m_collidingFile = file;
    }
    const LentThread lent;
    Q_EMIT m_signals.requestForReplacementHandlingByUser(collision, rules, package, singlePackage);
}

CollidingFile JobControl::collidingFile() const
{
    const QMutexLocker lock(&m_mutex);
    return m_collidingFile;
}
