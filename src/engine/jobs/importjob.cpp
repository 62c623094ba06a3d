// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/importjob.h"

#include "engine/archive/archivecontents.h"
#include "engine/archive/archiveutils.h"
#include "engine/archive/packageextractor.h"
#include "engine/archive/unpackplace.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/jobs/packageadding.h"
#include "files/regularfile.h"
#include "files/scratchfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QScopeGuard>

#include <numeric>

namespace
{
qint64 sizeOf(const QStringList &files)
{
    return std::accumulate(files.cbegin(), files.cend(), qint64(0), [](qint64 size, const QString &file) {
        return size + QFileInfo(file).size();
    });
}
} // namespace

int ImportJob::run(const QString &source, const AddOptions &options)
{
    JobFrame frame(m_context, tr("Start repo import"));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, tr("Import error!"));
    const auto cleanUp = qScopeGuard([this] { m_folder.reset(); });
    Collection collection;
    const ErrorCode collected = collect(source, &collection);
    if (m_context.control.isCanceled() || collected == CANCEL)
        return frame.finish(CANCEL, tr("Package(s) not imported"));
    if (collected != SUCCESS)
        return frame.finish(ERROR, tr("Import error!"));
    return add(collection, options, &frame);
}

int ImportJob::runCollected(const Collection &collection, const AddOptions &options)
{
    JobFrame frame(m_context, tr("Start repo import"));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, tr("Import error!"));
    return add(collection, options, &frame);
}

int ImportJob::add(const Collection &collection, const AddOptions &options, JobFrame *frame)
{
    if (collection.files.isEmpty())
        return frame->finish(ERROR, tr("Import failed: there are no packages by selected path"));
    constexpr bool WithoutCheck = false;
    PackageAdding adding(m_context, options, collection.files.size() == 1, WithoutCheck);
    adding.setShownNames(collection.members);
    QHash<QString, QString> origins = collection.members;
    for (QString &origin : origins)
        origin.prepend(collection.folder + QLatin1Char('/'));
    adding.setOrigins(origins);
    if (adding.addFiles(collection.files, frame) == CANCEL) {
        if (adding.addedCount() > 0)
            Q_EMIT m_context.listener.noted(
                tr("%n package(s) had been imported before the stop.", nullptr, adding.addedCount()));
        return frame->finish(CANCEL, tr("Package(s) not imported"));
    }
    return frame->finish(SUCCESS, tr("%n package(s) imported", nullptr, adding.addedCount()));
}

RepoEnums::ErrorCode ImportJob::collect(const QString &source, Collection *collection)
{
    const QFileInfo info(source);
    collection->folder = info.path();
    const QString refusal = info.isDir() ? QString() : RegularFile::refusal(source);
    if (!refusal.isEmpty()) {
        m_context.errors.critical(tr("Can't open archive for import!"), refusal);
        return ERROR;
    }
    if (!info.isDir())
        return unpackPackages(source, collection);
    if (!info.isReadable()) {
        m_context.errors.critical(tr("Can't open archive for import!"), source);
        return ERROR;
    }
    collection->files = ArchiveContents::packagesBelow(
        source, m_context.path(), [this] { return m_context.control.isCanceled(); });
    return SUCCESS;
}

RepoEnums::ErrorCode ImportJob::unpackPackages(const QString &archive, Collection *collection)
{
    const auto stopped = [this] { return m_context.control.isCanceled(); };
    bool isMounting = true;
    ArchiveUtils mounted;
    QObject::connect(&mounted,
                     &ProcessUtils::error,
                     &mounted,
                     [this, &isMounting](const QString &text, const QString &details) {
                         // After a stop the mount fails on purpose.
                         if (!isMounting || !m_context.control.isCanceled())
                             m_context.errors.critical(text, details);
                     });
    mounted.setStopRequest(stopped);
    if (!mounted.mount(archive))
        return ERROR;
    isMounting = false;
    const QStringList listed = ArchiveContents::packagesBelow(mounted.mountPoint(), QString(), stopped);
    if (!makeFolder(sizeOf(listed)))
        return ERROR;
    // Opening a file below the mount point reads the archive from its start, so one pass reads all files.
    PackageExtractor extractor(m_folder->path(), stopped);
    extractor.setConsent(
        [this, &archive](qint64 unpacked, qint64 size) { return mayUnpack(archive, unpacked, size); });
    PackageExtractor::Result result = extractor.extract(archive);
    const bool isTar = result != PackageExtractor::Result::NoTar;
    if (!isTar)
        result = extractor.copy(listed);
    mounted.umount();
    if (result == PackageExtractor::Result::Damaged)
        m_context.errors.critical(tr("Can't open archive for import!"), extractor.error());
    // A mounted archive looks empty when its links cannot be followed.
    if (!isTar && listed.isEmpty() && !m_context.control.isCanceled())
        m_context.errors.critical(
            tr("Can't open archive for import!"),
            tr("No packages are to be read in %1. It holds none, is damaged, or has a link to a file "
               "that it lacks.")
                .arg(archive),
            WARNING);
    collection->files = extractor.files();
    const QString prefix = QFileInfo(archive).fileName() + QLatin1String(": ");
    collection->members = extractor.members();
    for (QString &member : collection->members)
        member = prefix + (isTar ? member : QDir(mounted.mountPoint()).relativeFilePath(member));
    const QStringList passedOver = extractor.passedOver();
    for (const QString &member : passedOver)
        Q_EMIT m_context.listener.noted(
            tr("Not added: %1. The archive has only a link or a folder of this name, and no file.")
                .arg(prefix + member));
    if (result == PackageExtractor::Result::Refused)
        return CANCEL;
    return result == PackageExtractor::Result::Done ? SUCCESS : ERROR;
}

bool ImportJob::makeFolder(qint64 needed)
{
    const auto candidates = UnpackPlace::candidates(m_context.path());
    const QString place = UnpackPlace::choose(candidates, needed);
    if (place.isEmpty()) {
        const QLocale locale;
        QStringList lines;
        for (const UnpackPlace::Candidate &candidate : candidates)
            lines << tr("%1: %2 free").arg(candidate.folder, locale.formattedDataSize(candidate.free));
        m_context.errors.critical(
            tr("Can't open archive for import!"),
            tr("There is too little room to unpack it: its packages need %1, and a part of what is "
               "free has to stay so.")
                    .arg(locale.formattedDataSize(needed))
                + QLatin1Char('\n') + lines.join(QLatin1Char('\n')));
        return false;
    }
    m_folder = std::make_unique<ScratchFolder>(place);
    if (m_folder->isValid())
        return true;
    m_context.errors.critical(tr("Can't open archive for import!"),
                              tr("No temporary folder could be made to unpack it in."));
    return false;
}

bool ImportJob::mayUnpack(const QString &archive, qint64 unpacked, qint64 size)
{
    const QLocale locale;
    return m_context.control.ask(
        tr("Start repo import"),
        tr("The archive %1 has %2, and its packages need more than %3. It may be damaged, or have "
           "been made to fill the disk. Do you want to go on with it?")
            .arg(archive, locale.formattedDataSize(size), locale.formattedDataSize(unpacked)),
        false);
}
