// SPDX-License-Identifier: GPL-3.0-or-later
// What the engine's jobs would do, and the jobs that do what was shown.
#include "engine/changes/jobcontext.h"
#include "engine/installability/completecheckstate.h"
#include "engine/preview/applyjob.h"
#include "engine/preview/previewjob.h"
#include "engine/preview/previewrequest.h"
#include "engine/reposhell.h"
#include "engine/upgrade/upgradesources.h"

#include <QDir>

void RepoShell::setOnlyLooking(bool isOnlyLooking)
{
    m_context->choices.setOnlyLooking(isOnlyLooking);
}

void RepoShell::preview(const PreviewRequest &request)
{
    if (path().isEmpty())
        return;
    PreviewRequest complete = request;
    // What the job would take, with links resolved as the interface knows them.
    if (!complete.archive.isEmpty())
        complete.archive = QDir::cleanPath(QDir(complete.archive).absolutePath());
    const CompleteCheckRecord check = completeCheck();
    if (!complete.base && check.isValid())
        complete.base = check.base;
    startJob([this, complete] {
        return PreviewJob(*m_context,
                          *m_upgradeSources,
                          [this](const ChangePreview &preview) { Q_EMIT previewReady(preview); })
            .run(complete);
    });
}

void RepoShell::updatePreview(const ChangePreview &preview)
{
    if (!path().isEmpty() && preview.request)
        startJob([this, preview] {
            return PreviewJob(*m_context,
                              *m_upgradeSources,
                              [this](const ChangePreview &updated) { Q_EMIT previewReady(updated); })
                .update(preview);
        });
}

void RepoShell::apply(const ChangePreview &preview)
{
    if (!path().isEmpty())
        startJob([this, preview] {
            return ApplyJob(*m_context, *m_upgradeSources, [this] { Q_EMIT previewOutdated(); }).run(preview);
        });
}
