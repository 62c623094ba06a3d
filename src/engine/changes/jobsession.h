// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/changes/exportsession.h"

#include <QCoreApplication>

struct JobContext;

/** Begins the changing runs of a job. SessionEnd ends them. */
class JobSession
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    enum Kind {
        Usual,
        RoomMaking ///< of a job that makes room on the disk: where there is none, the database's copy lies elsewhere
    };

    static ExportSession begin(JobContext &context, Kind kind = Usual);

private:
    static bool agreesToLackOfPoint(JobContext &context);
    static bool agreesToCopyInMemory(JobContext &context);
};
