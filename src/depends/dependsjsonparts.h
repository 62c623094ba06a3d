// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/** The parts that reading and writing the document of dependency results share. */
namespace DependsJson::Key
{
inline constexpr std::string_view version = "version";
inline constexpr std::string_view architecture = "architecture";
inline constexpr std::string_view dependMap = "dependMap";
inline constexpr std::string_view dependsStatus = "dependsStatus";
inline constexpr std::string_view dependStatus = "dependStatus";
inline constexpr std::string_view packages = "packages";
inline constexpr std::string_view name = "name";
inline constexpr std::string_view op = "op";
inline constexpr std::string_view dependVersion = "dependVersion";
inline constexpr std::string_view altOp = "alt_op";
inline constexpr std::string_view altDependVersion = "alt_dependVersion";
inline constexpr std::string_view providers = "providers";
inline constexpr std::string_view status = "status";
inline constexpr std::string_view foundedVersions = "foundedVersions";
// Optional members; left out when they have their default value. A dependency can have an architecture, too.
inline constexpr std::string_view component = "component";
inline constexpr std::string_view type = "type";
inline constexpr std::string_view others = "others";
inline constexpr std::string_view dependsRepoType = "dependsRepoType"; ///< the sources of the check
inline constexpr std::string_view field = "field"; ///< the control field that contains the entry
/** The value of "type" for an installer package. */
inline constexpr std::string_view udeb = "udeb";
/** The value of "field" for an entry of Pre-Depends. */
inline constexpr std::string_view preDepends = "Pre-Depends";
/** The repository itself as a source. Its displayed name depends on the user's language, which may change. */
inline constexpr std::string_view local = "Local";
} // namespace DependsJson::Key
