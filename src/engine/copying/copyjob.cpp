// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/copying/copyjob.h"

#include "core/countof.h"
#include "engine/archive/filechecksums.h"
#include "engine/changes/inclusionrules.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/jobs/packageadding.h"

#include <QFileInfo>

#include <algorithm>

QString CopyJob::startText(bool isSingle, bool moves)
{
    if (moves)
        return isSingle ? tr("Moving package") : tr("Moving packages");
    return isSingle ? tr("Copying package") : tr("Copying packages");
}

QString CopyJob::endText(bool moves, int count, const QString &names)
{
    return (moves ? tr("%n package(s) moved: %1", nullptr, count)
                  : tr("%n package(s) copied: %1", nullptr, count))
        .arg(names);
}

QString CopyJob::thereText(const QStringList &files)
{
    QStringList names;
    for (const QString &file : files)
        names.append(QFileInfo(file).fileName());
    return names.isEmpty() ? QString()
                           : QLatin1Char(' ') + tr("Already there: %1").arg(names.join(QLatin1String(", ")));
}

bool CopyJob::areMoving(const AddOptions &options)
{
    const auto &files = options.copied->files;
    return std::any_of(
        files.cbegin(), files.cend(), [](const auto &file) { return !file.leaving.isEmpty(); });
}

int CopyJob::run(const CopySource &source, const AddOptions &options)
{
    JobFrame frame(m_context, startText(source.packages.size() == 1, source.moves));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, endText(source.moves, 0, QString()));
    const CopyPlan plan = CopyPlan::of(source, options.component, m_context.packages.all(), [this] {
        return m_context.control.isCanceled();
    });
    const QStringList same = presentAlready(plan);
    QStringList files;
    for (const QString &file : plan.files)
        if (!same.contains(file))
            files.append(file);
    AddOptions planned;
    planned.copied = plan.copied;
    return add(files, same, planned, &frame);
}

int CopyJob::runPlanned(const QStringList &files, const AddOptions &options)
{
    JobFrame frame(m_context, startText(files.size() == 1, areMoving(options)));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, endText(areMoving(options), 0, QString()));
    return add(files, {}, options, &frame);
}

int CopyJob::add(const QStringList &files,
                 const QStringList &same,
                 const AddOptions &options,
                 JobFrame *frame)
{
    const bool moves = areMoving(options);
    PackageAdding adding(m_context, options, files.size() == 1);
    if (!m_context.control.mustEnd()) {
        for (const QString &file : same)
            adding.letLeave(file);
    }
    if (adding.addFiles(files, frame) != CANCEL)
        return frame->finish(SUCCESS,
                             endText(moves, adding.addedCount(), adding.addedNames()) + thereText(same));
    const QString text
        = moves ? tr("Operation stopped. %1 of %n package(s) moved: %2", nullptr, countOf(files))
                : tr("Operation stopped. %1 of %n package(s) copied: %2", nullptr, countOf(files));
    return frame->finish(CANCEL, text.arg(QString::number(adding.addedCount()), adding.addedNames()));
}

QStringList CopyJob::presentAlready(const CopyPlan &plan)
{
    QStringList same;
    for (const QString &path : plan.files) {
        if (m_context.control.isCanceled())
            break;
        if (isPresent(*plan.packages.value(path), path, plan.copied->files.value(path)))
            same.append(path);
    }
    return same;
}

bool CopyJob::isPresent(const PackageInfo &package, const QString &path, const CopiedFiles::File &file)
{
    PackageInfo offered = package;
    offered.architecture = package.ownArchitecture();
    const auto records = InclusionRules::records(
        offered, InclusionRules::Target::of(m_context.path(), m_context.repository.info(), file.component));
    QStringList files;
    for (const PackageInfo &record : records) {
        const PackageInfoPtr present = m_context.packages.find(PackageKey::of(record));
        if (!present || present->version != package.version)
            return false;
        files.append(present->filePath());
    }
    files.removeDuplicates();
    const QByteArray wanted = FileChecksums::of(path).sha256;
    return !files.isEmpty() && !wanted.isEmpty()
           && std::all_of(files.cbegin(), files.cend(), [&wanted](const QString &present) {
                  return FileChecksums::of(present).sha256 == wanted;
              });
}
