// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>

class ExportSession;
struct JobContext;

/** Ends the changing runs of a job. */
class SessionEnd
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /**
     * Writes the indices that the session owes, tells when that failed, and unlocks the repository. False when the
     * database was damaged and everything that the session had done has been undone, which has been told as well.
     */
    static bool end(JobContext &context, ExportSession *session);
};
