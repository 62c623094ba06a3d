// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/privateapt.h"

#include "apt/aptcommands.h"
#include "apt/aptfetch.h"
#include "apt/aptoutput.h"
#include "apt/localreleases.h"
#include "apt/sourceoptions.h"
#include "core/processutils.h"
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/wholefile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
constexpr int LockInterval = 100; // milliseconds
constexpr int KeptDays = 7;

const QString LockName = QStringLiteral("fetch.lock");
const QString StampName = QStringLiteral("fetched");
const QString TriedName = QStringLiteral("tried");

QString statesFolder()
{
    return PrivateApt::cacheFolder() + QLatin1String("/apt");
}

/** The configuration files that apt reads on this system. */
struct SystemConfig
{
    QStringList files; ///< main file and folder of parts, if they exist
    QStringList sourceFiles;
};

SystemConfig systemConfig()
{
    SystemConfig config;
    const QString own = qEnvironmentVariable("APT_CONFIG");
    if (!own.isEmpty())
        config.files.append(QFileInfo(own).absoluteFilePath());
    const ProcessResult result = runProcess({AptCommands::AptConfig,
                                             {QStringLiteral("shell"),
                                              QStringLiteral("PARTS"),
                                              QStringLiteral("Dir::Etc::parts/d"),
                                              QStringLiteral("MAIN"),
                                              QStringLiteral("Dir::Etc::main/f"),
                                              QStringLiteral("LIST"),
                                              QStringLiteral("Dir::Etc::sourcelist/f"),
                                              QStringLiteral("LISTS"),
                                              QStringLiteral("Dir::Etc::sourceparts/d")},
                                             {},
                                             {},
                                             -1});
    const auto value = [&result](const QString &name) { return AptOutput::shellValue(result.output, name); };
    const QString parts = value(QStringLiteral("PARTS"));
    if (parts.endsWith(QLatin1Char('/')) && QFileInfo(parts).isDir())
        config.files.append(parts);
    const QString main = value(QStringLiteral("MAIN"));
    if (QFileInfo(main).isFile())
        config.files.append(main);
    config.sourceFiles.append(value(QStringLiteral("LIST")));
    const QDir lists(value(QStringLiteral("LISTS")));
    const QStringList names
        = lists.entryList({QStringLiteral("*.list"), QStringLiteral("*.sources")}, QDir::Files);
    for (const QString &name : names)
        config.sourceFiles.append(lists.filePath(name));
    return config;
}

/** The trust options of the sources in the system's files. */
SourceOptions systemOptions(const QStringList &files)
{
    SourceOptions options;
    for (const QString &name : files) {
        RegularFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        if (name.endsWith(QLatin1String(".sources")))
            options.addStanzas(text);
        else
            options.addLines(text);
    }
    return options;
}

bool writeInto(QTemporaryFile *file, const QString &text)
{
    return file->open() && WholeFile::writeOut(*file, text.toUtf8());
}
} // namespace

PrivateApt::PrivateApt(QStringList sources, const QStringList &architectures)
    : m_sources(std::move(sources))
{
    // One line for each source, whatever the user typed or the settings hold.
    for (QString &source : m_sources)
        source = source.simplified();
    m_sources.removeDuplicates();
    // The architectures come from other people's repositories, and a configuration can make apt run programs.
    QStringList named;
    std::copy_if(architectures.cbegin(),
                 architectures.cend(),
                 std::back_inserter(named),
                 [](const QString &architecture) { return AptCommands::isArchitecture(architecture); });
    named.removeAll(QStringLiteral("all"));
    named.removeAll(QStringLiteral("source"));
    QStringList identity = m_sources;
    identity.sort();
    identity << QString() << named;
    m_folder = statesFolder() + QLatin1Char('/')
               + QString::fromLatin1(QCryptographicHash::hash(identity.join(QLatin1Char('\n')).toUtf8(),
                                                              QCryptographicHash::Sha1)
                                         .toHex());
    m_valid = makeFolders() && writeFiles(named);
    m_lists = AptLists(environment(), filePath(QStringLiteral("lists")));
}

QStringList PrivateApt::environment() const
{
    return {QLatin1String("APT_CONFIG=") + m_config.fileName()};
}

QString PrivateApt::cacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
           + QLatin1String("/velt-admin-repo");
}

bool PrivateApt::makeFolders() const
{
    const QDir folder(m_folder);
    for (const char *name : {"lists/partial", "cache/archives/partial"}) {
        if (!folder.mkpath(m_folder + QLatin1Char('/') + QLatin1String(name)))
            return false;
    }
    // apt fails without a status file. An empty file says that nothing is installed.
    QFile status(folder.filePath(QStringLiteral("status")));
    return status.exists() || status.open(QIODevice::WriteOnly);
}

