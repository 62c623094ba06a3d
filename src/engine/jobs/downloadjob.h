// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/dependsinfo.h"
#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QList>
#include <QVector>

struct JobContext;
class JobFrame;
class ScratchFolder;

/** Fetches packages from apt's sources and adds them. */
class DownloadJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** The options must outlive it. */
    DownloadJob(JobContext &context, const AddOptions &options)
        : m_context(context)
        , m_options(options)
    { }

    /** `packages` have a name, a version and an architecture. */
    int download(const QList<PackageInfo> &packages);
    /** Takes the best package for each dependency, and checks the packages again that lacked it. */
    int addDependencies(const QVector<Dependency> &dependencies);

private:
    JobContext &m_context;
    const AddOptions &m_options;

    void tellMissing(const QStringList &missing);
    int
    fetchAndAdd(const QList<PackageInfo> &packages, const QList<PackageInfoPtr> &wanting, JobFrame *frame);
    PackageFile fetch(const PackageInfo &package, const ScratchFolder &folder) const;
};
