// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packageadding.h"

#include "engine/archive/packagefile.h"
#include "engine/changes/batchinclusion.h"
#include "engine/changes/checkjob.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/packageinclusion.h"
#include "engine/changes/packageremoval.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/reprepro/repreprocommands.h"

#include <QFileInfo>

#include <memory>

namespace
{
bool isCollision(RepoEnums::ErrorCode code)
{
    return code == RepoEnums::PACKAGE_EXISTS || code == RepoEnums::PACKAGE_EXISTS_NEW_VERSION
           || code == RepoEnums::PACKAGE_EXISTS_OLD_VERSION;
}

bool isDescriptionRead(const QString &repoPath)
{
    const auto bytes = DistributionsFile(repoPath).readBytes();
    return bytes && Distributions::unreadLine(QString::fromUtf8(*bytes)).isEmpty();
}
} // namespace

PackageAdding::PackageAdding(JobContext &context,
                             const AddOptions &options,
                             bool singlePackage,
                             bool checksDepends)
    : m_context(context)
    , m_run{options, singlePackage, context.makeSession(), checksDepends}
{ }

RepoEnums::ErrorCode PackageAdding::addFiles(const QStringList &files, JobFrame *frame)
{
    // A stop waits for the end of a run, so what takes no second is added file by file.
    constexpr int ManyFiles = 50;
    constexpr int FilesTogether = 25;
    auto reader = std::make_unique<PackageFileReader>(
        files, 2 * FilesTogether, [this] { return m_context.isCanceled(); });
    bool stopped = false;
    bool isComplete = true;
    int done = 0;
    while (done < files.size() && !stopped) {
        stopped = m_context.mustEnd() || m_run.session.isRefused();
        if (stopped)
            break;
        const bool together = files.size() > ManyFiles && BatchInclusion::isPossible(m_run);
        const QVector<PackageFile> read = reader->next(together ? FilesTogether : 1);
        if (together)
            includeTogether(read);
        for (const PackageFile &file : read) {
            ++done;
            // What has gone in already is told of, also after a stop.
            stopped = stopped || m_context.mustEnd() || m_run.session.isRefused();
            if (stopped && !m_run.ahead.contains(file.path)) {
                isComplete = false;
                continue;
            }
            addReadFile(file, done == files.size());
            frame->itemDone(files.size());
        }
    }
    reader.reset();
    finish();
    // A stop that came when everything was in has stopped nothing.
    return isComplete && done == files.size() ? SUCCESS : CANCEL;
}

void PackageAdding::addReadFile(const PackageFile &read, bool isLast)
{
    if (m_run.session.isDamaged())
        return;
    AddedFile file{m_run, read.path, isLast};
    const auto records = read.package ? recordsOf(*read.package) : QVector<PackageInfo>();
    QString reason = read.reason;
    if (read.package && records.isEmpty())
        reason = tr("The package is for the architecture %1, and the repository has these: %2.")
                     .arg(read.package->architecture,
                          m_context.repoInfo().binaryArchitectures().join(QLatin1String(", ")));
    if (records.isEmpty())
        m_context.critical(tr("Error adding package!"),
                           file.shownName() + QLatin1String(":\n") + file.shownText(reason));
    else if (addFile(&file, records) == SUCCESS)
        m_run.added.append(QFileInfo(read.path).fileName());
}

bool PackageAdding::finish()
{
    const bool stands = m_context.finishSession(&m_run.session);
    if (!stands) {
        m_run.added.clear();
        m_run.records.clear();
    }
    m_run.backups.clear();
    QList<PackageInfoPtr> unchecked;
    if (m_context.checksDependsOnAdd() && m_run.checksDepends)
        unchecked = m_run.records;
    if (!m_run.records.isEmpty())
        unchecked += m_run.wanting;
    if (!m_context.isClosing() && !unchecked.isEmpty()) {
        // A stop was for the adding; what went in is checked until the next one.
        m_context.goOn();
        CheckJob(m_context).checkPresent(unchecked);
    }
    m_context.savePackages();
    return stands;
}

void PackageAdding::includeTogether(const QVector<PackageFile> &files)
{
    QVector<BatchInclusion::Candidate> candidates;
    for (const PackageFile &file : files) {
        const QVector<PackageInfo> records = file.package ? recordsOf(*file.package) : QVector<PackageInfo>();
        for (const PackageInfo &record : records)
            candidates.append({file.path, record});
    }
    BatchInclusion(m_context, m_run).include(candidates);
}

