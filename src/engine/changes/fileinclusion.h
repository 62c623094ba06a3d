// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/processutils.h"

#include <QCoreApplication>
#include <QString>

class ExportSession;
struct JobContext;

/** Puts one file into one place of the repository, and knows afterwards whether it is there. */
class FileInclusion
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    struct Outcome
    {
        bool isIncluded = false;
        ProcessResult result; ///< of the last run
    };

    FileInclusion(JobContext &context, ExportSession &session)
        : m_context(context)
        , m_session(session)
    { }

    /** Puts `file` in as `record` says. Failures are the caller's to tell. */
    Outcome include(const PackageInfo &record, const QString &file);
    /** Puts back the file of a package that this job, or an interrupted one, has taken out. */
    Outcome putBack(const PackageInfo &record, const QString &file);
    /** Why a file was not included: in our own words where the user can do something about it, else reprepro's. */
    QString reason(const QString &errorOutput, const PackageInfo &record) const;

private:
    JobContext &m_context;
    ExportSession &m_session;

    ProcessResult run(const QString &arguments);
    bool isIncluded(const ProcessResult &result, const PackageInfo &record);
};
