// SPDX-License-Identifier: GPL-3.0-or-later
// Prevents one client from taking all connections of the server that loads this library, because lighttpd has no limit
// for each address. A connection counts in the process that accepted it, as long as this process keeps it open.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
/** The environment variable CONNECTIONS_PER_ADDRESS can replace it with another positive number. */
constexpr long DefaultLimit = 100;
constexpr std::time_t SecondsBetweenWarnings = 60;

/** The address of the peer for each descriptor; 0: none. The units limit descriptors to numbers below this size. */
std::array<in_addr_t, 16384> peers = {};

long limit()
{
    const char *const text = ::getenv("CONNECTIONS_PER_ADDRESS");
    const long number = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
    return number > 0 ? number : DefaultLimit;
}

/** Writes a warning, but rarely, so that a client cannot fill the log. */
void warn(in_addr address, long most)
{
    static std::time_t last = 0;
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    if (last != 0 && now.tv_sec - last < SecondsBetweenWarnings)
        return;
    last = now.tv_sec;
    std::array<char, INET_ADDRSTRLEN> text = {};
    ::inet_ntop(AF_INET, &address, text.data(), text.size());
    ::dprintf(STDERR_FILENO, "%s has %ld connections open and gets no more.\n", text.data(), most);
}

/**
 * Returns the connection. If its address has too many, closes it and fails like accept() with an aborted connection.
 */
int admitted(int connection)
{
    const long most = limit();
    sockaddr_in peer = {};
    socklen_t size = sizeof peer;
    if (connection < 0 || static_cast<std::size_t>(connection) >= peers.size()
        || ::getpeername(connection, reinterpret_cast<sockaddr *>(&peer), &size) != 0
        || peer.sin_family != AF_INET)
        return connection;
    if (std::count(peers.begin(), peers.end(), peer.sin_addr.s_addr) < most) {
        peers[static_cast<std::size_t>(connection)] = peer.sin_addr.s_addr;
        return connection;
    }
    warn(peer.sin_addr, most);
    ::close(connection);
    errno = ECONNABORTED;
    return -1;
}

/** The function of the C library with this name and type. */
template <typename Function>
Function *original(Function * /*type*/, const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}
} // namespace

#define VELT_FUNCTION extern "C" __attribute__((visibility("default")))

VELT_FUNCTION int accept(int fd, sockaddr *addr, socklen_t *addr_len)
{
    return admitted(original(&accept, "accept")(fd, addr, addr_len));
}

VELT_FUNCTION int accept4(int fd, sockaddr *addr, socklen_t *addr_len, int flags)
{
    return admitted(original(&accept4, "accept4")(fd, addr, addr_len, flags));
}

VELT_FUNCTION int close(int fd)
{
    if (fd >= 0 && static_cast<std::size_t>(fd) < peers.size())
        peers[static_cast<std::size_t>(fd)] = 0;
    return original(&close, "close")(fd);
}
