// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

/** Finds out whether a package's dependencies can be met. Called on a job's thread; may run programs. */
class DependencyChecker
{
public:
    DependencyChecker() = default;
    virtual ~DependencyChecker();
    DependencyChecker(const DependencyChecker &) = delete;
    DependencyChecker &operator=(const DependencyChecker &) = delete;

    /** The result for `package` among the packages of its repository; null when checking is switched off. */
    virtual QSharedPointer<const DependsInfo> check(const PackageInfo &package,
                                                    const QList<PackageInfoPtr> &repository)
        = 0;
};
