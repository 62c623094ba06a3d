// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/runinbackground.h"

#include <atomic>
#include <memory>

/**
 * One question at a time to the engine, answered on the thread pool. A new question stops the last one, whose answer is
 * dropped; so does the destructor. Lives in the interface thread.
 */
class BackgroundQuery
{
public:
    BackgroundQuery() = default;
    ~BackgroundQuery() { stop(); }
    BackgroundQuery(const BackgroundQuery &) = delete;
    BackgroundQuery &operator=(const BackgroundQuery &) = delete;

    /** `work` gets a StopRequest; `next` gets its result in the thread of `context`, which outlives this object. */
    template <typename Work, typename Next>
    void ask(QObject *context, Work work, Next next)
    {
        stop();
        m_isStopped = std::make_shared<std::atomic_bool>(false);
        runInBackground(
            context,
            [isStopped = m_isStopped, work] {
                return work(StopRequest([isStopped] { return isStopped->load(); }));
            },
            [isStopped = m_isStopped, next](const auto &result) {
                if (!isStopped->load())
                    next(result);
            });
    }
    /** The answer is not wanted any more. */
    void stop()
    {
        if (m_isStopped)
            m_isStopped->store(true);
        m_isStopped.reset();
    }

private:
    std::shared_ptr<std::atomic_bool> m_isStopped;
};
