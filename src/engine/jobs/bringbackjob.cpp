// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/bringbackjob.h"

#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/history/pointfiles.h"
#include "engine/jobs/packageadding.h"

int BringBackJob::run(int point, const PackageChange &change)
{
    JobFrame frame(m_context, tr("Bringing back package"));
    const QString name = change.before.file.section(QLatin1Char('/'), -1);
    const QString failed = tr("%1 was not brought back").arg(name.isEmpty() ? change.name : name);
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, failed);
    const QStringList files = filesOf(point, {change});
    if (files.isEmpty())
        return frame.finish(ERROR, failed);
    AddOptions options;
    options.component = change.component;
    PackageAdding adding(m_context, options, true);
    adding.replaceAll();
    const ErrorCode result = adding.addFiles(files, &frame);
    if (result == CANCEL || adding.addedCount() == 0)
        return frame.finish(result == CANCEL ? CANCEL : ERROR, failed);
    return frame.finish(SUCCESS, tr("%1 was brought back").arg(name));
}

QStringList BringBackJob::filesOf(int point, const QVector<PackageChange> &changes)
{
    const PointFiles kept(m_context.path());
    QStringList files;
    for (const PackageChange &change : changes) {
        const auto file = kept.fileOf(point, {change.before.file, change.before.sha256.toLatin1(), -1});
        if (!file) {
            m_context.errors.critical(
                tr("The file %1 is missing in the history, or has been changed.").arg(change.before.file));
            return {};
        }
        files.append(*file);
    }
    // A file can serve several architectures.
    files.removeDuplicates();
    return files;
}
