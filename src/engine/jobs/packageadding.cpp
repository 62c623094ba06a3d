// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/packageadding.h"

#include "core/countof.h"
#include "engine/archive/filechecksums.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/addedfile.h"
#include "engine/changes/batchinclusion.h"
#include "engine/changes/decidedplaces.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobsession.h"
#include "engine/changes/packageremoval.h"
#include "engine/changes/runsize.h"
#include "engine/history/repositoryhistory.h"
#include "engine/jobs/checkjob.h"
#include "engine/jobs/repositoryextending.h"
#include "engine/recovery/sessionend.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace
{
bool isCollision(RepoEnums::ErrorCode code)
{
    return code == RepoEnums::PACKAGE_EXISTS || code == RepoEnums::PACKAGE_EXISTS_NEW_VERSION
           || code == RepoEnums::PACKAGE_EXISTS_OLD_VERSION;
}
} // namespace

PackageAdding::PackageAdding(JobContext &context,
                             const AddOptions &options,
                             bool singlePackage,
                             bool checksDepends)
    : m_context(context)
    , m_options(options)
    , m_singlePackage(singlePackage)
    , m_checksDepends(checksDepends)
    , m_session(JobSession::begin(context))
    , m_inclusion(context, m_session, options)
    , m_batch(context, m_session, m_inclusion)
{ }

bool PackageAdding::mustEnd() const
{
    return m_context.control.mustEnd() || m_session.isRefused();
}

AddedFile PackageAdding::fileAt(const QString &path, bool isLast) const
{
    AddedFile file{path, m_shownNames.value(path, path), isLast};
    const auto origin = m_origins.constFind(path);
    if (m_options.copied)
        file.origin = m_options.copied->origin;
    else
        file.origin
            = origin == m_origins.cend() ? RepositoryHistory::originOf(m_context.path(), path) : *origin;
    file.signingKey = copiedFile(path).signingKey;
    return file;
}

RepoEnums::ErrorCode PackageAdding::replace(AddedFile *file, const PackageInfo &record)
{
    return m_inclusion.include(file, record, true);
}

void PackageAdding::replaceTogether(const QVector<BatchInclusion::Candidate> &files)
{
    const bool knowsArchitectures = target().isDescriptionRead;
    QVector<BatchInclusion::Candidate> shared;
    QSet<PackageKey> taken;
    for (const BatchInclusion::Candidate &file : files) {
        const bool isFree
            = std::none_of(file.records.cbegin(), file.records.cend(), [&taken](const PackageInfo &record) {
                  return taken.contains(PackageKey::of(record));
              });
        if (isFree && areAllPlaces(file.records, knowsArchitectures))
            shared.append(file);
        // Of several files for one place, also of those that go in alone, the later ones must not go in first.
        for (const PackageInfo &record : file.records)
            taken.insert(PackageKey::of(record));
    }
    m_batch.include(shared, true);
}

bool PackageAdding::areAllPlaces(const QVector<PackageInfo> &records, bool knowsArchitectures) const
{
    if (records.isEmpty())
        return false;
    QStringList architectures{records.first().ownArchitecture()};
    if (architectures.first() == QLatin1String("all")) {
        if (!knowsArchitectures)
            return false;
        architectures = m_context.repository.info().binaryArchitectures();
    }
    for (const PackageInfo &record : records) {
        if (record.indexComponent != records.first().indexComponent
            || !architectures.removeOne(record.architecture))
            return false;
    }
    return architectures.isEmpty();
}

RepoEnums::ErrorCode PackageAdding::addFiles(const QStringList &files, JobFrame *frame)
{
    // A stop waits for the end of a run. A job of a few files takes less than a second, so it has a run for each file.
    constexpr int ManyFiles = 50;
    RunSize size;
    if (files.size() > 1)
        m_session.startSilently();
    const bool isLarge = files.size() > ManyFiles && !m_inclusion.isSigning();
    PackageFile::Purpose purpose = PackageFile::ForRecord;
    if (m_options.copied)
        purpose = PackageFile::ForComparison;
    else if (isLarge && m_batch.readsForIndex())
        purpose = PackageFile::ForIndex;
    auto reader = std::make_unique<PackageFileReader>(
        files, RunSize::Largest, [this] { return m_context.control.isCanceled(); }, purpose);
    Course course{frame, countOf(files)};
    const bool mayGoOn = extend(m_options.extension);
    for (int taken = 0; mayGoOn && taken < files.size() && !course.isStopped;) {
        course.isStopped = mustEnd();
        if (course.isStopped)
            break;
        const bool together = isLarge && m_session.isSilent();
        QVector<PackageFile> read = reader->next(together ? size.packages() : 1);
        taken += countOf(read);
        refuseChanged(&read);
        letWait(&read);
        addRead(read, together ? &size : nullptr, &course);
    }
    reader.reset();
    addWaiting(isLarge, &course);
    finish();
    // A stop that came after the last file has stopped nothing.
    return !mayGoOn || (course.isComplete && course.done == files.size()) ? SUCCESS : CANCEL;
}

