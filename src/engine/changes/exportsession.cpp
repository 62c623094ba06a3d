// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/exportsession.h"

#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/privateconfig.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/freespace.h"
#include "files/openfolder.h"
#include "files/regularfile.h"

#include <QFile>
#include <QLocale>

#include <cstdlib>
#include <utility>

namespace
{
QString markerFile(const QString &repoPath)
{
    return repoPath + QLatin1String("/db/velt-admin-repo.export-owed");
}
} // namespace

ExportSession::ExportSession(const QString &repoPath, Tools tools)
    : m_repoPath(repoPath)
    , m_tools(std::move(tools))
    , m_exportOwed(isExportOwed(repoPath))
{ }

ExportSession::~ExportSession() = default;

void ExportSession::startSilently()
{
    if (!config().signs())
        beSilent();
}

ProcessResult ExportSession::modify(const QString &arguments)
{
    return change(arguments, m_silentConfig.get());
}

ProcessResult ExportSession::remove(const QString &arguments, bool makesRoom)
{
    if (!makesRoom) {
        ProcessResult result = change(arguments, m_silentConfig.get());
        // A run that could not write the indices has left the files that they name.
        m_removed = m_removed || m_silentConfig || m_exportOwed;
        return result;
    }
    if (!m_silentConfig && !config().keepsUnreferencedFiles())
        return change(arguments, nullptr);
    if (!m_deletingConfig)
        m_deletingConfig = std::make_unique<PrivateConfig>(config(), PrivateConfig::Delete);
    return change(arguments, m_deletingConfig->isValid() ? m_deletingConfig.get() : nullptr);
}

ProcessResult ExportSession::keep()
{
    if (const auto refusal = keepDatabase())
        return *refusal;
    // Asked now, because reprepro cannot list these files while the description is another one.
    const ProcessResult unused = run(ReproCommand::dumpUnreferenced());
    if (unused.succeeded())
        m_strangers = unused.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ProcessResult result;
    result.started = true;
    return result;
}

ProcessResult ExportSession::clearVanished(Vanished parts)
{
    return changeSilently(ReproCommand::clearVanished(parts == WithPackages));
}

ProcessResult ExportSession::dropTracks(const QString &codename)
{
    return changeSilently(ReproCommand::removeAllTracks(codename));
}

ProcessResult ExportSession::changeUnder(const QByteArray &description, const QString &arguments)
{
    ProcessResult result = changeSilently(arguments, description);
    m_silentConfig.reset();
    return result;
}

ProcessResult ExportSession::changeSilently(const QString &arguments, const QByteArray &description)
{
    // A new configuration each time, because the description may have changed.
    auto silent = std::make_unique<PrivateConfig>(config(), PrivateConfig::Keep, description);
    m_silentConfig = silent->isValid() ? std::move(silent) : nullptr;
    if (!m_silentConfig && !description.isEmpty()) {
        ProcessResult failed;
        failed.started = true;
        failed.exitCode = EXIT_FAILURE;
        failed.errorOutput = tr("No temporary folder could be made for the settings of reprepro.");
        return failed;
    }
    m_removed = true;
    return change(arguments, m_silentConfig.get());
}

void ExportSession::recordAtRisk(const QStringList &poolFiles)
{
    // A job that is refused writes no marker and does not touch the marker of another job.
    if (keepDatabase())
        return;
    const QString inside = m_repoPath + QLatin1Char('/');
    QByteArray lines;
    for (const QString &poolFile : poolFiles) {
        const QString file = poolFile.startsWith(inside) ? poolFile.mid(inside.size()) : QString();
        if (file.isEmpty() || m_atRisk.contains(file))
            continue;
        m_atRisk.insert(file);
        lines += file.toUtf8() + '\n';
    }
    RegularFile marker(markerFile(m_repoPath));
    if (!lines.isEmpty() && marker.open(QIODevice::Append))
        marker.write(lines);
}

void ExportSession::recordFreed(const QStringList &poolFiles)
{
    recordAtRisk(poolFiles);
    m_removed = m_removed || !poolFiles.isEmpty();
}

void ExportSession::requireExport()
{
    m_exportOwed = true;
    setMarker(m_repoPath);
}

