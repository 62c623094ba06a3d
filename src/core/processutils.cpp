// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"

#include "core/qtversions.h"

#include <QProcessEnvironment>
#include <QTimer>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <pthread.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** The number of this process while the thread starts a program; else 0. */
thread_local pid_t startingParent = 0;

/**
 * Ends a forked child together with its parent, until the child runs its own program. Between fork and exec, the child
 * of QProcess waits for its parent. If the parent is killed at that moment, the child would wait for ever and keep the
 * parent's locks and files.
 */
void endWithParent()
{
    if (startingParent == 0)
        return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != startingParent)
        ::_exit(EXIT_FAILURE);
}

/** A process that ends with this object, together with all that it has started. */
class ChildProcess : public QtVersions::Process
{
public:
    explicit ChildProcess(const ProcessCall &call, QObject *parent = nullptr)
        : QtVersions::Process(parent)
    {
        setChildProcessModifier([mask = call.umask, fileLimit = call.fileLimit] { setUp(mask, fileLimit); });
    }
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
        if (processId() > 0)
            ::kill(-static_cast<pid_t>(processId()), SIGKILL);
        kill();
    }
    /** Ends a program that took too long. */
    void giveUp()
    {
        m_reason = program() + QLatin1String(": ") + QString::fromLocal8Bit(std::strerror(ETIME));
        killAll();
    }
    /** Why the program was given up; else empty. */
    QString reason() const { return m_reason; }

private:
    /** In the child, between fork and exec. */
    static void setUp(int mask, qint64 fileLimit)
    {
        ::prctl(PR_SET_PDEATHSIG, 0);
        if (mask >= 0)
            ::umask(static_cast<mode_t>(mask));
        // A shell can be killed together with its pipeline. Ctrl+C in our terminal does not reach the program: we
        // decide where a job can stop. Without a terminal the program cannot wait for one either.
        ::setsid();
        const rlimit limit{static_cast<rlim_t>(fileLimit), static_cast<rlim_t>(fileLimit)};
        if (fileLimit > 0)
            ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    QString m_reason;
};

/** Returns the standard output of the program. It can be longer than the limit when the program was killed for that. */
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
    const bool isLimited = call.outputLimit > 0;
    const auto isRunning = [&] {
        // Output with a limit is checked as soon as it arrives: a lot of it can come within one interval.
        isLimited ? process.waitForReadyRead(Interval) : process.waitForFinished(Interval);
        return process.state() != QProcess::NotRunning;
    };
    while ((call.stopped || call.printed || isLimited) && isRunning()) {
        takeOutput();
        if ((isLimited && output.size() > call.outputLimit) || (call.stopped && call.stopped())) {
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
    // LANGUAGE selects the language of messages even when LC_ALL is set.
    environment.remove(QStringLiteral("LANGUAGE"));
    for (const QString &entry : entries) {
        const auto equals = entry.indexOf(QLatin1Char('='));
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
    // Nobody answers a prompt. A tool that asks reads the end of its input and gives up.
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
    ChildProcess process(call);
    start(&process, call);
    if (!process.waitForStarted(-1))
        return notStarted(process);
    const QByteArray output = waitForEnd(process, call);
    ProcessResult result = resultOf(&process, output);
    result.tooLarge = call.outputLimit > 0 && output.size() > call.outputLimit;
    return result;
}

void followProcess(const ProcessCall &call,
                   int timeLimit,
                   QObject *context,
                   const std::function<void(const ProcessResult &result)> &answer)
{
    auto *process = new ChildProcess(call, context);
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
    ProcessCall call{program, arguments, workingDirectory, m_environment, -1, m_stopped};
    call.outputLimit = m_outputLimit;
    call.fileLimit = m_fileLimit;
    m_result = runProcess(call);
    return m_result.succeeded() && !m_result.tooLarge;
}

void ProcessUtils::tellError(const QString &text, const QString &details)
{
    m_lastErrorText = text;
    m_lastErrorDetails = details;
    Q_EMIT error(text, details);
}

void ProcessUtils::setLimits(qint64 output, qint64 file)
{
    m_outputLimit = output;
    m_fileLimit = file;
}