void PackageAdding::addRead(const QVector<PackageFile> &files, RunSize *shared, Course *course)
{
    bool isAskedFor = m_rules.mustAsk();
    if (shared != nullptr && !files.isEmpty()) {
        shared->start();
        includeTogether(files);
        shared->adapt();
    }
    for (int i = 0; i < files.size(); ++i) {
        const PackageFile &file = files.at(i);
        // The answer about the first collision can be for all: so the others can share a run too.
        if (shared != nullptr && isAskedFor && !m_rules.mustAsk())
            includeTogether(files.mid(i));
        isAskedFor = m_rules.mustAsk();
        ++course->done;
        // Files that are in already are reported, also after a stop.
        course->isStopped = course->isStopped || mustEnd();
        if (course->isStopped && !m_inclusion.isAhead(file.path)) {
            course->isComplete = false;
            continue;
        }
        addReadFile(file, course->done == course->files);
        course->frame->itemDone(course->files);
    }
}

RepositoryExtension PackageAdding::lackingFor(const QVector<PackageFile> &files) const
{
    RepositoryExtension lacking;
    InclusionRules::Target target = this->target();
    for (const PackageFile &file : files) {
        target.component = componentOf(file.path);
        if (file.package)
            lacking.unite(InclusionRules::lacking(*file.package, target));
    }
    return lacking;
}

void PackageAdding::letWait(QVector<PackageFile> *files)
{
    // What a preview has decided was decided for all files.
    if (m_options.decided || lackingFor(*files).isEmpty())
        return;
    const auto waiting = std::stable_partition(files->begin(), files->end(), [this](const PackageFile &file) {
        return lackingFor({file}).isEmpty();
    });
    std::move(waiting, files->end(), std::back_inserter(m_waiting));
    files->erase(waiting, files->end());
}

void PackageAdding::addWaiting(bool isLarge, Course *course)
{
    const QVector<PackageFile> files = std::exchange(m_waiting, {});
    if (files.isEmpty() || course->isStopped || mustEnd())
        return;
    const RepositoryExtension extension = lackingFor(files);
    if (isDamaged()
        || (RepositoryExtending(m_context, m_session).isWanted(extension, countOf(files))
            && !extend(extension))) {
        course->done += countOf(files);
        return;
    }
    RunSize size;
    for (int i = 0; i < files.size();) {
        const bool together = isLarge && m_session.isSilent();
        const QVector<PackageFile> next = files.mid(i, together ? size.packages() : 1);
        i += countOf(next);
        addRead(next, together ? &size : nullptr, course);
    }
}

void PackageAdding::offerExtension(const QList<PackageInfo> &packages)
{
    // What a preview has shown needs no question.
    if (m_options.decided) {
        extend(m_options.extension);
        return;
    }
    RepositoryExtension lacking;
    int files = 0;
    const InclusionRules::Target target = this->target();
    for (PackageInfo package : packages) {
        // The component of what has still to be fetched can be unknown.
        if (package.component.isEmpty())
            package.component = target.info.componentList().value(0);
        const RepositoryExtension extension = InclusionRules::lacking(package, target);
        files += extension.isEmpty() ? 0 : 1;
        lacking.unite(extension);
    }
    if (!lacking.isEmpty() && RepositoryExtending(m_context, m_session).isWanted(lacking, files))
        extend(lacking);
}

