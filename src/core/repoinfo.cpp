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
    const auto members = [](const RepoInfo &info) {
        return std::tie(info.name,
                        info.codename,
                        info.suite,
                        info.version,
                        info.architectures,
                        info.components,
                        info.signWith,
                        info.contents,
                        info.origin,
                        info.label,
                        info.description,
                        info.signKey,
                        info.contentsChoices,
                        info.validFor,
                        info.otherLines);
    };
    return members(*this) == members(other);
}
