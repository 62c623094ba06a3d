// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** The TCP ports that something can be published on. */
namespace PortRange
{
inline constexpr int Lowest = 1;
inline constexpr int Highest = 65535;

// Those that are proposed.
inline constexpr int Http = 8000;
inline constexpr int Ftp = 21; ///< where clients look for one; also what a server has that names none

constexpr bool contains(int port)
{
    return port >= Lowest && port <= Highest;
}
} // namespace PortRange
