// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/addjob.h"

#include "core/countof.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/jobs/packageadding.h"

int AddJob::run(const QStringList &files, const AddOptions &options)
{
    JobFrame frame(m_context, files.size() == 1 ? tr("Adding package") : tr("Adding packages"));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, tr("%n package(s) added: %1", nullptr, 0).arg(QString()));
    PackageAdding adding(m_context, options, files.size() == 1);
    if (adding.addFiles(files, &frame) == CANCEL)
        return frame.finish(CANCEL,
                            tr("Operation stopped. %1 of %n package(s) added: %2", nullptr, countOf(files))
                                .arg(QString::number(adding.addedCount()), adding.addedNames()));
    return frame.finish(SUCCESS,
                        tr("%n package(s) added: %1", nullptr, adding.addedCount()).arg(adding.addedNames()));
}
