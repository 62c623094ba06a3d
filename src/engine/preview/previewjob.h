// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "engine/installability/checkscope.h"
#include "engine/preview/changepreview.h"
#include "engine/preview/inclusionpreview.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

struct JobContext;
class JobFrame;
class UpgradeSources;

/** Finds out what a job would do. It reads the repository and what the job would read, and changes nothing. */
class PreviewJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(PreviewJob)
public:
    using Publish = std::function<void(const ChangePreview &preview)>;

    /** `publish` gets the rows, and later the effect too. */
    PreviewJob(JobContext &context, UpgradeSources &sources, Publish publish);

    int run(const PreviewRequest &request);
    /** Finds the effect of a preview whose rows were switched. */
    int update(const ChangePreview &preview);

private:
    JobContext &m_context;
    UpgradeSources &m_sources;
    Publish m_publish;
    std::shared_ptr<PreviewSource> m_source;

    bool isStopped() const;
    /** The request with the files of a copy. */
    PreviewRequest planned(const PreviewRequest &request) const;
    /** Takes over what another program has changed; false, after an error, when the repository cannot be read. */
    bool readRepository();
    /** Sets the rows, and what the kind of the job adds to the effect. */
    ErrorCode findRows(const PreviewRequest &request, ChangePreview *preview, JobFrame *frame);
    ErrorCode addFileRows(const PreviewRequest &request,
                          const QStringList &files,
                          ChangePreview *preview,
                          JobFrame *frame);
    ErrorCode addImportRows(const PreviewRequest &request, ChangePreview *preview, JobFrame *frame);
    ErrorCode addFetchRows(const PreviewRequest &request, ChangePreview *preview);
    ErrorCode addUpgradeRows(const PreviewRequest &request, ChangePreview *preview);
    ErrorCode addReturnRows(const PreviewRequest &request, ChangePreview *preview, JobFrame *frame);
    ErrorCode addDescriptionRows(const PreviewRequest &request, ChangePreview *preview);
    void addInclusionRows(const PreviewRequest &request,
                          const QVector<OfferedPackage> &offered,
                          ChangePreview *preview);
    /** What can be said of the rows without a search. */
    void fillEffect(ChangePreview *preview);
    /** The last step: searches for the effect and ends the job. */
    int finish(ChangePreview preview, JobFrame *frame);
};
