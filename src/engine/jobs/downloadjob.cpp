// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/downloadjob.h"

#include "apt/addedsources.h"
#include "apt/aptutils.h"
#include "apt/publiccandidates.h"
#include "core/countof.h"
#include "depends/dependsoffers.h"
#include "depends/dependsparser.h"
#include "depends/localcandidates.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/jobs/checkjob.h"
#include "engine/jobs/packageadding.h"
#include "files/scratchfolder.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QVector>

#include <algorithm>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** A folder for fetched files. When root runs apt, apt fetches as a user of its own, who can write only there. */
QString downloadFolder(const ScratchFolder &scratch)
{
    QString folder = scratch.filePath(QStringLiteral("download"));
    QDir().mkdir(folder);
    passwd user{};
    passwd *found = nullptr;
    QVector<char> buffer(4096);
    if (::geteuid() != 0
        || ::getpwnam_r("_apt", &user, buffer.data(), static_cast<size_t>(buffer.size()), &found) != 0
        || found == nullptr)
        return folder;
    // When this fails, apt fetches as root and says so in its output.
    constexpr mode_t PassableFolder = 0711;
    if (::chown(QFile::encodeName(folder).constData(), user.pw_uid, user.pw_gid) == 0)
        ::chmod(QFile::encodeName(scratch.path()).constData(), PassableFolder);
    return folder;
}

QString startText(int count)
{
    return count == 1 ? DownloadJob::tr("Downloading package") : DownloadJob::tr("Downloading packages");
}

/** Whether the package depends on one of these, or on a name that one provides, and its repository does not have it. */
bool lacks(const PackageInfo &package, const QVector<Dependency> &dependencies)
{
    if (!package.hasDependsInfo())
        return false;
    const auto isNamed = [&dependencies](const Dependency &named) {
        return std::any_of(
            dependencies.cbegin(), dependencies.cend(), [&named](const Dependency &dependency) {
                return dependency.name == named.name && dependency.architecture == named.architecture;
            });
    };
    const auto isWanted = [&isNamed](const Dependency &alternative) {
        return isNamed(alternative)
               || std::any_of(alternative.providers.cbegin(), alternative.providers.cend(), isNamed);
    };
    const auto &groups = package.dependsInfo->groups;
    return std::any_of(groups.cbegin(), groups.cend(), [&isWanted](const DependencyGroup &group) {
        const auto &choice = group.alternatives;
        return std::none_of(choice.cbegin(), choice.cend(), LocalCandidates::meets)
               && std::any_of(choice.cbegin(), choice.cend(), isWanted);
    });
}
} // namespace

int DownloadJob::download(const QList<PackageInfo> &packages, const QVector<Dependency> &dependencies)
{
    JobFrame frame(m_context, startText(countOf(packages)));
    return fetchAndAdd(packages, lacking(dependencies), &frame);
}

int DownloadJob::gather(const QList<PackageInfo> &packages,
                        const QList<PackageInfoPtr> &wanting,
                        const std::function<QString()> &atEnd)
{
    JobFrame frame(m_context, startText(countOf(packages)));
    return fetchAndAdd(packages, wanting, &frame, atEnd);
}

int DownloadJob::addDependencies(const QVector<Dependency> &dependencies)
{
    JobFrame frame(m_context, startText(countOf(dependencies)));
    const QList<PackageInfo> packages = packagesFor(dependencies);
    return fetchAndAdd(packages, lacking(dependencies), &frame);
}

QList<PackageInfo> DownloadJob::packagesFor(const QVector<Dependency> &dependencies)
{
    const AddedSources added = CheckJob(m_context).addedSources(ListsFetch::WhenNew);
    PublicCandidates apt(m_context.choices.acceptedOrigins(), added.environment());
    const DependsOffers offers
        = findOffers(dependencies, &apt, [this] { return m_context.control.isCanceled(); });
    QStringList missing;
    QStringList unknown;
    for (const Dependency &dependency : offers.missing) {
        if (apt.canAnswer({dependency.name, dependency.architecture}))
            missing.append(dependencyText(dependency));
        else if (!unknown.contains(dependency.architecture))
            unknown.append(dependency.architecture);
    }
    CheckJob(m_context).tellAptFailure(&apt);
    CheckJob(m_context).tellUnknownArchitectures(unknown);
    if (!missing.isEmpty() && !apt.failed() && !m_context.control.isCanceled())
        tellMissing(missing);
    return offers.packages;
}

QList<PackageInfoPtr> DownloadJob::lacking(const QVector<Dependency> &dependencies) const
{
    QList<PackageInfoPtr> wanting;
    if (dependencies.isEmpty())
        return wanting;
    const auto packages = m_context.packages.all();
    std::copy_if(packages.cbegin(), packages.cend(), std::back_inserter(wanting), [&](const auto &package) {
        return lacks(*package, dependencies);
    });
    return wanting;
}

void DownloadJob::tellMissing(const QStringList &missing)
{
    // A box has no room for hundreds of names, but its details have.
    constexpr int NamesShown = 5;
    QStringList names = missing.mid(0, NamesShown);
    const bool isShortened = missing.size() > NamesShown;
    if (isShortened)
        names << QString(QChar(0x2026));
    m_context.errors.critical(tr("No source offers: %1").arg(names.join(QLatin1String(", "))),
                              isShortened ? missing.join(QLatin1Char('\n')) : QString(),
                              WARNING);
}

