// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** The TCP ports that a repository can be published on. */
namespace PortRange
{
inline constexpr int Lowest = 1;
inline constexpr int Highest = 65535;

// Ports that are proposed.
inline constexpr int Http = 8000;
inline constexpr int Ftp = 21; ///< the standard port; also used by a server whose configuration names no port

constexpr bool contains(int port)
{
    return port >= Lowest && port <= Highest;
}
} // namespace PortRange
