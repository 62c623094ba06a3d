// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"
#include "core/dependsinfo.h"
#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QList>
#include <QStringList>
#include <QVector>

#include <functional>

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

    /**
     * `packages` have a name, a version and an architecture. Packages that lack one of the dependencies are checked
     * again.
     */
    int download(const QList<PackageInfo> &packages, const QVector<Dependency> &dependencies = {});
    /**
     * Like download(), and checks the packages `wanting` again when something went in. `atEnd` is called when all is
     * done, and what it returns stands behind the last words of the job.
     */
    int gather(const QList<PackageInfo> &packages,
               const QList<PackageInfoPtr> &wanting,
               const std::function<QString()> &atEnd);
    /** The best package for each dependency. Tells of those that no source offers. */
    QList<PackageInfo> packagesFor(const QVector<Dependency> &dependencies);
    /** Takes the best package for each dependency, and checks the packages again that lacked it. */
    int addDependencies(const QVector<Dependency> &dependencies);

private:
    JobContext &m_context;
    const AddOptions &m_options;
    AddedSources m_added;

    QList<PackageInfoPtr> lacking(const QVector<Dependency> &dependencies) const;
    void tellMissing(const QStringList &missing);
    int fetchAndAdd(const QList<PackageInfo> &packages,
                    const QList<PackageInfoPtr> &wanting,
                    JobFrame *frame,
                    const std::function<QString()> &atEnd = {});
    /** Fetches the files with one run of apt; those that have not come are empty. */
    QStringList fetchTogether(const QList<PackageInfo> &packages, const ScratchFolder &folder) const;
    PackageFile fetch(const PackageInfo &package, const ScratchFolder &folder) const;
};
