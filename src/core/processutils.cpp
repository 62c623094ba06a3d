// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"

#include <QProcessEnvironment>
#include <QTimer>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <pthread.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** This process, while its thread starts a program; else 0. */
thread_local pid_t startingParent = 0;

/**
 * Between fork and exec QProcess's child waits for its parent, and when that is killed just then, for ever, with the
 * locks and files that the parent had open. So until it is a program of its own it ends with its parent.
 */
void endWithParent()
{
    if (startingParent == 0)
        return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != startingParent)
        ::_exit(EXIT_FAILURE);
}

/** QProcess's only hook between fork and exec in Qt 5. */
class ChildProcess : public QProcess
{
public:
    ChildProcess(int mask, bool ownGroup, QObject *parent = nullptr)
        : QProcess(parent)
        , m_mask(mask)
        , m_ownGroup(ownGroup)
    { }
    ~ChildProcess() override
    {
        if (state() == NotRunning)
            return;
        killAll();
        waitForFinished();
    }
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    void killAll()
    {
        if (m_ownGroup && processId() > 0)
            ::kill(-static_cast<pid_t>(processId()), SIGKILL);
        kill();
    }
    /** Ends a program that has taken too long. */
    void giveUp()
    {
        m_reason = program() + QLatin1String(": ") + QString::fromLocal8Bit(std::strerror(ETIME));
        killAll();
    }
    /** Why the program was given up; else empty. */
    QString reason() const { return m_reason; }

protected:
    void setupChildProcess() override
    {
        ::prctl(PR_SET_PDEATHSIG, 0);
        if (m_mask >= 0)
            ::umask(static_cast<mode_t>(m_mask));
        if (m_ownGroup)
            ::setpgid(0, 0);
    }

private:
    int m_mask;
    bool m_ownGroup; ///< so that a shell can be killed together with its pipeline
    QString m_reason;
};

/** Returns the program's standard output. */
QByteArray waitForEnd(ChildProcess &process, const ProcessCall &call)
{
    constexpr int Interval = 50; // milliseconds
    QByteArray output;
    const auto takeOutput = [&] {
        const QByteArray news = process.readAllStandardOutput();
        output += news;
        if (call.printed && !news.isEmpty())
            call.printed(news);
    };
    while ((call.stopped || call.printed) && !process.waitForFinished(Interval)
           && process.state() != QProcess::NotRunning) {
        takeOutput();
        if (call.stopped && call.stopped()) {
            process.killAll();
            break;
        }
    }
    process.waitForFinished(-1);
    takeOutput();
    return output;
}

QProcessEnvironment environmentWith(const QStringList &entries)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // It rules the language of messages even so.
    environment.remove(QStringLiteral("LANGUAGE"));
    for (const QString &entry : entries) {
        const int equals = entry.indexOf(QLatin1Char('='));
        environment.insert(entry.left(equals), entry.mid(equals + 1));
    }
    return environment;
}

void start(ChildProcess *process, const ProcessCall &call)
{
    if (!call.workingDirectory.isEmpty())
        process->setWorkingDirectory(call.workingDirectory);
    process->setProcessEnvironment(environmentWith(call.environment));
    static const int isHooked = ::pthread_atfork(nullptr, nullptr, endWithParent);
    Q_UNUSED(isHooked)
    startingParent = ::getpid();
    process->start(call.program, call.arguments, QIODevice::ReadWrite);
    startingParent = 0;
    // Nobody answers a prompt: a tool that asks reads the end of its input and gives up.
    process->closeWriteChannel();
}

ProcessResult notStarted(const QProcess &process)
{
    ProcessResult result;
    result.errorOutput = process.program() + QLatin1String(": ") + process.errorString();
    result.exitCode = -1;
    return result;
}

ProcessResult resultOf(ChildProcess *process, const QByteArray &output)
{
    ProcessResult result;
    result.started = true;
    result.output = QString::fromLocal8Bit(output);
    result.errorOutput = QString::fromLocal8Bit(process->readAllStandardError()) + process->reason();
    result.exitCode = process->exitCode();
    result.exitStatus = process->exitStatus();
    return result;
}
} // namespace

ProcessResult runProcess(const ProcessCall &call)
{
    ChildProcess process(call.umask, static_cast<bool>(call.stopped));
    start(&process, call);
    if (!process.waitForStarted(-1))
        return notStarted(process);
    const QByteArray output = waitForEnd(process, call);
    return resultOf(&process, output);
}

void followProcess(const ProcessCall &call,
                   int timeLimit,
                   QObject *context,
                   const std::function<void(const ProcessResult &result)> &answer)
{
    constexpr bool OwnGroup = true;
    auto *process = new ChildProcess(call.umask, OwnGroup, context);
    const auto give = [process, answer](const ProcessResult &result) {
        process->disconnect();
        process->deleteLater();
        answer(result);
    };
    QObject::connect(process,
                     QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished),
                     context,
                     [process, give] { give(resultOf(process, process->readAllStandardOutput())); });
    // Queued, so that the answer never comes before this function returns.
    QObject::connect(
        process,
        &QProcess::errorOccurred,
        context,
        [process, give](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                give(notStarted(*process));
        },
        Qt::QueuedConnection);
    QTimer::singleShot(timeLimit, process, [process] { process->giveUp(); });
    start(process, call);
}

bool ProcessUtils::run(const QString &program, const QStringList &arguments, const QString &workingDirectory)
{
    m_result = {};
    m_result = runProcess({program, arguments, workingDirectory, m_environment, -1, m_stopped});
    return m_result.succeeded();
}
