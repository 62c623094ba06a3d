// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <memory>

struct JobContext;
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

    /** `source` is an absolute path. */
    int run(const QString &source, const AddOptions &options);

private:
    JobContext &m_context;
    std::unique_ptr<ScratchFolder> &m_folder;
    QHash<QString, QString> m_members; ///< names in the archive, by the paths of the unpacked files

    ErrorCode collectPackages(const QString &source, QStringList *files);
    ErrorCode unpackPackages(const QString &archive, QStringList *files);
    bool makeFolder(qint64 needed);
    bool mayUnpack(const QString &archive, qint64 unpacked, qint64 size);
};
