// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/baseoffers.h"

#include "apt/addedsources.h"
#include "apt/aptlists.h"
#include "apt/aptutils.h"
#include "core/countof.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <utility>

namespace
{
struct BaseOffersText
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
};

QByteArray digestOfStamps(QList<QByteArray> stamps)
{
    std::sort(stamps.begin(), stamps.end());
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const QByteArray &stamp : std::as_const(stamps))
        hash.addData(QByteArray(stamp + '\n'));
    return hash.result().toHex();
}

/** A repository that is checked against itself is checked alone. */
bool isOtherRepository(const CheckScope &scope)
{
    return scope.base.kind == CompleteCheckBase::Repository
           && QFileInfo(scope.base.repository).canonicalFilePath()
                  != QFileInfo(scope.repository.path).canonicalFilePath();
}

bool accepts(const CheckScope &scope, const AptList &list)
{
    return !scope.acceptsOrigin || scope.acceptsOrigin(list.origin);
}

/** The lists of the sources that count. */
QVector<AptList>
acceptedLists(const CheckScope &scope, const AptLists &apt, const StopRequest &stopped, QString *problem)
{
    AddedSources added = scope.addedSources();
    added.settle(apt);
    const QVector<AptList> all = apt.lists() + added.lists(stopped, problem);
    QVector<AptList> lists;
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(lists), [&](const AptList &list) {
        return accepts(scope, list);
    });
    return lists;
}

QByteArray digestOfLists(const QVector<AptList> &lists)
{
    QList<QByteArray> stamps;
    for (const AptList &list : lists)
        stamps.append(list.stamp());
    return digestOfStamps(stamps);
}

/** Of the indices of a repository, and of its description, by which some of them count. */
QByteArray digestOfRepository(const QString &path, const RepoInfo &info)
{
    QList<QByteArray> stamps{(info.codename + info.architectures + info.components).toUtf8()};
    const QString folder = QStringLiteral("%1/dists/%2").arg(path, info.codename);
    QDirIterator walk(folder, {QStringLiteral("Packages")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QFileInfo file(walk.next());
        stamps.append(QStringLiteral("%1 %2 %3")
                          .arg(file.filePath())
                          .arg(file.size())
                          .arg(file.lastModified().toMSecsSinceEpoch())
                          .toUtf8());
    }
    return digestOfStamps(stamps);
}

BaseOffers readPublic(const CheckScope &scope, const QStringList &architectures, const StopRequest &stopped)
{
    BaseOffers offers;
    AptLists apt;
    if (!apt.find(stopped)) {
        offers.problem = AptUtils::tr("Apt error");
        offers.problemDetails = apt.errorDetail();
        return offers;
    }
    const QVector<AptList> lists = acceptedLists(scope, apt, stopped, &offers.problemDetails);
    offers.digest = digestOfLists(lists);
    if (!offers.problemDetails.isEmpty())
        offers.problem = AptUtils::tr("Apt error");
    if (apt.lists().isEmpty() && lists.isEmpty()) {
        offers.problem = AptUtils::tr("Apt error");
        offers.problemDetails = AptUtils::noSourcesText();
    }
    for (const QString &architecture : architectures) {
        if (!apt.architectures().contains(architecture))
            offers.unknownArchitectures.append(architecture);
    }
    for (const AptList &list : lists) {
        if (stopped && stopped())
            break;
        // A list without an architecture, or for "all", counts on every system.
        if (!list.architecture.isEmpty() && list.architecture != QLatin1String("all")
            && !architectures.contains(list.architecture))
            continue;
        QString problem;
        offers.lists.append({list.origin, list.architecture, PackageType::Deb, list.read(&problem)});
        if (!problem.isEmpty()) {
            offers.problem = AptUtils::tr("Apt error");
            offers.problemDetails += problem + QLatin1Char('\n');
        }
    }
    return offers;
}

/** Whether the indices can be read. An index that cannot be read would seem to be empty. */
bool isReadable(const QString &path, const QString &codename)
{
    const QFileInfo folder(QStringLiteral("%1/dists/%2").arg(path, codename));
    if (!folder.isDir() || !folder.isReadable())
        return false;
    QDirIterator walk(folder.filePath(),
                      QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QFileInfo entry(walk.next());
        const bool isWanted = entry.isDir() || entry.fileName() == QLatin1String("Packages");
        if (isWanted && !(entry.isReadable() && (entry.isDir() || entry.isFile())))
            return false;
    }
    return true;
}

BaseOffers readRepository(const CheckScope &scope)
{
    BaseOffers offers;
    const QString path = scope.base.repository;
    const auto info = DistributionsFile(path).read();
    const auto listing = info && isReadable(path, info->codename) ? readListing(path, *info) : std::nullopt;
    if (!listing) {
        offers.problem = BaseOffersText::tr("The packages of the repository %1 could not be read.").arg(path);
        return offers;
    }
    offers.digest = digestOfRepository(path, *info);
    QHash<QString, int> lists;
    for (const PackageInfoPtr &package : *listing) {
        const QString key = package->architecture + QString::number(static_cast<int>(package->type));
        auto list = lists.find(key);
        if (list == lists.end()) {
            list = lists.insert(key, countOf(offers.lists));
            offers.lists.append({QString(), package->architecture, package->type, {}});
        }
        offers.lists[*list].packages.append(package->control);
    }
    return offers;
}
} // namespace

BaseOffers
BaseOffers::read(const CheckScope &scope, const QStringList &architectures, const StopRequest &stopped)
{
    if (isOfPublicSources(scope.base))
        return readPublic(scope, architectures, stopped);
    return isOtherRepository(scope) ? readRepository(scope) : BaseOffers();
}

QByteArray BaseOffers::digestOf(const CheckScope &scope, const StopRequest &stopped)
{
    if (isOfPublicSources(scope.base)) {
        AptLists apt;
        QString problem;
        return apt.find(stopped) ? digestOfLists(acceptedLists(scope, apt, stopped, &problem)) : QByteArray();
    }
    if (!isOtherRepository(scope))
        return {};
    const auto info = DistributionsFile(scope.base.repository).read();
    return info ? digestOfRepository(scope.base.repository, *info) : QByteArray();
}