bool ExportSession::dropUnreferencedFiles()
{
    if (config().keepsUnreferencedFiles())
        return false;
    // The indices are written first, because the old ones may still name the files.
    if (m_disturbed || (m_exportOwed && !writeIndices().succeeded()))
        return false;
    return dropUnused().succeeded();
}

ProcessResult ExportSession::dropUnused()
{
    m_removed = false;
    const QStringList left = filesLeft(m_repoPath);
    const QSet<QString> named(left.cbegin(), left.cend());
    const auto areOurs = [&](const QString &file) {
        return named.contains(file) || m_atRisk.contains(file)
               || (m_strangers && !m_strangers->contains(file));
    };
    return PoolFiles::dropUnused(m_repoPath, areOurs, [this](const QString &arguments) {
        return run(arguments, environmentForIndices());
    });
}

ProcessResult ExportSession::finish()
{
    ProcessResult result;
    result.started = true;
    if (m_trouble)
        return *m_trouble;
    // Without a change nothing is owed; another job may be at work.
    if (!m_isKept)
        return result;
    if (m_exportOwed)
        result = writeIndices();
    // On a full disk the room of the removed packages matters more than old indices that stay valid for a moment.
    if (m_exportOwed && m_removed && !m_disturbed && !config().keepsUnreferencedFiles()
        && ReproAnswer::diskFull(result.errorOutput) && dropUnused().succeeded())
        result = writeIndices();
    // When references could not be written, files that packages need look unused.
    if (m_disturbed)
        return result;
    // While the indices on the disk are old, clients may still fetch the files that they name.
    if (m_removed && !m_exportOwed && !config().keepsUnreferencedFiles())
        m_removed = dropUnused().crashed();
    if (!m_exportOwed && !m_removed)
        clearMarker(m_repoPath);
    return result;
}

bool ExportSession::isExportOwed(const QString &repoPath)
{
    return QFile::exists(markerFile(repoPath));
}

QStringList ExportSession::filesLeft(const QString &repoPath)
{
    constexpr qint64 LargestMarker = 256 << 20;
    const auto marker = OpenFolder::readFile(markerFile(repoPath), LargestMarker);
    if (!marker)
        return {};
    QStringList files = QString::fromUtf8(*marker).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    files.removeDuplicates();
    return files;
}

void ExportSession::clearMarker(const QString &repoPath)
{
    QFile::remove(markerFile(repoPath));
}

ProcessResult ExportSession::run(const QString &arguments, const QStringList &environment)
{
    if (m_trouble)
        return *m_trouble;
    ProcessResult result = m_tools.run(arguments, environment);
    if (ReproAnswer::databaseTroubled(result.errorOutput)) {
        m_disturbed = true;
        m_trouble = result;
        m_trouble->exitCode = EXIT_FAILURE; // that of a run which did not take place
        DatabaseCopy::condemn(m_repoPath);
    }
    return result;
}

std::optional<ProcessResult> ExportSession::keepDatabase()
{
    if (m_refusal || m_isKept)
        return m_refusal;
    if (DatabaseCopy::isLost(m_repoPath)) {
        refuse(tr("An earlier job was interrupted. Its copy of the database lay on another disk, and is not "
                  "there or belongs to another user. Look whether all packages are there."));
        return m_refusal;
    }
    if (!m_tools.lock()) {
        refuse(RepoLock::busyText(m_repoPath));
        return m_refusal;
    }
    // Only the copy is good, and the end of a job would delete it.
    if (DatabaseCopy::isCondemned(m_repoPath)) {
        refuse(tr("The database of the repository is damaged and could not be put back. Make room "
                  "on the disk, and open the repository again."));
        return m_refusal;
    }
    DatabaseCopy::Outcome outcome = copyDatabase();
    // Another program that works on the repository now and then can interfere twice, but hardly more often.
    for (int attempt = 0; attempt < 3 && outcome == DatabaseCopy::Outcome::Locked; ++attempt) {
        // A run finds out whether the lock is stale, waits for it, or asks the user to remove it.
        const ProcessResult result = run(ReproCommand::dumpUnreferenced());
        if (!result.started || ReproAnswer::databaseLocked(result.errorOutput))
            return result;
        outcome = copyDatabase();
    }
    m_isKept = outcome == DatabaseCopy::Outcome::Made;
    if (!m_isKept)
        refuse(noCopyText());
    return m_refusal;
}

