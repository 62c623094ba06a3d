// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

/**
 * The user's wish to stop: Ctrl+C, or SIGTERM and SIGHUP from other programs. From the making of the object on these
 * signals end the program no more; further ones change nothing. One object a program.
 */
class StopSignal
{
public:
    /** `stop` is called once, from the event loop. */
    explicit StopSignal(std::function<void()> stop);

    /** Whether a signal has come; true before `stop` is called. Any thread. */
    static bool isRaised();

private:
    std::function<void()> m_stop;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
