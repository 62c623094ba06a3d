// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/repoinfo.h"

#include <tuple>

QStringList RepoInfo::binaryArchitectures() const
{
    QStringList list = architectures.section(QLatin1Char('#'), 0, 0)
                           .simplified()
                           .split(QLatin1Char(' '), Qt::SkipEmptyParts);
    list.removeAll(QStringLiteral("source"));
    list.removeAll(QStringLiteral("all"));
    list.removeDuplicates();
    return list;
}

bool RepoInfo::operator==(const RepoInfo &other) const
{
    return std::tie(
               name, codename, suite, version, architectures, components, signWith, contents, origin, label)
           == std::tie(other.name,
                       other.codename,
                       other.suite,
                       other.version,
                       other.architectures,
                       other.components,
                       other.signWith,
                       other.contents,
                       other.origin,
                       other.label);
}
