// SPDX-License-Identifier: GPL-3.0-or-later
#include "requestlog.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
/** Of one run of the server, in bytes. */
constexpr ssize_t LargestLog = 64 * 1024 * 1024;

void writeAll(const char *bytes, ssize_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(STDERR_FILENO, bytes, static_cast<std::size_t>(size));
        if (written < 0 && errno == EINTR)
            continue;
        // On a full disk these lines are lost; the server goes on.
        if (written <= 0)
            return;
        bytes += written;
        size -= written;
    }
}

/** Reads on when the log is full: else the server would wait. */
void passOn(int requests)
{
    std::array<char, 65536> text = {};
    ssize_t left = LargestLog;
    while (true) {
        const ssize_t size = ::read(requests, text.data(), text.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return;
        writeAll(text.data(), std::min(size, left));
        left -= std::min(size, left);
    }
}

bool giveUpRights(uid_t user, gid_t group)
{
    return ::setgroups(0, nullptr) == 0 && ::setresgid(group, group, group) == 0
           && ::setresuid(user, user, user) == 0;
}
} // namespace

bool RequestLog::make(const char *path)
{
    return ::mkfifo(path, 0600) == 0 && ::chmod(path, 0622) == 0;
}

bool RequestLog::start(uid_t user, gid_t group)
{
    // Both ends are open before anybody uses them, so that neither side waits for the other.
    const int both = ::open(Path, O_RDWR | O_CLOEXEC);
    const int reading = ::open(Path, O_RDONLY | O_CLOEXEC);
    const int writing = ::open(Path, O_WRONLY | O_CLOEXEC);
    if (both < 0 || reading < 0 || writing < 0)
        return false;
    ::close(both);
    const pid_t child = ::fork();
    if (child == 0) {
        if (!giveUpRights(user, group))
            ::_exit(EXIT_FAILURE);
        const pid_t reader = ::fork();
        if (reader == 0) {
            ::close(writing);
            // The service manager tells all processes to end. The last words of the server come after that.
            std::signal(SIGTERM, SIG_IGN);
            passOn(reading);
        }
        ::_exit(reader < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
    }
    ::close(reading);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        return false;
    errno = EPERM;
    return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS
           && ::dup2(writing, STDERR_FILENO) == STDERR_FILENO;
}
