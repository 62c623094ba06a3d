// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>
#include <QString>

class ExportSession;
class PointReturn;
struct JobContext;

/** Goes back to the state before a restore point. It is a job that has a point itself, so it can be undone. */
class RestoreJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit RestoreJob(JobContext &context)
        : m_context(context)
    { }

    /** `point` is the number of the point. Nothing is changed when a file of that state is missing. */
    int run(int point);

private:
    JobContext &m_context;

    /** Finds all that is needed, or tells what is missing. */
    ErrorCode find(const QString &folder, PointReturn *state);
    bool write(ExportSession *session, PointReturn *state, QString *details);
};
