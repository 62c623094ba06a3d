// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/multiarch.h"

MultiArch multiArchOf(std::string_view value)
{
    if (value == "same")
        return MultiArch::Same;
    if (value == "foreign")
        return MultiArch::Foreign;
    return value == "allowed" ? MultiArch::Allowed : MultiArch::No;
}

bool architectureMeets(int own, int qualifier, const ArchitectureTraits &other)
{
    switch (qualifier) {
    case Architecture::Implicit:
        return other.architecture == own || other.multiArch == MultiArch::Foreign;
    case Architecture::Any:
        return other.multiArch == MultiArch::Allowed;
    default:
        return other.architecture == qualifier;
    }
}

bool architectureExcludes(int qualifier, const ArchitectureTraits &other)
{
    switch (qualifier) {
    case Architecture::Implicit:
        return true;
    case Architecture::Any:
        return other.multiArch == MultiArch::Allowed;
    default:
        return other.architecture == qualifier;
    }
}

bool areCoInstallable(const ArchitectureTraits &a, const ArchitectureTraits &b, bool sameVersion)
{
    return sameVersion && a.architecture != b.architecture && a.multiArch == MultiArch::Same
           && b.multiArch == MultiArch::Same;
}
