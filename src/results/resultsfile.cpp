// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/resultsfile.h"

#include "files/regularfile.h"
#include "files/renamepath.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QLoggingCategory>
#include <QMutex>
#include <QSaveFile>
#include <QStandardPaths>

#include <mutex>
#include <utility>

namespace
{
using ResultsDocument::Outcome;

Q_LOGGING_CATEGORY(log, "velt.results", QtInfoMsg)

/**
 * Held while the file is read, changed and written, so that a save of one tab or of another process does not overwrite
 * that of another. A process that was killed holds nothing.
 */
class FileLock
{
public:
    explicit FileLock(const QString &fileName)
        : m_threads(mutex())
        , m_processes(fileName + QLatin1String(".lock"))
    {
        constexpr int Patience = 10000; // milliseconds; a large file takes one or two seconds
        // Only the death of its owner makes the lock free, and not its age.
        m_processes.setStaleLockTime(0);
        QDir().mkpath(QFileInfo(fileName).path());
        // A longer attempt would try again ever more seldom.
        constexpr int Attempt = 50; // milliseconds
        const QDeadlineTimer end(Patience);
        do {
            m_isHeld = m_processes.tryLock(Attempt);
            if (!m_isHeld && isLeftWithoutOwner(fileName + QLatin1String(".lock")))
                m_processes.removeStaleLockFile();
        } while (!m_isHeld && m_processes.error() == QLockFile::LockFailedError && !end.hasExpired());
    }
    bool isHeld() const { return m_isHeld; }

private:
    const std::lock_guard<QMutex> m_threads;
    QLockFile m_processes;
    bool m_isHeld = false;

    /** Whether a program was killed between making the lock's file and writing its number into it. */
    static bool isLeftWithoutOwner(const QString &lockName)
    {
        constexpr int Second = 1000; // milliseconds; a living program takes some millionths of a second
        const QFileInfo lock(lockName);
        return lock.exists() && lock.size() == 0
               && lock.lastModified().msecsTo(QDateTime::currentDateTime()) > Second;
    }
    static QMutex &mutex()
    {
        static QMutex mutex;
        return mutex;
    }
};
} // namespace

ResultsFile::ResultsFile(QString fileName, int indent)
    : m_fileName(std::move(fileName))
    , m_indent(indent)
{ }

QString ResultsFile::userFileName(const QString &subject)
{
    return QStringLiteral("%1/corvana/%2-%3.json")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
             QCoreApplication::applicationName(),
             subject);
}

bool ResultsFile::read(const std::function<Outcome(QIODevice *)> &read, QString *keptAs) const
{
    Outcome outcome = readOnce(read);
    if (outcome == Outcome::Broken) {
        // Another program may have replaced the file with a good one meanwhile.
        const FileLock lock(m_fileName);
        outcome = readOnce(read);
        if (outcome == Outcome::Broken && lock.isHeld())
            moveAside(keptAs);
    }
    return outcome == Outcome::Done;
}

bool ResultsFile::hasMember(const QStringList &repositories) const
{
    RegularFile file(m_fileName);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
           && ResultsDocument::hasMember(&file, repositories);
}

bool ResultsFile::rewrite(const ResultsDocument::Change &change, QString *keptAs) const
{
    Outcome outcome = Outcome::Failed;
    {
        const FileLock lock(m_fileName);
        if (lock.isHeld())
            outcome = rewriteOnce(change);
        if (outcome == Outcome::Broken && moveAside(keptAs))
            outcome = rewriteOnce(change);
    }
    if (outcome != Outcome::Done)
        qCDebug(log, "%s could not be written", qUtf8Printable(m_fileName));
    return outcome == Outcome::Done;
}

Outcome ResultsFile::readOnce(const std::function<Outcome(QIODevice *)> &read) const
{
    RegularFile file(m_fileName);
    // An empty file holds no results that could be lost, so it is not reported as broken.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.size() == 0)
        return Outcome::Failed;
    return read(&file);
}

Outcome ResultsFile::rewriteOnce(const ResultsDocument::Change &change) const
{
    RegularFile old(m_fileName);
    const bool isThere = old.exists() && old.size() > 0;
    // A file that cannot be read may hold results of other repositories, so it must not be overwritten.
    if (isThere && !old.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Outcome::Failed;
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Outcome::Failed;
    const Outcome outcome = ResultsDocument::rewrite(isThere ? &old : nullptr, &file, change, m_indent);
    if (outcome != Outcome::Done)
        return outcome;
    return file.commit() ? Outcome::Done : Outcome::Failed;
}

bool ResultsFile::moveAside(QString *keptAs) const
{
    if (!renamePath(m_fileName, brokenName()))
        return false;
    *keptAs = brokenName();
    return true;
}
