// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/foreignchanges.h"

#include "engine/changes/jobcontext.h"
#include "engine/history/runningpoint.h"
#include "engine/recovery/databaseview.h"
#include "engine/repository/distributionsfile.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/repreprorunner.h"

#include <QFile>
#include <QSet>

#include <utility>

namespace
{
using Packages = QVector<ReproListing::Package>;

QString codenameOf(const JobContext &context)
{
    const auto info = DistributionsFile(context.path()).read();
    return info ? info->codename : context.repository.info().codename;
}

/** A crash is no surprise with a damaged database, so it is not told. */
ProcessResult run(JobContext &context, const QString &arguments)
{
    return runReproOn(context.gate.admit(context.path()), arguments);
}

QString listing(const JobContext &context, const QString &databaseFolder)
{
    return ReproCommand::listAllFilesIn(databaseFolder, codenameOf(context));
}

QSet<ReproListing::Package> toSet(const Packages &packages)
{
    return {packages.cbegin(), packages.cend()};
}

QByteArray lines(char mark, const Packages &packages)
{
    QByteArray text;
    for (const ReproListing::Package &package : packages)
        text += mark
                + QStringLiteral("%1 %2 %3 %4\n")
                      .arg(package.component, package.architecture, package.name, package.file)
                      .toUtf8();
    return text;
}

QString databaseOf(const JobContext &context)
{
    return context.path() + QLatin1String("/db");
}
} // namespace

std::optional<ForeignChanges> ForeignChanges::find(JobContext &context, const QStringList &filesOfJob)
{
    ForeignChanges changes;
    const QString path = context.path();
    if (RunningPoint::isCondemned(path))
        return std::nullopt;
    const auto list = [&context](const DatabaseView &view) {
        return view.isMade() ? run(context, listing(context, view.path())) : ProcessResult();
    };
    const ProcessResult earlier = list(DatabaseView(path, RunningPoint::folder(path)));
    if (!earlier.succeeded())
        return changes;
    const DatabaseView view(path, databaseOf(context));
    // No room for a look is no damage.
    if (!view.isMade())
        return changes;
    const ProcessResult now = list(view);
    if (!now.succeeded())
        return std::nullopt;
    const Packages before = ReproListing::packages(earlier.output);
    const Packages after = ReproListing::packages(now.output);
    const auto known = toSet(before);
    const QSet<QString> ours(filesOfJob.cbegin(), filesOfJob.cend());
    for (const ReproListing::Package &package : after)
        if (!known.contains(package) && !ours.contains(package.file))
            changes.m_added.append(package);
    const auto present = toSet(after);
    for (const ReproListing::Package &package : before)
        if (!present.contains(package) && !ours.contains(package.file))
            changes.m_removed.append(package);
    // A change of the description can move all packages to another code name.
    if (RunningPoint::changesDescription(path))
        changes.m_removed.clear();
    if (changes.m_removed.isEmpty())
        return changes;
    // A program that takes a package out takes its reference out too. Damage leaves the reference.
    const ProcessResult dumped = run(context, ReproCommand::dumpReferencesIn(view.path()));
    const QStringList references = ReproListing::files(dumped.output);
    const QSet<QString> referenced(references.cbegin(), references.cend());
    const QString codename = codenameOf(context);
    Packages removed;
    for (const ReproListing::Package &package : std::as_const(changes.m_removed))
        if (dumped.succeeded() && !referenced.contains(ReproListing::reference(codename, package)))
            removed.append(package);
    changes.m_removed = removed;
    return changes;
}

ForeignChanges ForeignChanges::fromText(const QByteArray &text)
{
    ForeignChanges changes;
    const QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        Packages &packages = line.startsWith(QLatin1Char('+')) ? changes.m_added : changes.m_removed;
        packages += ReproListing::packages(line.mid(1));
    }
    return changes;
}

QByteArray ForeignChanges::toText() const
{
    return lines('+', m_added) + lines('-', m_removed);
}

void ForeignChanges::redo(JobContext &context) const
{
    if (isEmpty())
        return;
    const auto present
        = toSet(ReproListing::packages(context.reprepro.run(listing(context, databaseOf(context))).output));
    const QString codename = codenameOf(context);
    // The indices are written once, after the last change.
    const QString silently = QStringLiteral("--export=silent-never --keepunreferencedfiles ");
    for (const ReproListing::Package &package : m_removed) {
        const PackageType type = package.type();
        if (present.contains(package))
            context.reprepro.run(
                silently
                + ReproCommand::remove(
                    codename, {package.name}, package.component, package.architecture, &type));
    }
    QStringList failed;
    for (const ReproListing::Package &package : m_added) {
        const QString file = context.path() + QLatin1Char('/') + package.file;
        if (present.contains(package) || !PoolFiles::isInside(context.path(), package.file)
            || !QFile::exists(file))
            continue;
        PackageInfo record;
        record.name = package.name;
        record.component = package.component;
        record.indexComponent = package.component;
        record.architecture = package.architecture;
        if (!context.reprepro.run(silently + ReproCommand::include(codename, record, {file})).succeeded())
            failed.append(package.file);
    }
    if (!failed.isEmpty())
        context.errors.critical(
            tr("Packages that another program has added after the interruption could not be taken in again. "
               "Their files are in the repository; add them once more."),
            failed.join(QLatin1Char('\n')),
            RepoEnums::WARNING);
}
