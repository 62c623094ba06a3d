// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <cstddef>
#include <map>
#include <optional>

#include <sys/types.h>

/**
 * Who has asked for something, and how many requests each may have open. A caller is a unique name on the bus; the bus
 * tells a moment later which user it is. Until then its requests have places of their own: more than the connections of
 * one user can fill. After that they have places of their user, and root's are kept for root.
 */
class Callers
{
public:
    /** Nothing as long as the bus has not told. */
    std::optional<uid_t> userOf(const QByteArray &caller) const;
    /** Whether one more request, of whatever size, may be looked at. */
    bool hasPlace(const QByteArray &caller) const;
    /** Takes a place for a request of this size, in bytes; false when there is none. */
    bool takePlace(const QByteArray &caller, std::size_t size);
    void givePlaceBack(const QByteArray &caller, std::size_t size);
    /** The bus has told. The caller's requests have no places any more, and must take new ones. */
    void identified(const QByteArray &caller, uid_t user);
    /** The caller is not on the bus any more. */
    void left(const QByteArray &caller);

private:
    struct Caller
    {
        std::optional<uid_t> user;
        unsigned open = 0;
        std::size_t size = 0; ///< of the open requests, as long as the user is not known
        bool hasLeft = false;
    };

    std::map<QByteArray, Caller> m_callers;
    std::map<uid_t, unsigned> m_openOfUser;
    unsigned m_openOfOthers = 0; ///< than root
    std::size_t m_unidentified = 0; ///< bytes
};
