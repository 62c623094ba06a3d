// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packageremoval.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/signaturerecord.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"

#include <QMap>
#include <QVector>

#include <algorithm>
#include <utility>

void PackageRemoval::setPresent(const QVector<ReproListing::Package> &present)
{
    m_present.emplace();
    for (const ReproListing::Package &package : present)
        (*m_present)[package.name].append(
            {package.name, package.component, package.architecture, package.type()});
}

void PackageRemoval::removeTogether(const QList<PackageInfoPtr> &packages)
{
    // One run takes several names, and out of several architectures, when these are the same for all names.
    QMap<QString, Place> places;
    for (const PackageInfoPtr &package : packages) {
        const bool isInOne
            = !package->architecture.isEmpty() && package->architecture != QLatin1String("all");
        if (isInOne)
            places[arguments({package->name}, *package, {})].append(package);
    }
    QMap<QString, QVector<Place>> kinds;
    for (const Place &place : std::as_const(places))
        kinds[arguments({}, *place.first(), {})].append(place);
    QMap<QString, Run> runs;
    for (const QVector<Place> &kind : std::as_const(kinds)) {
        const QStringList all = architectures(kind);
        for (const Place &place : kind) {
            const QStringList own = isAllThere(place, all) ? all : architectures({place});
            Run &run = runs[arguments({}, *place.first(), own)];
            run.architectures = own;
            run.places.append(place);
        }
    }
    if (runs.size() > 1)
        m_session->startSilently();
    for (const Run &run : std::as_const(runs)) {
        if (!m_context.control.mustEnd() && !m_session->isDamaged() && !m_session->isRefused())
            removeInOneRun(run);
    }
}

bool PackageRemoval::isAllThere(const Place &place, const QStringList &architectures) const
{
    if (!m_present)
        return false;
    const PackageInfo &first = *place.first();
    const QVector<PackageKey> present = m_present->value(first.name);
    return std::all_of(present.cbegin(), present.cend(), [&](const PackageKey &key) {
        return key.component != first.indexComponent || !architectures.contains(key.architecture)
               || std::any_of(place.cbegin(), place.cend(), [&key](const PackageInfoPtr &package) {
                      return PackageKey::of(*package) == key;
                  });
    });
}

void PackageRemoval::removeInOneRun(const Run &run)
{
    QStringList names;
    QStringList files;
    for (const Place &place : run.places) {
        names.append(place.first()->name);
        for (const PackageInfoPtr &package : place)
            files.append(package->filePath());
    }
    m_session->recordAtRisk(files);
    const ProcessResult result
        = m_session->remove(arguments(names, *run.places.first().first(), run.architectures));
    // When the run fails, each package is tried alone. Removing a package that is out already is no error.
    if (!hasWorked(result) || ReproAnswer::databaseTroubled(result.errorOutput))
        return;
    if (ReproAnswer::nothingRemoved(result.errorOutput))
        m_session->requireExport();
    for (const Place &place : run.places)
        for (const PackageInfoPtr &package : place)
            m_gone.insert(PackageKey::of(*package));
}

bool PackageRemoval::remove(const PackageInfoPtr &package, bool makesRoom)
{
    if (!m_gone.remove(PackageKey::of(*package)) && !removeFromDatabase(*package, makesRoom))
        return false;
    if (const PackageInfoPtr listed = m_context.packages.take(PackageKey::of(*package))) {
        SignatureRecord::forget(&m_context, *listed);
        Q_EMIT m_context.listener.packageRemoved(listed);
    }
    return true;
}

const PackageType *PackageRemoval::kindToName(const PackageInfo &package) const
{
    PackageKey twin = PackageKey::of(package);
    twin.type = package.type == PackageType::Deb ? PackageType::Udeb : PackageType::Deb;
    return m_context.packages.find(twin) ? &package.type : nullptr;
}

QString PackageRemoval::arguments(const QStringList &names,
                                  const PackageInfo &package,
                                  const QStringList &architectures) const
{
    return ReproCommand::remove(m_context.repository.info().codename,
                                names,
                                package.indexComponent,
                                architectures.join(QLatin1Char('|')),
                                kindToName(package));
}

QStringList PackageRemoval::architectures(const QVector<Place> &places)
{
    QStringList architectures;
    for (const Place &place : places)
        for (const PackageInfoPtr &package : place)
            if (!architectures.contains(package->architecture))
                architectures.append(package->architecture);
    architectures.sort();
    return architectures;
}

bool PackageRemoval::hasWorked(const ProcessResult &result)
{
    // When only the indices could not be written, the packages have left the database nevertheless. The end of the job
    // tells of the indices.
    return result.succeeded() || ReproAnswer::indicesOutdated(result.errorOutput)
           || ReproAnswer::signingFailed(result.errorOutput);
}

bool PackageRemoval::removeFromDatabase(const PackageInfo &package, bool makesRoom)
{
    m_session->recordAtRisk({package.filePath()});
    const ProcessResult result
        = m_session->remove(arguments({package.name}, package, {package.architecture}), makesRoom);
    const bool removed
        = hasWorked(result)
          || ((result.crashed() || ReproAnswer::databaseTroubled(result.errorOutput)) && isGone(package));
    if (!removed && result.started && !result.crashed())
        m_context.errors.runFailed(tr("Error removing package %1!").arg(package.name), result.errorOutput);
    if (removed && ReproAnswer::nothingRemoved(result.errorOutput))
        m_session->requireExport();
    return removed;
}

bool PackageRemoval::isGone(const PackageInfo &package)
{
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listFiles(
        m_context.repository.info().codename, package.name, package.indexComponent, package.architecture));
    const QStringList files = ReproListing::files(listed.output);
    return listed.succeeded() && std::none_of(files.cbegin(), files.cend(), [&](const QString &file) {
               return m_context.path() + QLatin1Char('/') + file == package.filePath();
           });
}
