// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/completecheckjob.h"

#include "engine/changes/jobframe.h"

int CompleteCheckJob::run(const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base)
{
    Q_UNUSED(packages)
    Q_UNUSED(base)
    JobFrame frame(m_context, tr("Complete check"));
    return frame.finish(SUCCESS, tr("Complete check"), CHECK_DEPENDS_JOB);
}