bool PackageAdding::extend(const RepositoryExtension &extension)
{
    if (extension.isEmpty())
        return true;
    const bool isSilent = m_session.isSilent();
    m_isGivenUp = !RepositoryExtending(m_context, m_session).run(extension);
    if (isSilent)
        m_session.startSilently();
    return !m_isGivenUp;
}

void PackageAdding::addReadFile(const PackageFile &read, bool isLast)
{
    if (isDamaged())
        return;
    AddedFile file = fileAt(read.path, isLast);
    Q_EMIT m_context.listener.fileBegun(file.shownName);
    InclusionRules::Target target = this->target();
    target.component = componentOf(read.path);
    auto records = read.package ? InclusionRules::records(*read.package, target) : QVector<PackageInfo>();
    QString reason = read.reason;
    if (read.package && records.isEmpty())
        reason = InclusionRules::architectureRefusal(*read.package, m_context.repository.info());
    if (m_options.decided && !records.isEmpty()) {
        records = m_options.decided->wanted(records, read.path);
        if (records.isEmpty() || !m_options.decided->isExpected(records, read.path)) {
            records.clear();
            reason = otherFileText();
        }
    }
    if (records.isEmpty())
        m_context.errors.critical(tr("Error adding package!"),
                                  file.shownName + QLatin1String(":\n") + file.shownText(reason));
    else if (addFile(&file, records) == SUCCESS)
        m_added.append(QFileInfo(read.path).fileName());
    letLeave(read.path);
    Q_EMIT m_context.listener.fileBegun({});
}

CopiedFiles::File PackageAdding::copiedFile(const QString &path) const
{
    return m_options.copied ? m_options.copied->files.value(path) : CopiedFiles::File();
}

QString PackageAdding::componentOf(const QString &path) const
{
    return m_options.copied ? copiedFile(path).component : m_options.component;
}

void PackageAdding::refuseChanged(QVector<PackageFile> *files) const
{
    for (PackageFile &file : *files) {
        const QByteArray expected = copiedFile(file.path).sha256;
        if (!file.package || expected.isEmpty() || file.checksums.sha256 == expected)
            continue;
        file.package.clear();
        file.reason = tr("It is not the file that its repository lists. Reload that repository.");
    }
}

void PackageAdding::letLeave(const QString &path)
{
    const CopiedFiles::File copied = copiedFile(path);
    // The user can have kept another package in the new place, for one of the architectures too.
    QHash<QString, bool> areIn;
    for (const PackageInfoPtr &package : copied.leaving) {
        PackageKey place = PackageKey::of(*package);
        place.component = copied.component;
        const PackageInfoPtr successor = m_context.packages.find(place);
        if (!successor || successor->version != package->version)
            continue;
        const QString file = successor->filePath();
        if (!areIn.contains(file)) {
            const QByteArray wanted
                = copied.sha256.isEmpty() ? FileChecksums::of(path).sha256 : copied.sha256;
            areIn.insert(file, !wanted.isEmpty() && FileChecksums::of(file).sha256 == wanted);
        }
        if (areIn.value(file))
            m_leaving.append(package);
    }
}

void PackageAdding::removeLeaving()
{
    if (m_leaving.isEmpty() || isDamaged() || m_session.isRefused())
        return;
    PackageRemoval removal(m_context, &m_session);
    removal.removeTogether(m_leaving);
    for (const PackageInfoPtr &package : std::as_const(m_leaving))
        if (!isDamaged())
            removal.remove(package);
}

bool PackageAdding::finish()
{
    removeLeaving();
    const bool stands = SessionEnd::end(m_context, &m_session);
    if (!stands) {
        m_added.clear();
        m_inclusion.forgetIncluded();
    }
    const QList<PackageInfoPtr> included = m_inclusion.included();
    QList<PackageInfoPtr> unchecked;
    if (m_context.choices.checksDependsOnAdd() && m_checksDepends)
        unchecked = included;
    if (!included.isEmpty())
        unchecked += m_wanting;
    if (!m_context.control.isClosing() && !unchecked.isEmpty()) {
        // A stop was for the adding. What went in is checked until the next stop.
        m_context.control.goOn();
        CheckJob(m_context).checkPresent(unchecked);
    }
    Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    return stands;
}

