// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/control/jobchoices.h"
#include "engine/control/jobcontrol.h"
#include "engine/control/joberrors.h"
#include "engine/control/jobprogress.h"
#include "engine/control/jobsignals.h"
#include "engine/history/jobhistory.h"
#include "engine/repository/openrepository.h"
#include "engine/repository/packagelist.h"
#include "engine/repository/repositorygate.h"
#include "engine/reprepro/joblock.h"
#include "engine/reprepro/reprepro.h"

/** What the jobs of one engine work with. For the running job's thread, unless a member's class says "any thread". */
struct JobContext
{
    /** `engineSignals` outlives the context. */
    explicit JobContext(JobSignals &engineSignals);

    JobSignals &listener; ///< what a job tells beside errors and progress: emit the signals
    OpenRepository repository;
    PackageList packages;
    JobControl control;
    JobErrors errors;
    JobProgress progress;
    JobChoices choices;
    RepositoryGate gate;
    Reprepro reprepro;
    JobLock lock; ///< of the running job
    JobHistory history; ///< what the record of the running job needs

    QString path() const { return repository.path(); } ///< any thread
};
