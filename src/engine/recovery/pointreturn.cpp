// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/pointreturn.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/history/keptfiles.h"
#include "engine/history/pointfiles.h"
#include "engine/history/pointfolders.h"
#include "engine/history/runningpoint.h"
#include "engine/recovery/databaseview.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/vanishedindices.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"
#include "files/openfolder.h"
#include "files/regularfile.h"
#include "files/renamepath.h"
#include "files/wholefile.h"
#include "signing/signedpackages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace
{
constexpr qint64 LargestText = 256 << 20; // bytes
/** Small enough for the system's limit of program arguments, even with long paths. */
constexpr int FilesInARun = 100;
/** reprepro's cache of the index files that it has written. */
const QString ReleaseCache = QStringLiteral("release.caches.db");
const QString FreshSuffix = QStringLiteral(".velt-new");

QStringList difference(const QStringList &files, const QStringList &others)
{
    return (QSet<QString>(files.cbegin(), files.cend()) - QSet<QString>(others.cbegin(), others.cend()))
        .values();
}
} // namespace

PointReturn::PointReturn(JobContext &context, int point, QString folder)
    : m_context(context)
    , m_point(point)
    , m_folder(std::move(folder))
{ }

QString PointReturn::inRepository(const QString &path) const
{
    return m_context.path() + QLatin1Char('/') + path;
}

QString PointReturn::noRoomText()
{
    return tr("The database could not be copied. Is there room on the disk?");
}

bool PointReturn::readFiles(const QString &database, Files *files)
{
    const DatabaseView view(m_context.path(), database);
    m_details = noRoomText();
    if (!view.isMade())
        return false;
    const ProcessResult known = m_context.reprepro.run(ReproCommand::listChecksumsIn(view.path()));
    m_details = known.errorOutput;
    if (!known.succeeded())
        return false;
    const ProcessResult needed = m_context.reprepro.run(ReproCommand::dumpReferencesIn(view.path()));
    m_details = needed.errorOutput;
    if (!needed.succeeded())
        return false;
    files->checksums = ReproListing::checksums(known.output);
    const QStringList references = ReproListing::files(needed.output);
    // PLACE FILE; a blank can stand in the name of the file
    for (const QString &reference : references)
        files->needed.insert(reference.section(QLatin1Char(' '), 1));
    return true;
}

bool PointReturn::read()
{
    m_replaced = DistributionsFile(m_context.path()).readBytes().value_or(QByteArray());
    // reprepro makes the files that its folder lacks, so a point without them would look empty.
    const QStringList files = PointFolders::databaseFiles(m_folder);
    if (!files.contains(QLatin1String("packages.db")) || !files.contains(QLatin1String("checksums.db"))) {
        m_details = m_folder;
        return false;
    }
    if (!readFiles(m_folder, &m_earlier) || !readFiles(inRepository(QStringLiteral("db")), &m_present))
        return false;
    // What nobody needs now, and what was without use then, belongs to others.
    for (const QString &file : std::as_const(m_present.needed))
        if (!m_earlier.checksums.contains(file))
            m_leaving.append(file);
    return true;
}

QStringList PointReturn::findFiles()
{
    QStringList missing;
    const PointFiles files(m_context.path());
    for (const QString &file : std::as_const(m_earlier.needed)) {
        if (m_context.control.isCanceled())
            return {};
        const QByteArray sha256 = m_earlier.checksums.value(file);
        const bool isPresent = m_present.checksums.contains(file) && m_present.checksums.value(file) == sha256
                               && QFileInfo(inRepository(file)).isFile();
        const auto found = isPresent ? inRepository(file) : files.fileOf(m_point, {file, sha256, -1});
        if (!found)
            missing.append(file);
        else if (*found != inRepository(file))
            m_sources.insert(file, *found);
    }
    missing.sort();
    return missing;
}

bool PointReturn::apply(ExportSession *session)
{
    return putDescription() && putFiles(session) && putDatabase() && putSignatures() && matchPool();
}

bool PointReturn::putDescription()
{
    const DistributionsFile description(m_context.path());
    const auto bytes = OpenFolder::readFile(m_folder + QLatin1String("/distributions"), LargestText);
    if (!bytes || *bytes == m_replaced)
        return true;
    m_details = tr("Impossible to create file %1!").arg(description.fileName());
    if (!RunningPoint::setChangesDescription(m_context.path(), m_replaced, *bytes)
        || !description.restore(*bytes))
        return false;
    // An earlier description can name programs to which the user has not agreed.
    m_context.gate.forget();
    const Admission &admission = m_context.gate.admit(m_context.path());
    m_details = admission.reason();
    return admission.isGranted();
}