void PackageAdding::includeTogether(const QVector<PackageFile> &files)
{
    QVector<BatchInclusion::Candidate> candidates;
    // In a description that is not read fully there may be more architectures, and a run for several files takes all.
    InclusionRules::Target target = this->target();
    for (const PackageFile &file : files) {
        const bool isForUnknown
            = file.package && file.package->architecture == QLatin1String("all") && !target.isDescriptionRead;
        if (isForUnknown || m_inclusion.isAhead(file.path))
            continue;
        target.component = componentOf(file.path);
        const auto records
            = file.package ? InclusionRules::records(*file.package, target) : QVector<PackageInfo>();
        // A shared run puts a file into all of its places.
        if (!m_options.decided || m_options.decided->wanted(records, file.path).size() == records.size())
            candidates.append({file.path, records, file.control, file.checksums});
    }
    const bool replacesOlder
        = m_options.decided || (!m_rules.mustAsk() && m_rules.replaces(PACKAGE_EXISTS_OLD_VERSION));
    m_batch.include(candidates, replacesOlder);
}

InclusionRules::Target PackageAdding::target() const
{
    return InclusionRules::Target::of(m_context.path(), m_context.repository.info(), m_options.component);
}

RepoEnums::ErrorCode PackageAdding::addFile(AddedFile *file, QVector<PackageInfo> records)
{
    ErrorCode result = ERROR;
    // The old file leaves the places that have it before another file of its name comes into further ones.
    if (m_options.decided)
        std::stable_partition(records.begin(), records.end(), [this](const PackageInfo &record) {
            const PackageInfoPtr present = m_context.packages.find(PackageKey::of(record));
            return present && present->filePath() == record.filePath();
        });
    // A file that serves several architectures is replaced in all of them or in none.
    QHash<QString, bool> answers;
    for (int i = 0; i < records.size(); ++i) {
        const PackageInfo &record = records.at(i);
        result = m_inclusion.include(file, record, m_options.decided != nullptr);
        if (isCollision(result)) {
            const PresentFile present = presentFile(records.mid(i));
            const QString key = present.package->filePath();
            if (!answers.contains(key)) {
                answers.insert(key, mustReplace(result, *file, record.version, present));
                if (!answers.value(key))
                    Q_EMIT m_context.listener.noted(keptText(result, file->shownName, present));
            }
            if (answers.value(key))
                result = m_inclusion.include(file, record, true);
        }
        if (result == PACKAGE_GPGERROR)
            askToKeepUnsigned(*file, record);
    }
    return result;
}

PackageAdding::PresentFile PackageAdding::presentFile(const QVector<PackageInfo> &records) const
{
    PresentFile present{m_context.packages.find(PackageKey::of(records.first())), {}, true};
    for (const PackageInfo &record : records) {
        const PackageInfoPtr other = m_context.packages.find(PackageKey::of(record));
        if (other && other->filePath() == present.package->filePath())
            present.architectures.append(record.architecture);
        else if (other)
            present.isAll = false;
    }
    return present;
}

QString PackageAdding::otherFileText()
{
    return tr("It is not the package that the preview showed, so it was not added.");
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
    const bool remove = m_context.control.ask(tr("Package is unsigned"),
                                              tr("Package is added, but unsigned. Do you want to remove it?"),
                                              false,
                                              QuestionKind::GiveUp);
    if (remove
        && PackageRemoval(m_context, &m_session).remove(m_context.packages.find(PackageKey::of(record))))
        Q_EMIT m_context.listener.noted(
            tr("Not added: %1. The repository could not be signed with it.").arg(file.shownName));
    else
        Q_EMIT m_context.listener.noted(
            tr("Added, but the repository could not be signed: %1.").arg(file.shownName));
}

bool PackageAdding::mustReplace(ErrorCode collision,
                                const AddedFile &file,
                                const QString &version,
                                const PresentFile &present)
{
    if (m_rules.mustAsk()) {
        // Without an answer, because the program closes or nobody is there to ask, the repository keeps what it has.
        m_rules.value = PackageReplacementRules::KeepThis;
        // A user who has just ended the job is not asked.
        if (!m_context.control.isCanceled())
            m_context.control.askForReplacement({QFileInfo(file.path).fileName(),
                                                 version,
                                                 file.isLast && present.isAll,
                                                 present.architectures},
                                                collision,
                                                &m_rules,
                                                present.package,
                                                m_singlePackage);
    }
    return m_rules.replaces(collision);
}
