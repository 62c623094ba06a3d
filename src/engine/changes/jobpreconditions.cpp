// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobpreconditions.h"

#include "engine/changes/jobcontext.h"

#include <QFile>
#include <QFileInfo>

bool JobPreconditions::mayRun(JobContext &context)
{
    const Admission &admission = context.gate.admit(context.path());
    if (!admission.isGranted())
        context.errors.critical(
            tr("Nothing was done.") + QLatin1Char(' ') + admission.reason(), QString(), RepoEnums::WARNING);
    return admission.isGranted();
}

bool JobPreconditions::mayChange(JobContext &context)
{
    const QString path = context.path();
    if (!QFileInfo(path).isDir()) {
        context.errors.critical(
            tr("The directory %1 does not exist any more. Its disk may be absent.").arg(path));
        return false;
    }
    if (!mayRun(context))
        return false;
    const QString file = path + QLatin1String("/db/packages.db");
    if (context.packages.count() == 0 || QFile::exists(file))
        return true;
    context.errors.critical(
        tr("The database of the repository is missing. Any change would make a new one and take all "
           "packages out of the indices, so nothing was done."),
        file);
    return false;
}
