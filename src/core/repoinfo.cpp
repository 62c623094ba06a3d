// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/repoinfo.h"

#include <tuple>

bool RepoInfo::operator==(const RepoInfo &other) const
{
    return std::tie(name, codename, suite, version, architectures, components, signWith, contents)
           == std::tie(other.name,
                       other.codename,
                       other.suite,
                       other.version,
                       other.architectures,
                       other.components,
                       other.signWith,
                       other.contents);
}
