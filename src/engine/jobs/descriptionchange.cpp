// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/descriptionchange.h"

#include "core/countof.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/signaturerecord.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/vanishedindices.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"

#include <QSet>

#include <cstdlib>
#include <utility>

DescriptionChange::DescriptionChange(JobContext &context,
                                     ExportSession &session,
                                     RepoChange change,
                                     QByteArray text)
    : m_context(context)
    , m_change(std::move(change))
    , m_text(std::move(text))
    , m_session(session)
{ }

bool DescriptionChange::run()
{
    if (!write() || !takeOutVanished())
        return false;
    removeVanishedIndices(m_context.path(), m_change.before, m_change.after);
    if (!exportOrGiveUpSigning())
        return false;
    keepSignatures();
    return true;
}

bool DescriptionChange::extend()
{
    if (!write())
        return false;
    m_session.requireExport();
    keepSignatures();
    return true;
}

bool DescriptionChange::write()
{
    const QString path = m_context.path();
    const QList<PackageInfoPtr> packages = m_context.packages.all();
    const ProcessResult prepared = prepare(packages);
    m_details = prepared.errorOutput;
    m_context.repository.set(path, m_change.after);
    if (!prepared.succeeded())
        return false;
    if (const DistributionsFile file(path); !file.write(m_change.after)) {
        m_details = tr("Impossible to create file %1!").arg(file.fileName());
        return false;
    }
    m_context.gate.renew(path);
    return true;
}

void DescriptionChange::commit()
{
    // The engine's list is of the time before the change. Indices that are still owed may list nothing.
    const bool isOwed = m_session.owesIndices();
    m_session.commit(
        m_context.history.record(isOwed ? m_change.left(m_context.packages.all())
                                        : listPackages(m_context.path(), m_context.repository.info())));
}

ProcessResult DescriptionChange::prepare(const QList<PackageInfoPtr> &packages)
{
    ProcessResult result = m_session.keep();
    // The repository can have moved since its packages were listed.
    QStringList moving;
    for (const PackageInfoPtr &package : packages)
        if (!m_change.keepsPlace(*package))
            moving.append(m_context.path() + package->filePath().mid(package->root.size()));
    m_session.recordAtRisk(moving);
    // Without the field that asks for them, the tracks of the packages would make every later run fail. So would those
    // of a code name that vanishes.
    const QString tracking = QStringLiteral("Tracking");
    const QString text = QString::fromUtf8(m_text);
    if (result.succeeded()
        && (Distributions::losesField(text, m_change.after, tracking)
            || (m_change.isRenaming() && !Distributions::wholeValue(text, tracking).isEmpty())))
        result = m_session.dropTracks(m_change.before.codename);
    return result.succeeded() ? carryOver(packages) : result;
}

ProcessResult DescriptionChange::carryOver(const QList<PackageInfoPtr> &packages)
{
    const QByteArray bridge = m_change.bridge(m_text);
    const QString &from = m_change.before.codename;
    const QString &to = m_change.after.codename;
    ProcessResult result;
    result.started = true;
    if (m_change.isRenaming() && m_change.carries) {
        result = m_session.changeUnder(bridge, ReproCommand::copyAll(from, to));
        // The packages of the old name are dropped next, so the listings prove that the new name has them all.
        const auto listed = [&](const QString &codename) {
            if (result.succeeded())
                result = m_session.changeUnder(bridge, ReproCommand::listAllFiles(codename));
            const auto packagesThere = ReproListing::packages(result.output);
            return QSet<ReproListing::Package>(packagesThere.cbegin(), packagesThere.cend());
        };
        const QSet<ReproListing::Package> missing = listed(from) - listed(to);
        if (result.succeeded() && !missing.isEmpty()) {
            result.exitCode = EXIT_FAILURE;
            result.errorOutput
                = tr("%n package(s) did not arrive under the new code name.", nullptr, countOf(missing));
        }
    }
    for (const QString &architecture : m_change.floodedArchitectures(packages))
        if (result.succeeded())
            result = m_session.changeUnder(bridge, ReproCommand::flood(to, architecture));
    return result;
}

bool DescriptionChange::takeOutVanished()
{
    ProcessResult result = m_session.clearVanished(ExportSession::OnlyEmpty);
    const QStringList codenames{m_change.before.codename, m_change.after.codename};
    const QStringList components = m_change.before.componentList();
    const QStringList architectures = m_change.before.architectureList();
    QStringList unexplained;
    // Packages that were carried over are in their old and new places for a moment.
    const QStringList filled = ReproAnswer::vanishedParts(result.output + result.errorOutput);
    for (const QString &part : filled) {
        // CODENAME|COMPONENT|ARCHITECTURE, of .udeb files with u| in front
        const QStringList words
            = part.split(QLatin1Char('|')).mid(part.startsWith(QLatin1String("u|")) ? 1 : 0);
        if (!codenames.contains(words.value(0)) || !components.contains(words.value(1))
            || !architectures.contains(words.value(2)))
            unexplained << part;
    }
    if (!unexplained.isEmpty()) {
        m_details = tr("The repository holds packages in places that its description does not name: %1. The "
                       "change would delete them.")
                        .arg(unexplained.join(QLatin1String(", ")));
        return false;
    }
    if (result.succeeded())
        result = m_session.clearVanished(ExportSession::WithPackages);
    m_details = result.errorOutput;
    return result.succeeded();
}

bool DescriptionChange::exportOrGiveUpSigning()
{
    ProcessResult result = m_session.finish();
    m_details = result.errorOutput;
    if (!ReproAnswer::signingFailed(result.errorOutput)) {
        if (m_session.isDamaged() && m_details.isEmpty())
            m_details = m_session.trouble();
        // Any other failure leaves the new description in force, and the marker that indices are owed.
        return !m_session.isDamaged();
    }
    m_context.errors.critical(tr("Failed to sign repository!"), result.errorOutput, CRITICAL);
    const RepoInfo unsignedInfo = Distributions::unsignedInfo(m_change.after);
    m_context.repository.set(m_context.path(), unsignedInfo);
    if (const DistributionsFile file(m_context.path()); file.write(unsignedInfo))
        m_context.gate.renew(m_context.path());
    else
        m_context.errors.critical(tr("Impossible to create file %1!").arg(file.fileName()));
    result = m_session.finish();
    m_details = result.errorOutput;
    return result.succeeded();
}

void DescriptionChange::keepSignatures()
{
    const QList<PackageInfoPtr> left = m_change.left(m_context.packages.all());
    for (const PackageInfoPtr &package : left)
        if (package->isSigned() && !m_change.before.architectureList().contains(package->architecture))
            SignatureRecord::remember(&m_context, *package);
    SignatureRecord::forgetOthers(&m_context, left);
}
