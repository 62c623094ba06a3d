// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "core/repoinfo.h"

#include <QCoreApplication>
#include <QString>

class AsideDirectory;
struct JobContext;

/** Makes an empty repository and opens it. */
class CreateJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit CreateJob(JobContext &context)
        : m_context(context)
    { }

    /** What lies at `path` goes when the new repository works, and stays when that fails. SUCCESS or ERROR. */
    int run(const QString &path, const RepoInfo &info);

private:
    JobContext &m_context;

    bool mayWipe(const QString &path);
    bool prepareFolder(const QString &path, const AsideDirectory &aside);
    bool fill(const QString &path, const RepoInfo &info);
};
