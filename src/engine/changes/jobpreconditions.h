// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>

struct JobContext;

/** What a job asks before it begins. */
class JobPreconditions
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Whether reprepro may be run on the open repository; false after an error. May ask the user. */
    static bool mayRun(JobContext &context);
    /** The same for a job that changes packages: false also where a change would begin with an empty database. */
    static bool mayChange(JobContext &context);
};