QVector<PackageInfo> PackageAdding::recordsOf(const PackageInfo &package) const
{
    QStringList architectures = m_context.repoInfo().binaryArchitectures();
    if (package.architecture != QLatin1String("all")) {
        const bool isThere = architectures.contains(package.architecture);
        architectures.clear();
        // What the description says in ways that are not read here, reprepro knows.
        if (isThere || !isDescriptionRead(m_context.path()))
            architectures.append(package.architecture);
    }
    QVector<PackageInfo> records;
    for (const QString &architecture : qAsConst(architectures)) {
        PackageInfo record = package;
        record.architecture = architecture;
        record.root = m_context.path();
        if (!m_run.options.component.isEmpty())
            record.component = m_run.options.component;
        record.indexComponent = record.component;
        record.poolFile = ReproCommand::poolFile(record, package.architecture);
        records.append(record);
    }
    return records;
}

RepoEnums::ErrorCode PackageAdding::addFile(AddedFile *file, const QVector<PackageInfo> &records)
{
    ErrorCode result = ERROR;
    // One file that serves several architectures is replaced in all of them or in none.
    QHash<QString, bool> answers;
    for (int i = 0; i < records.size(); ++i) {
        const PackageInfo &record = records.at(i);
        result = PackageInclusion(m_context).include(file, record, false);
        if (isCollision(result)) {
            const PresentFile present = presentFile(records.mid(i));
            const QString key = present.package->filePath();
            if (!answers.contains(key)) {
                m_context.setNewcomer({QFileInfo(file->path).fileName(),
                                       record.version,
                                       file->isLast && present.isAll,
                                       present.architectures});
                answers.insert(key, mustReplace(result, present.package));
                if (!answers.value(key))
                    m_context.noted(keptText(result, file->shownName(), present));
            }
            if (answers.value(key))
                result = PackageInclusion(m_context).include(file, record, true);
        }
        if (result == PACKAGE_GPGERROR)
            askToKeepUnsigned(*file, record);
    }
    return result;
}

PackageAdding::PresentFile PackageAdding::presentFile(const QVector<PackageInfo> &records) const
{
    PresentFile present{m_context.packages().find(PackageKey::of(records.first())), {}, true};
    for (const PackageInfo &record : records) {
        const PackageInfoPtr other = m_context.packages().find(PackageKey::of(record));
        if (other && other->filePath() == present.package->filePath())
            present.architectures.append(record.architecture);
        else if (other)
            present.isAll = false;
    }
    return present;
}

QString PackageAdding::keptText(ErrorCode collision, const QString &file, const PresentFile &present)
{
    QString text = tr("Not added: %1. The repository holds version %2 (%3) already, which was kept.");
    if (collision == PACKAGE_EXISTS_NEW_VERSION)
        text = tr("Not added: %1. The repository holds the newer version %2 (%3), which was kept.");
    else if (collision == PACKAGE_EXISTS_OLD_VERSION)
        text = tr("Not added: %1. The repository holds the older version %2 (%3), which was kept.");
    return text.arg(file, present.package->version, present.architectures.join(QLatin1String(", ")));
}

void PackageAdding::askToKeepUnsigned(const AddedFile &file, const PackageInfo &record)
{
    const bool remove = m_context.ask(
        tr("Package is unsigned"), tr("Package is added, but unsigned. Do you want to remove it?"), false);
    if (remove
        && PackageRemoval(m_context, &m_run.session)
               .remove(m_context.packages().find(PackageKey::of(record))))
        m_context.noted(
            tr("Not added: %1. The repository could not be signed with it.").arg(file.shownName()));
    else
        m_context.noted(tr("Added, but the repository could not be signed: %1.").arg(file.shownName()));
}

bool PackageAdding::mustReplace(ErrorCode collision, const PackageInfoPtr &package)
{
    PackageReplacementRules &rules = m_run.rules;
    if (rules.mustAsk()) {
        // No answer, because the program is closing or nobody is there to ask, keeps what is in the repository.
        rules.value = PackageReplacementRules::KeepThis;
        // Nor is anybody asked who has just ended the job.
        if (!m_context.isCanceled())
            m_context.askForReplacement(collision, &rules, package, m_run.singlePackage);
    }
    return rules.replaces(collision);
}
