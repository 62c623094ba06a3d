// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/repositoryextension.h"

#include <QCoreApplication>

class ExportSession;
struct JobContext;

/** Gives the description of the open repository further architectures and components, in the middle of a job. */
class RepositoryExtending
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Both are those of the job, and outlive the object. */
    RepositoryExtending(JobContext &context, ExportSession &session)
        : m_context(context)
        , m_session(session)
    { }

    /** Whether the user wants it for this many files. He is not asked where the description must not be changed. */
    bool isWanted(const RepositoryExtension &extension, int files);
    /**
     * Changes the description, unless it has all of it. Architecture-independent packages come into the new
     * architectures. False after an error; when something was done already, the end of the job undoes all of it.
     */
    bool run(const RepositoryExtension &extension);

private:
    JobContext &m_context;
    ExportSession &m_session;
};