bool PointReturn::putFiles(ExportSession *session)
{
    QStringList coming;
    QStringList replaced;
    for (auto source = m_sources.cbegin(); source != m_sources.cend(); ++source) {
        coming.append(inRepository(source.key()));
        if (m_present.checksums.contains(source.key()))
            replaced.append(source.key());
    }
    QStringList going;
    for (const QString &file : std::as_const(m_leaving))
        going.append(inRepository(file));
    session->recordAtRisk(coming);
    session->recordFreed(going);
    // With the file, reprepro forgets which files are in its package. A path can get another file of the same name.
    if (!runForFiles(ReproCommand::forget, replaced))
        return false;
    m_details = tr("Files could not be put back into the pool.");
    const QString path = m_context.path();
    for (auto source = m_sources.cbegin(); source != m_sources.cend(); ++source) {
        const bool isFree = !QFileInfo::exists(inRepository(source.key()))
                            || !KeptFiles::keep(path, source.key(), false).isEmpty();
        if (!isFree || !KeptFiles::putIntoPool(path, *source, source.key()))
            return false;
    }
    return true;
}

bool PointReturn::putDatabase()
{
    const QString database = inRepository(QStringLiteral("db/"));
    const QStringList files = PointFolders::databaseFiles(m_folder);
    m_details = noRoomText();
    for (const QString &file : files) {
        const QString source = m_folder + QLatin1Char('/') + file;
        const QString fresh = database + file + FreshSuffix;
        QFile::remove(fresh);
        if (!RegularFile(source).copy(fresh) || QFileInfo(fresh).size() != QFileInfo(source).size())
            return false;
    }
    m_details = RepoLock::busyText(m_context.path());
    if (!RepoLock::take(m_context.path()))
        return false;
    QFile::remove(database + ReleaseCache);
    bool isDone = std::all_of(files.cbegin(), files.cend(), [&](const QString &file) {
        return renamePath(database + file + FreshSuffix, database + file);
    });
    const QStringList others = difference(PointFolders::databaseFiles(database), files);
    for (const QString &other : others)
        isDone = QFile::remove(database + other) && isDone;
    RepoLock::remove(m_context.path());
    return isDone;
}

bool PointReturn::putSignatures()
{
    const auto signatures = OpenFolder::readFile(m_folder + QLatin1String("/packages.conf"), LargestText);
    const QString target = SignedPackages::packagesConfPath(m_context.path());
    if (!signatures)
        return true;
    // An empty file stands for none.
    m_details = signatures->isEmpty() ? QString() : WholeFile::replace(target, *signatures);
    return signatures->isEmpty() ? !QFile::exists(target) || QFile::remove(target) : m_details.isEmpty();
}

bool PointReturn::matchPool()
{
    QStringList unknown;
    for (auto file = m_present.checksums.cbegin(); file != m_present.checksums.cend(); ++file)
        if (!m_earlier.checksums.contains(file.key()) && QFileInfo(inRepository(file.key())).isFile())
            unknown.append(file.key());
    QStringList gone;
    for (auto file = m_earlier.checksums.cbegin(); file != m_earlier.checksums.cend(); ++file)
        if (!m_earlier.needed.contains(file.key()) && !QFileInfo::exists(inRepository(file.key())))
            gone.append(file.key());
    if (!runForFiles(ReproCommand::detect, unknown) || !runForFiles(ReproCommand::forget, gone))
        return false;
    // Another program can have deleted files that nobody needed until the database came back.
    QStringList lost;
    for (const QString &file : std::as_const(m_earlier.needed))
        if (!QFileInfo(inRepository(file)).isFile())
            lost.append(file);
    m_details = lost.join(QLatin1Char('\n'));
    return lost.isEmpty();
}

bool PointReturn::runForFiles(QString (*command)(const QStringList &), const QStringList &files)
{
    for (int first = 0; first < files.size(); first += FilesInARun) {
        const ProcessResult result = m_context.reprepro.run(command(files.mid(first, FilesInARun)));
        m_details = result.errorOutput;
        if (!result.succeeded())
            return false;
    }
    return true;
}

void PointReturn::removeVanished()
{
    const DistributionsFile description(m_context.path());
    const auto inForce = description.read();
    const RepoInfo replaced = description.parsed(m_replaced);
    if (inForce && *inForce != replaced)
        removeVanishedIndices(m_context.path(), replaced, *inForce);
}