DatabaseCopy::Outcome ExportSession::copyDatabase()
{
    using DatabaseCopy::Outcome;
    using DatabaseCopy::Place;
    if (!m_tools.mayCopyToMemory)
        return DatabaseCopy::make(m_repoPath);
    const Outcome outcome = DatabaseCopy::make(m_repoPath, Place::OtherDisk);
    const bool isFull
        = outcome == Outcome::Failed && freeSpace(m_repoPath) < DatabaseCopy::roomNeeded(m_repoPath);
    return isFull && m_tools.mayCopyToMemory() ? DatabaseCopy::make(m_repoPath, Place::Memory) : outcome;
}

QString ExportSession::noCopyText() const
{
    const qint64 needed = DatabaseCopy::roomNeeded(m_repoPath);
    const qint64 free = freeSpace(m_repoPath);
    if (free < 0 || free >= needed)
        return tr("The database of the repository could not be copied, so nothing was changed. "
                  "Is there room on the disk?");
    const QLocale locale;
    const QString text = tr("There is too little room on the disk of the repository for a copy of its "
                            "database, so nothing was changed. At least %1 must be free, and %2 are.")
                             .arg(locale.formattedDataSize(needed), locale.formattedDataSize(free));
    return m_tools.mayCopyToMemory ? text
                                   : text + QLatin1Char(' ') + tr("Packages can be removed all the same.");
}

QStringList ExportSession::environmentForIndices()
{
    // Asked each time: the job may have the repository signed from now on.
    const ConfigFolder config = this->config();
    if (config.signs() || config.runsProgramsForIndices())
        return {};
    if (!m_lean)
        m_lean.emplace();
    return m_lean->variables();
}

void ExportSession::refuse(const QString &reason)
{
    m_refusal.emplace();
    m_refusal->started = true;
    m_refusal->exitCode = EXIT_FAILURE;
    m_refusal->errorOutput = reason;
}

void ExportSession::beSilent()
{
    // Where the options say "never export", the administrator writes the indices himself.
    if (config().exportsNever())
        return;
    auto silent = std::make_unique<PrivateConfig>(config(), PrivateConfig::Keep);
    if (silent->isValid())
        m_silentConfig = std::move(silent);
}

ProcessResult ExportSession::change(const QString &arguments, PrivateConfig *config)
{
    if (const auto refusal = keepDatabase())
        return *refusal;
    setMarker(m_repoPath);
    ProcessResult result
        = config != nullptr ? run(arguments, config->environment()) : runWritingIndices(arguments);
    if (config != nullptr && ReproAnswer::signingFailed(result.errorOutput)) {
        // This run signs nothing, so it fails because its small environment lacks a variable.
        config->useWholeEnvironment();
        result = run(arguments, config->environment());
    }
    m_disturbed = m_disturbed || result.crashed();
    if (result.succeeded()) {
        if (config != nullptr) {
            m_exportOwed = true;
        } else if (!m_silentConfig) {
            beSilent();
        }
    } else if (result.crashed() || ReproAnswer::indicesOutdated(result.errorOutput)
               || ReproAnswer::signingFailed(result.errorOutput)) {
        m_exportOwed = true;
    }
    return result;
}

ProcessResult ExportSession::runWritingIndices(const QString &arguments)
{
    const QStringList environment = environmentForIndices();
    ProcessResult result = run(arguments, environment);
    const bool lacksIndices
        = ReproAnswer::signingFailed(result.errorOutput) || ReproAnswer::indicesOutdated(result.errorOutput);
    // The small environment may lack what the configuration asks for in a way that is not known here. The change itself
    // must not be tried twice.
    if (!environment.isEmpty() && lacksIndices && !m_trouble) {
        const ProcessResult whole = run(ReproCommand::exportIndices());
        if (whole.succeeded())
            return whole;
    }
    return result;
}

ProcessResult ExportSession::writeIndices()
{
    ProcessResult result = runWritingIndices(ReproCommand::exportIndices());
    m_exportOwed = !result.succeeded();
    return result;
}

void ExportSession::setMarker(const QString &repoPath)
{
    QFile marker(markerFile(repoPath));
    // When the folder cannot be written, the run fails, and its message is better than ours.
    if (!marker.exists())
        marker.open(QIODevice::WriteOnly);
}
