// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/callers.h"

namespace
{
constexpr uid_t Root = 0;
/** A user needs one request at a time. More than a few requests would block the helper for other users. */
constexpr unsigned MostOfOne = 8;
/** Most requests of all users together, except root. */
constexpr unsigned MostOfOthers = 256;
constexpr std::size_t KiB = 1024;
// A caller can have one request with a key and several without. A user can have 256 connections on a bus. The limits
// are chosen so that 256 callers cannot fill the space of all callers, and all callers together cannot fill the
// helper's memory.
constexpr std::size_t LargestUnidentified = 160 * KiB;
constexpr std::size_t LargestOfAllUnidentified = 64 * KiB * KiB;
} // namespace

std::optional<uid_t> Callers::userOf(const QByteArray &caller) const
{
    const auto found = m_callers.find(caller);
    return found == m_callers.end() ? std::nullopt : found->second.user;
}

bool Callers::hasPlace(const QByteArray &caller) const
{
    const auto found = m_callers.find(caller);
    if (found == m_callers.end())
        return true;
    if (!found->second.user)
        return found->second.open < MostOfOne;
    const uid_t user = *found->second.user;
    const auto open = m_openOfUser.find(user);
    return (open == m_openOfUser.end() || open->second < MostOfOne)
           && (user == Root || m_openOfOthers < MostOfOthers);
}

bool Callers::takePlace(const QByteArray &caller, std::size_t size)
{
    if (!hasPlace(caller))
        return false;
    Caller &taking = m_callers[caller];
    if (taking.user) {
        ++m_openOfUser[*taking.user];
        m_openOfOthers += *taking.user == Root ? 0 : 1;
    } else {
        if (taking.size + size > LargestUnidentified || m_unidentified + size > LargestOfAllUnidentified)
            return false;
        taking.size += size;
        m_unidentified += size;
    }
    ++taking.open;
    return true;
}

void Callers::givePlaceBack(const QByteArray &caller, std::size_t size)
{
    const auto found = m_callers.find(caller);
    Caller &giving = found->second;
    if (giving.user) {
        const auto open = m_openOfUser.find(*giving.user);
        if (--open->second == 0)
            m_openOfUser.erase(open);
        m_openOfOthers -= *giving.user == Root ? 0 : 1;
    } else {
        giving.size -= size;
        m_unidentified -= size;
    }
    if (--giving.open == 0 && giving.hasLeft)
        m_callers.erase(found);
}

void Callers::identified(const QByteArray &caller, uid_t user)
{
    Caller &known = m_callers[caller];
    m_unidentified -= known.size;
    known = {user, 0, 0, false};
}

void Callers::left(const QByteArray &caller)
{
    const auto found = m_callers.find(caller);
    if (found == m_callers.end())
        return;
    if (found->second.open == 0)
        m_callers.erase(found);
    else
        found->second.hasLeft = true;
}
