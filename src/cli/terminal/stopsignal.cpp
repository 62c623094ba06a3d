// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal/stopsignal.h"

#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace
{
volatile std::sig_atomic_t raised = 0;
int wakeUp = -1; ///< the end of the pipe that is written

void onSignal(int)
{
    raised = 1;
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp, "", 1);
    errno = error;
}
} // namespace

StopSignal::StopSignal(std::function<void()> stop)
    : m_stop(std::move(stop))
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    wakeUp = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        m_notifier->setEnabled(false);
        m_stop();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        ::sigaction(signal, &action, nullptr);
}

bool StopSignal::isRaised()
{
    return raised != 0;
}
