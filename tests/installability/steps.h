// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/installabilityinfo.h"
#include "support/literals.h"

/** Short forms of reasons: a package is written as "name version architecture", the last two can be left out. */
namespace Steps
{
inline NamedPackage package(const QString &text)
{
    const QStringList parts = text.split(u' ');
    const QString architecture = parts.value(2);
    return {parts.value(0), parts.value(1, "1"_s), architecture.isEmpty() ? "amd64"_s : architecture, true};
}

inline InstallabilityStep step(InstallabilityStep::Kind kind,
                               const QString &from,
                               const QString &field,
                               const QString &relation,
                               const QStringList &targets = {})
{
    InstallabilityStep result{kind, package(from), field, relation, {}};
    for (const QString &target : targets)
        result.targets.append(package(target));
    return result;
}

inline InstallabilityStep needs(const QString &from, const QString &relation, const QStringList &targets)
{
    return step(InstallabilityStep::Needs, from, "Depends"_s, relation, targets);
}

inline InstallabilityStep lacks(const QString &from, const QString &relation, const QStringList &targets = {})
{
    return step(InstallabilityStep::Lacks, from, "Depends"_s, relation, targets);
}

inline InstallabilityStep
excludes(const QString &from, const QString &field, const QString &relation, const QStringList &targets)
{
    return step(InstallabilityStep::Excludes, from, field, relation, targets);
}
} // namespace Steps
