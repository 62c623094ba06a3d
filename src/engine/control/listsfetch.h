// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"
#include "apt/privateapt.h"

#include <QCoreApplication>

class JobControl;
class JobErrors;
class JobProgress;

/** Fetches lists of sources for the running job, which can be stopped meanwhile. For its thread. */
class ListsFetch
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** All outlive the object. */
    ListsFetch(const JobControl &control, JobErrors &errors, JobProgress &progress)
        : m_control(control)
        , m_errors(errors)
        , m_progress(progress)
    { }

    /** Shows the progress of PrivateApt::fetch() in a job that has not counted yet, and leaves its range unknown. */
    PrivateApt::Outcome fetch(PrivateApt &apt) const;

    enum When {
        WhenOld, ///< see PrivateApt::isDue()
        WhenNew, ///< only when nobody has tried yet: for jobs in which nobody expects to wait for a server
        Never
    };
    /**
     * Finds out what apt does not know, and fetches the lists when it is time. A source that cannot be reached gets a
     * warning, and what is known of it from earlier counts.
     */
    void refresh(AddedSources *sources, When when) const;

private:
    const JobControl &m_control;
    JobErrors &m_errors;
    JobProgress &m_progress;
};
