// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/exportsession.h"

#include "engine/history/keptfiles.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/privateconfig.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/openfolder.h"
#include "files/regularfile.h"

#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <future>
#include <iterator>
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
    , m_point(repoPath, m_tools.point)
{ }

ExportSession::~ExportSession() = default;

void ExportSession::startSilently()
{
    if (!config().signs())
        beSilent();
}

ProcessResult ExportSession::modify(const QString &arguments)
{
    if (m_silentConfig || keepDatabase())
        return change(arguments, m_silentConfig.get());
    // This run deletes the files that it takes out. Where they cannot be kept as links, they stay until the commit.
    const bool areLinked = link(m_next);
    m_removed = m_removed || !areLinked;
    return change((areLinked ? QString() : ReproCommand::keepingUnreferenced()) + arguments, nullptr);
}

ProcessResult ExportSession::remove(const QString &arguments, bool makesRoom)
{
    if (!makesRoom) {
        ProcessResult result = modify(arguments);
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
        if (file.isEmpty())
            continue;
        m_next.append(file);
        if (m_atRisk.contains(file))
            continue;
        m_atRisk.insert(file);
        if (!QFile::exists(poolFile))
            m_own.insert(file);
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
    return dropUnused(Copy).succeeded();
}

ProcessResult ExportSession::dropUnused(Unused fate)
{
    m_removed = false;
    const QStringList left = filesLeft(m_repoPath);
    const QSet<QString> named(left.cbegin(), left.cend());
    PoolFiles::Dropping dropping;
    dropping.areOurs = [&](const QString &file) {
        return named.contains(file) || m_atRisk.contains(file)
               || (m_strangers && !m_strangers->contains(file));
    };
    dropping.run = [this](const QString &arguments) { return run(arguments, environmentForIndices()); };
    if (fate == Keep)
        dropping.keep = [this](const QString &file) { return link({file}); };
    if (fate == Copy)
        dropping.keep = [this](const QString &file) { return !keepAside(file).isEmpty(); };
    return PoolFiles::dropUnused(m_repoPath, dropping);
}

QString ExportSession::keepAside(const QString &poolFile)
{
    return KeptFiles::keep(m_repoPath, poolFile, m_own.contains(poolFile));
}

bool ExportSession::link(const QStringList &poolFiles)
{
    // The state before the job has no file that came with it.
    QStringList earlier;
    std::copy_if(poolFiles.cbegin(),
                 poolFiles.cend(),
                 std::back_inserter(earlier),
                 [this](const QString &file) { return !m_own.contains(file); });
    return m_point.link(earlier);
}

QStringList ExportSession::filesBefore()
{
    if (!m_removed || m_disturbed || config().keepsUnreferencedFiles() || !m_point.keepsFiles())
        return {};
    const QSet<QString> earlier = m_atRisk - m_own;
    QStringList files(earlier.cbegin(), earlier.cend());
    // Neighbours lie together on the disk.
    files.sort();
    return files;
}

bool ExportSession::mustDropUnused() const
{
    // While the indices on the disk are old, clients may still fetch the files that they name. When references could
    // not be written, files that packages need look unused.
    return m_removed && !m_exportOwed && !m_disturbed && !config().keepsUnreferencedFiles();
}

ProcessResult ExportSession::finish()
{
    ProcessResult result;
    result.started = true;
    if (m_trouble)
        return *m_trouble;
    // Without a change nothing is owed; another job may be at work.
    if (!isBegun())
        return result;
    if (m_exportOwed) {
        // Many links take as long as the indices. Those of files that stay in use are released at the commit.
        const auto links
            = std::async(std::launch::async | std::launch::deferred, [this, files = filesBefore()] {
                  for (const QString &file : files)
                      KeptFiles::link(m_repoPath, file);
              });
        result = writeIndices();
        links.wait();
    }
    // On a full disk the room of the removed packages matters more than old indices that stay valid for a moment, and
    // more than the way back.
    if (m_exportOwed && m_removed && !m_disturbed && !config().keepsUnreferencedFiles()
        && ReproAnswer::diskFull(result.errorOutput)) {
        m_point.giveUp();
        if (dropUnused(Delete).succeeded())
            result = writeIndices();
    }
    if (mustDropUnused() && m_point.keepsFiles()) {
        // What could not be kept is deleted after the commit, and what cannot be deleted at the next opening.
        m_removed = !dropUnused(Keep).succeeded();
    }
    return result;
}

QString ExportSession::commit(const RestorePoint &record)
{
    if (!isBegun())
        return {};
    const QString trouble = m_point.commit(record, [this](bool isKept) {
        if (mustDropUnused())
            m_removed = !dropUnused(isKept ? Keep : Delete).succeeded();
    });
    if (!m_exportOwed && !mustDropUnused() && !m_disturbed)
        clearMarker(m_repoPath);
    m_point.settle(!m_exportOwed);
    return trouble;
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
    // Nobody knows what it has done, not even of one that was to list or to forget files.
    m_disturbed = m_disturbed || result.crashed();
    if (ReproAnswer::databaseTroubled(result.errorOutput)) {
        m_disturbed = true;
        m_trouble = result;
        m_trouble->exitCode = EXIT_FAILURE; // that of a run which did not take place
        RunningPoint::condemn(m_repoPath);
    }
    return result;
}

std::optional<ProcessResult> ExportSession::keepDatabase()
{
    return m_point.begin([this](const QString &arguments) { return run(arguments); });
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
    m_next.clear();
    setMarker(m_repoPath);
    ProcessResult result
        = config != nullptr ? run(arguments, config->environment()) : runWritingIndices(arguments);
    if (config != nullptr && ReproAnswer::signingFailed(result.errorOutput)) {
        // This run signs nothing, so it fails because its small environment lacks a variable.
        config->useWholeEnvironment();
        result = run(arguments, config->environment());
    }
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
        ProcessResult whole = run(ReproCommand::exportIndices());
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
