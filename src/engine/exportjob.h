// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/packagelist.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>

class JobContext;
class JobFrame;

/** Writes the repository, or the files of some of its packages, to an archive. */
class ExportJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** `target` is an absolute path. */
    ExportJob(JobContext &context, QString target);

    int exportRepo();
    int exportPackages(const QList<PackageInfoPtr> &packages, bool withDepends);

private:
    JobContext &m_context;
    const QString m_target;

    bool mayExport();
    int failed(JobFrame *frame, const QString &reason);
    QHash<PackageKey, QString> poolFiles(const QList<PackageInfoPtr> &packages);
};
