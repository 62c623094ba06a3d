// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>

class ExportSession;
class JobContext;

/** Takes single packages out of the repository. */
class PackageRemoval
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    PackageRemoval(JobContext &context, ExportSession *session)
        : m_context(context)
        , m_session(session)
    { }

    /** False after critical() when the package is still there. For `makesRoom` see ExportSession::remove(). */
    bool remove(const PackageInfoPtr &package, bool makesRoom = false);

private:
    JobContext &m_context;
    ExportSession *m_session;

    bool isGone(const PackageInfo &package);
};