bool PrivateApt::writeFiles(const QStringList &architectures)
{
    const SystemConfig system = systemConfig();
    const SourceOptions options = systemOptions(system.sourceFiles);
    QString list;
    for (const QString &source : std::as_const(m_sources))
        list += QStringLiteral("deb %1\n").arg(options.completed(source));
    m_sourceList.setFileTemplate(m_folder + QLatin1String("/XXXXXX.list"));
    m_config.setFileTemplate(m_folder + QLatin1String("/XXXXXX.conf"));
    return writeInto(&m_sourceList, list)
           && writeInto(
               &m_config,
               AptFetch::configuration({system.files, m_folder, m_sourceList.fileName()}, architectures));
}

PrivateApt::Outcome PrivateApt::fetch(const StopRequest &stopped,
                                      const std::function<void(int percent)> &progress)
{
    removeOldStates();
    const auto isStopped = [&stopped] { return stopped && stopped(); };
    QLockFile lock(filePath(LockName));
    // A fetch can take any time; only a lock of a dead process is stale.
    lock.setStaleLockTime(0);
    while (!lock.tryLock(LockInterval)) {
        if (isStopped())
            return {};
        if (lock.error() != QLockFile::LockFailedError)
            return {false, {}, m_folder};
    }
    Outcome outcome;
    QFile stamp(filePath(StampName));
    // Before apt looks at the sources: what changes meanwhile is new next time.
    const auto releases = LocalReleases::digest(m_sources);
    const QDateTime fetched = stamp.fileTime(QFileDevice::FileModificationTime);
    if (releases && AptFetch::isFresh(fetched, QDateTime::currentDateTime())
        && stamp.open(QIODevice::ReadOnly)) {
        outcome.lists = stamp.readAll();
        stamp.close();
        outcome.usable = outcome.lists.endsWith(QByteArray(' ' + *releases));
        if (outcome.usable)
            return isStopped() ? Outcome() : outcome;
        outcome.lists.clear();
    }
    ProcessCall call{AptCommands::AptGet,
                     {QStringLiteral("-q"),
                      QStringLiteral("update"),
                      QStringLiteral("-o"),
                      QStringLiteral("APT::Status-Fd=1")},
                     {},
                     environment(),
                     -1};
    call.stopped = isStopped;
    call.printed = [&progress](const QByteArray &output) {
        const int percent = AptFetch::percent(output);
        if (percent >= 0 && progress)
            progress(percent);
    };
    const ProcessResult result = runProcess(call);
    if (isStopped())
        return {};
    outcome.problems = AptFetch::problems(result.errorOutput);
    outcome.details = result.errorOutput;
    if (!result.succeeded() && outcome.problems.isEmpty())
        outcome.problems.append(AptFetch::tr("apt could not fetch the lists of packages."));
    const auto found = lists(stopped);
    outcome.usable = found && !found->isEmpty();
    QFile tried(filePath(TriedName));
    if (tried.open(QIODevice::WriteOnly))
        tried.write(releases.value_or(QByteArray()) + '\n'
                    + outcome.problems.join(QLatin1Char('\n')).toUtf8());
    tried.close();
    stamp.remove();
    if (outcome.problems.isEmpty() && outcome.usable && stamp.open(QIODevice::WriteOnly)) {
        outcome.lists = QUuid::createUuid().toByteArray() + ' ' + releases.value_or(QByteArray());
        if (!WholeFile::writeOut(stamp, outcome.lists))
            stamp.remove();
    }
    return outcome;
}

std::optional<QVector<AptList>> PrivateApt::lists(const StopRequest &stopped, QString *problem)
{
    const QMutexLocker lock(&m_mutex);
    if (m_lists.find(stopped))
        return m_lists.lists();
    if (problem != nullptr && !(stopped && stopped()))
        *problem = m_lists.errorDetail();
    return std::nullopt;
}

bool PrivateApt::isDue() const
{
    QFile tried(filePath(TriedName));
    if (!tried.open(QIODevice::ReadOnly))
        return true;
    return tried.readLine().trimmed() != LocalReleases::digest(m_sources).value_or(QByteArray())
           || AptFetch::isDue(
               fetchedAt(), tried.fileTime(QFileDevice::FileModificationTime), QDateTime::currentDateTime());
}

bool PrivateApt::isNew() const
{
    return !QFile::exists(filePath(TriedName));
}

QStringList PrivateApt::lastProblems() const
{
    QFile tried(filePath(TriedName));
    if (!tried.open(QIODevice::ReadOnly))
        return {};
    tried.readLine();
    return QString::fromUtf8(tried.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QDateTime PrivateApt::fetchedAt() const
{
    return QFileInfo(filePath(StampName)).lastModified();
}

void PrivateApt::expire() const
{
    QFile::remove(filePath(StampName));
}

void PrivateApt::removeOldStates() const
{
    const QDateTime limit = QDateTime::currentDateTime().addDays(-KeptDays);
    const QDir states(statesFolder());
    const auto folders = states.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QFileInfo &folder : folders) {
        // A state in use has files of its current user, and creating them changes the folder's time.
        if (folder.filePath() == m_folder || folder.lastModified() > limit)
            continue;
        QLockFile lock(folder.filePath() + QLatin1Char('/') + LockName);
        if (lock.tryLock(0))
            removeTree(folder.filePath());
    }
}
