// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include <rapidjson/reader.h>

/** What reading and writing the document of dependency results share. */
namespace DependsJson
{
namespace Key
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
// In addition, and left out where they say nothing; architecture may stand in a dependency as well.
inline constexpr std::string_view component = "component";
inline constexpr std::string_view type = "type";
inline constexpr std::string_view others = "others";
inline constexpr std::string_view dependsRepoType = "dependsRepoType"; ///< the sources that were asked
inline constexpr std::string_view field = "field"; ///< of the package that an entry stands in
/** The value of type for an installer package. */
inline constexpr std::string_view udeb = "udeb";
/** The value of field for what is not in Depends. */
inline constexpr std::string_view preDepends = "Pre-Depends";
/** The repository itself among the sources. Shown it has a word of the user's language, which may change. */
inline constexpr std::string_view local = "Local";
} // namespace Key

/** Far above what is ever written; more would make an indented document grow with the square of its depth. */
inline constexpr int maximumDepth = 1024;

/** Numbers are taken as text, so that those of other members stay as they are. */
inline constexpr unsigned parseFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag
                                       | rapidjson::kParseNumbersAsStringsFlag;
} // namespace DependsJson
