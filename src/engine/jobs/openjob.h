// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>
#include <QString>

struct JobContext;

/** Opens a repository: brings it in order, reads its description and its packages. */
class OpenJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit OpenJob(JobContext &context)
        : m_context(context)
    { }

    /** `path` is an absolute path. */
    int run(const QString &path);
    /** Forgets the repository: the path and the list are empty then. */
    static void close(JobContext &context);

private:
    JobContext &m_context;

    bool readInfo(const QString &path);
    void readPackages(const QString &path, bool isRecovered);
    bool publishPackages();
};
