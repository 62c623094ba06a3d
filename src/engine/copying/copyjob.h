// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/changes/addoptions.h"
#include "engine/copying/copyplan.h"

#include <QCoreApplication>
#include <QStringList>

struct JobContext;
class JobFrame;

/** Adds packages of another repository to this one, or moves packages between the components of this one. */
class CopyJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit CopyJob(JobContext &context)
        : m_context(context)
    { }

    /** Only the component of the options counts: a copied file stays what it is, with its signature. */
    int run(const CopySource &source, const AddOptions &options);
    /** The same for a plan that was made before; `options` have what is known of the files. */
    int runPlanned(const QStringList &files, const AddOptions &options);

private:
    JobContext &m_context;

    int add(const QStringList &files, const QStringList &same, const AddOptions &options, JobFrame *frame);
    /** Those of the files that are in all of their places already, byte for byte. */
    QStringList presentAlready(const CopyPlan &plan);
    bool isPresent(const PackageInfo &package, const QString &path, const CopiedFiles::File &file);
    static bool areMoving(const AddOptions &options);
    static QString startText(bool isSingle, bool moves);
    static QString thereText(const QStringList &files);
    static QString endText(bool moves, int count, const QString &names);
};
