// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/changes/addoptions.h"
#include "engine/preview/changepreview.h"

#include <QCoreApplication>
#include <QStringList>

#include <functional>

struct JobContext;
class UpgradeSources;

/** Runs the job that a preview was made of, and lets it do what the rows say. */
class ApplyJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(ApplyJob)
public:
    /** `outdated` is called when the repository, or a file, is not that of the preview any more. */
    ApplyJob(JobContext &context, UpgradeSources &sources, std::function<void()> outdated);

    int run(const ChangePreview &preview);

private:
    JobContext &m_context;
    UpgradeSources &m_sources;
    std::function<void()> m_outdated;

    /** Ends a job that has done nothing. */
    int endWithout(int result, const QString &message);
    bool isCurrent(const ChangePreview &preview);
    int runJob(const ChangePreview &preview);
    static AddOptions optionsFor(const ChangePreview &preview);
    /** The files from which something goes in, in their order. */
    static QStringList filesOf(const ChangePreview &preview);
};
