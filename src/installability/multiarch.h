// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

/** The values of the field Multi-Arch. */
enum class MultiArch : std::uint8_t { No, Same, Foreign, Allowed };

/** An unknown value counts as "no", as for dpkg. */
MultiArch multiArchOf(std::string_view value);

/** Numbers for the architectures of one system. */
namespace Architecture
{
constexpr int Native = 0; ///< also of packages for "all"
constexpr int Any = -1; ///< the qualifier "any"
constexpr int Unknown = -2; ///< not of the system
constexpr int Implicit = -3; ///< a relation without a qualifier
} // namespace Architecture

/** What a package's architecture and its field Multi-Arch mean to the relations of other packages. */
struct ArchitectureTraits
{
    int architecture = Architecture::Native; ///< a number from 0 on
    MultiArch multiArch = MultiArch::No;
};

// Where apt and dpkg differ in the functions below, they do as apt.

/**
 * Whether a dependency with this qualifier may be met by `other`, as far as architectures are concerned. `own` is the
 * architecture of the depending package.
 */
bool architectureMeets(int own, int qualifier, const ArchitectureTraits &other);

/** Whether a conflict with this qualifier concerns `other`. Without a qualifier it concerns every architecture. */
bool architectureExcludes(int qualifier, const ArchitectureTraits &other);

/** Whether two packages of one name and these versions can be installed beside each other. */
bool areCoInstallable(const ArchitectureTraits &a, const ArchitectureTraits &b, bool sameVersion);
