// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <cstddef>
#include <map>
#include <optional>

#include <sys/types.h>

/**
 * The callers, and the limit for open requests of each. A caller is a unique name on the bus. A moment later the bus
 * tells which user it is. Until then its requests count in a separate space, which the connections of one user cannot
 * fill. After that they count for their user. Requests of root do not count for the limit of all others.
 */
class Callers
{
public:
    /** The user of the caller; nothing until the bus has identified this user. */
    std::optional<uid_t> userOf(const QByteArray &caller) const;
    /** Whether one more request may be read, of any size. */
    bool hasPlace(const QByteArray &caller) const;
    /** Reserves a place for a request of this size in bytes; false when there is none. */
    bool takePlace(const QByteArray &caller, std::size_t size);
    /** Releases a place that takePlace() has reserved for a request of this size. */
    void givePlaceBack(const QByteArray &caller, std::size_t size);
    /** Stores the user of a caller. The caller's requests lose their places, and each must take a new one. */
    void identified(const QByteArray &caller, uid_t user);
    /** The caller has left the bus. */
    void left(const QByteArray &caller);

private:
    struct Caller
    {
        std::optional<uid_t> user;
        unsigned open = 0;
        std::size_t size = 0; ///< bytes of the open requests, while the user is unknown
        bool hasLeft = false;
    };

    std::map<QByteArray, Caller> m_callers;
    std::map<uid_t, unsigned> m_openOfUser;
    unsigned m_openOfOthers = 0; ///< requests of all users except root
    std::size_t m_unidentified = 0; ///< bytes of all requests without a known user
};
