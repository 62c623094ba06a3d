// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/repositorycopy.h"

#include "engine/reprepro/repolock.h"
#include "files/asidedirectory.h"
#include "files/removetree.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace
{
/** Whether two names can stand for one file in this folder, as they do in the restore points. */
bool hasLinks(const QString &folder)
{
    const QByteArray file = QFile::encodeName(folder + QLatin1String("/file"));
    const QByteArray link = QFile::encodeName(folder + QLatin1String("/link"));
    const bool isLinked = QFile(QFile::decodeName(file)).open(QIODevice::WriteOnly)
                          && ::link(file.constData(), link.constData()) == 0;
    ::unlink(file.constData());
    ::unlink(link.constData());
    return isLinked;
}
} // namespace

RepositoryCopy::RepositoryCopy(QString from, const QString &to)
    : m_from(std::move(from))
    , m_to(to)
    , m_partial(to + QLatin1String(".velt-admin-repo-moving"))
{ }

RepositoryCopy::~RepositoryCopy()
{
    if (m_folder < 0)
        return;
    // A copy that was moved to its place no longer has this name.
    removeTree(m_partial);
    ::close(m_folder);
}

int RepositoryCopy::stepCount() const
{
    int count = 0;
    QDirIterator entries(m_from,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        // Each entry is copied, and each file is compared too.
        const QFileInfo entry(entries.next());
        count += entry.isDir() && !entry.isSymLink() ? 1 : 2;
    }
    return count;
}

bool RepositoryCopy::make(const std::function<bool()> &stopped, const std::function<void(int)> &stepsDone)
{
    if (!makeFolder())
        return false;
    m_database = databaseState();
    const auto printed
        = [&stepsDone](const QByteArray &output) { stepsDone(static_cast<int>(output.count('\n'))); };
    // Keeps links and times, and also owners if permitted. Where there are no hard links, files with several names are
    // copied several times.
    ProcessCall copy;
    copy.program = QStringLiteral("cp");
    copy.arguments = QStringList{QStringLiteral("-avT")};
    if (!hasLinks(m_partial))
        copy.arguments << QStringLiteral("--no-preserve=links");
    copy.arguments << QStringLiteral("--") << m_from << m_partial;
    copy.stopped = stopped;
    copy.printed = printed;
    ProcessCall sync;
    sync.program = QStringLiteral("sync");
    sync.arguments = QStringList{QStringLiteral("-f"), m_partial};
    sync.stopped = stopped;
    ProcessCall compare;
    compare.program = QStringLiteral("diff");
    compare.arguments = QStringList{
        QStringLiteral("-rqs"), QStringLiteral("--no-dereference"), QStringLiteral("--"), m_from, m_partial};
    compare.stopped = stopped;
    compare.printed = printed;
    const bool isMade = runStep(copy) && runStep(sync) && runStep(compare);
    if (stopped())
        m_error.clear();
    return isMade && !stopped();
}

QStringList RepositoryCopy::databaseState() const
{
    const QFileInfoList files = QDir(m_from + QLatin1String("/db"))
                                    .entryInfoList({QStringLiteral("*.db"), QStringLiteral("lockfile")},
                                                   QDir::Files | QDir::Hidden | QDir::System);
    QStringList state;
    for (const QFileInfo &file : files)
        state.append(QStringLiteral("%1 %2 %3")
                         .arg(file.fileName(),
                              QString::number(file.size()),
                              file.lastModified().toString(Qt::ISODateWithMs)));
    return state;
}

bool RepositoryCopy::isUntouched()
{
    if (databaseState() == m_database)
        return true;
    m_error = RepoLock::busyText(m_from);
    return false;
}

bool RepositoryCopy::makeFolder()
{
    QDir().mkpath(QFileInfo(m_partial).path());
    const QByteArray path = QFile::encodeName(m_partial);
    for (const bool isAgain : {false, true}) {
        QDir().mkdir(m_partial);
        m_folder = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (m_folder < 0 || ::flock(m_folder, LOCK_EX | LOCK_NB) != 0) {
            m_error = qt_error_string(errno);
            break;
        }
        if (isAgain || QDir(m_partial).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            return true;
        // A killed run has left this folder: nobody holds its lock.
        removeTree(m_partial);
        ::close(m_folder);
    }
    if (m_folder >= 0)
        ::close(m_folder);
    m_folder = -1;
    return false;
}

bool RepositoryCopy::runStep(const ProcessCall &call)
{
    const ProcessResult result = runProcess(call);
    if (result.succeeded())
        return true;
    // On a full disk there is a line for each file. diff prints differences to its standard output, not as errors.
    constexpr int LinesTold = 5;
    QStringList lines = result.errorOutput.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (lines.isEmpty()) {
        lines.append(tr("The copy differs from the original."));
        const QStringList compared = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString &line : compared)
            if (!line.endsWith(QLatin1String(" are identical")))
                lines.append(line);
    }
    m_error = lines.mid(0, LinesTold).join(QLatin1Char('\n'));
    return false;
}

bool RepositoryCopy::takePlace()
{
    if (!isUntouched())
        return false;
    m_lock.take(m_partial);
    m_error = AsideDirectory::rename(m_partial, m_to);
    return m_error.isEmpty();
}

bool RepositoryCopy::removeOriginal()
{
    m_leftAt = m_from;
    // The copy is written to the disk first; otherwise a power failure could lose both.
    ProcessCall sync;
    sync.program = QStringLiteral("sync");
    sync.arguments = QStringList{QStringLiteral("-f"), m_to};
    if (!isUntouched() || !runStep(sync))
        return false;
    // Renamed first, because a half-deleted repository under its own name would look complete.
    AsideDirectory original(m_from);
    m_leftAt = original.error().isEmpty() ? original.place() : m_from;
    return original.error().isEmpty() && original.remove();
}

void RepositoryCopy::undo()
{
    AsideDirectory copy(m_to);
    if (copy.error().isEmpty())
        copy.remove();
}
