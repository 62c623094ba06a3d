// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <memory>

struct JobContext;
class JobFrame;
class ScratchFolder;

/** Adds the packages in an archive, or those below a folder. */
class ImportJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** The archive is unpacked into `folder`, which is empty again when the job ends. */
    ImportJob(JobContext &context, std::unique_ptr<ScratchFolder> &folder)
        : m_context(context)
        , m_folder(folder)
    { }

    /** The packages of an archive or a folder. */
    struct Collection
    {
        QStringList files;
        QHash<QString, QString> members; ///< names in the archive, by the paths of the unpacked files
        QString folder; ///< of the archive
    };

    /** `source` is an absolute path. */
    int run(const QString &source, const AddOptions &options);
    /** The same in two steps: the first one is part of another job, and leaves the folder as it is. */
    ErrorCode collect(const QString &source, Collection *collection);
    int runCollected(const Collection &collection, const AddOptions &options);

private:
    JobContext &m_context;
    std::unique_ptr<ScratchFolder> &m_folder;

    ErrorCode unpackPackages(const QString &archive, Collection *collection);
    int add(const Collection &collection, const AddOptions &options, JobFrame *frame);
    bool makeFolder(qint64 needed);
    bool mayUnpack(const QString &archive, qint64 unpacked, qint64 size);
};