int DownloadJob::fetchAndAdd(const QList<PackageInfo> &packages,
                             const QList<PackageInfoPtr> &wanting,
                             JobFrame *frame,
                             const std::function<QString()> &atEnd)
{
    // One run of apt takes a second to begin. A stop ends the run, and drops what it has fetched.
    constexpr int FilesPerRun = 6;
    if (!JobPreconditions::mayChange(m_context))
        return frame->finish(
            ERROR, tr("Added %n package(s) to local repo: %1", nullptr, 0).arg(QString()), DOWNLOAD_JOB);
    PackageAdding adding(m_context, m_options, packages.size() == 1);
    adding.setWanting(wanting);
    adding.offerExtension(packages);
    m_added = {m_context.choices.externalRepos(), m_context.repository.info().binaryArchitectures()};
    m_added.settle([this] { return m_context.control.isCanceled(); });
    bool stopped = m_context.control.isCanceled();
    for (int first = 0; first < packages.size() && !stopped && !adding.isDamaged(); first += FilesPerRun) {
        const QList<PackageInfo> block = packages.mid(first, FilesPerRun);
        const ScratchFolder together;
        const QStringList paths = fetchTogether(block, together);
        stopped = m_context.control.isCanceled();
        for (int i = 0; i < block.size() && !stopped; ++i) {
            const ScratchFolder folder;
            const PackageFile file
                = paths.value(i).isEmpty()
                      ? fetch(block.at(i), folder)
                      : PackageFile::read(paths.at(i), [this] { return m_context.control.isCanceled(); });
            stopped = m_context.control.isCanceled() && !file.package;
            if (stopped)
                break;
            const bool isLast = first + i + 1 == packages.size();
            if (file.path.isEmpty()) {
                m_context.errors.critical(
                    AptUtils::tr("Apt: download package %1 error").arg(block.at(i).name), file.reason);
            } else {
                adding.setShownNames({{file.path, QFileInfo(file.path).fileName()}});
                adding.setOrigins({{file.path, block.at(i).repository}});
                adding.addReadFile(file, isLast);
                QFile::remove(file.path);
            }
            frame->itemDone(countOf(packages));
            stopped = m_context.control.mustEnd() && !isLast;
        }
    }
    const bool stands = adding.finish();
    const QString added = adding.addedNames();
    const auto withEnd = [&](QString text) {
        if (!atEnd)
            return text;
        if (added.isEmpty())
            text.remove(QRegularExpression(QStringLiteral(":?\\s*\\z")));
        return QString(text + QLatin1String(". ") + atEnd());
    };
    if (stopped)
        return frame->finish(CANCEL,
                             withEnd(tr("Operation stopped. %1 of %n package(s) added to local repo: %2",
                                        nullptr,
                                        countOf(packages))
                                         .arg(QString::number(adding.addedCount()), added)),
                             DOWNLOAD_JOB);
    return frame->finish(
        stands ? SUCCESS : ERROR,
        withEnd(tr("Added %n package(s) to local repo: %1", nullptr, adding.addedCount()).arg(added)),
        DOWNLOAD_JOB);
}

QStringList DownloadJob::fetchTogether(const QList<PackageInfo> &packages, const ScratchFolder &folder) const
{
    // A single file gains nothing from this, and the plain way tells why it has not come.
    if (packages.size() < 2 || !folder.isValid())
        return {};
    QVector<QStringList> environments;
    QStringList paths;
    for (const PackageInfo &package : packages) {
        environments.append(m_added.environments(package.repository).first());
        paths.append(QString());
    }
    const QString target = downloadFolder(folder);
    for (int first = 0; first < packages.size(); ++first) {
        const QStringList environment = environments.at(first);
        if (environments.indexOf(environment) < first)
            continue;
        QVector<int> places;
        QVector<AptDownload> wanted;
        for (int i = first; i < packages.size(); ++i) {
            const PackageInfo &package = packages.at(i);
            if (environments.at(i) != environment)
                continue;
            places.append(i);
            wanted.append({package.name, package.version, package.architecture});
        }
        // Files of two sources can have the same name.
        const QString own = first == 0 ? target : target + QLatin1Char('/') + QString::number(first);
        if (!QDir().mkpath(own))
            continue;
        AptUtils apt;
        apt.setEnvironment(environment);
        apt.setStopRequest([this] { return m_context.control.isCanceled(); });
        const QStringList arrived = apt.downloadTogether(wanted, own);
        for (int i = 0; i < arrived.size(); ++i)
            paths[places.at(i)] = arrived.at(i);
    }
    return paths;
}

PackageFile DownloadJob::fetch(const PackageInfo &package, const ScratchFolder &folder) const
{
    if (!folder.isValid())
        return {{}, {}, tr("No temporary folder could be made to fetch it into.")};
    const auto stopped = [this] { return m_context.control.isCanceled(); };
    const QString target = downloadFolder(folder);
    QString reason;
    const auto environments = m_added.environments(package.repository);
    for (const QStringList &environment : environments) {
        AptUtils apt;
        apt.setEnvironment(environment);
        apt.setStopRequest(stopped);
        const QString file = apt.download(package.name, package.version, package.architecture, target);
        if (!file.isEmpty())
            return PackageFile::read(file, stopped);
        reason = apt.lastErrorDetails();
        if (stopped())
            break;
    }
    return {{}, {}, reason.isEmpty() ? tr("apt has left no file of that version.") : reason};
}
