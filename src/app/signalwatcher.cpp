// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/signalwatcher.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace
{
Q_LOGGING_CATEGORY(log, "velt.app", QtInfoMsg)

constexpr std::array<int, 3> watched{SIGTERM, SIGINT, SIGHUP};
// A signal handler can access only a global variable.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void noteSignal(int /*number*/)
{
    const int savedError = errno;
    const char byte = 1;
    // If the socket is full, the notifier is already triggered.
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
    errno = savedError;
}

void handleSignals(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : watched)
        ::sigaction(number, &action, nullptr);
}
} // namespace

SignalWatcher::SignalWatcher(QObject *parent)
    : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, m_sockets.data()) != 0) {
        qCWarning(log, "signals end the program at once: no socket pair");
        return;
    }
    writeEnd = m_sockets[0];
    auto *notifier = new QSocketNotifier(m_sockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &SignalWatcher::drain);
    handleSignals(noteSignal);
}

SignalWatcher::~SignalWatcher()
{
    if (writeEnd < 0)
        return;
    handleSignals(SIG_DFL);
    writeEnd = -1;
    for (const int socket : m_sockets)
        ::close(socket);
}

void SignalWatcher::drain()
{
    std::array<char, 16> bytes{};
    while (::read(m_sockets[1], bytes.data(), bytes.size()) > 0) { }
    Q_EMIT terminationRequested();
}
