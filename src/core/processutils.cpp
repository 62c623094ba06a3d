// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"

#include <QProcessEnvironment>

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** QProcess's only hook between fork and exec in Qt 5. */
class ChildProcess : public QProcess
{
public:
    ChildProcess(int mask, bool ownGroup)
        : m_mask(mask)
        , m_ownGroup(ownGroup)
    { }

protected:
    void setupChildProcess() override
    {
        if (m_mask >= 0)
            ::umask(static_cast<mode_t>(m_mask));
        if (m_ownGroup)
            ::setpgid(0, 0);
    }

private:
    int m_mask;
    bool m_ownGroup; ///< so that a shell can be killed together with its pipeline
};

/** Returns the program's standard output. */
QByteArray waitForEnd(QProcess &process, const ProcessCall &call)
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
            ::kill(-static_cast<pid_t>(process.processId()), SIGKILL);
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
    for (const QString &entry : entries) {
        const int equals = entry.indexOf(QLatin1Char('='));
        environment.insert(entry.left(equals), entry.mid(equals + 1));
    }
    return environment;
}
} // namespace

ProcessResult runProcess(const ProcessCall &call)
{
    ChildProcess process(call.umask, static_cast<bool>(call.stopped));
    if (!call.workingDirectory.isEmpty())
        process.setWorkingDirectory(call.workingDirectory);
    process.setProcessEnvironment(environmentWith(call.environment));
    process.start(call.program, call.arguments, QIODevice::ReadWrite);

    ProcessResult result;
    result.started = process.waitForStarted(-1);
    if (!result.started) {
        result.errorOutput = call.program + QLatin1String(": ") + process.errorString();
        result.exitCode = -1;
        return result;
    }
    // Nobody answers a prompt: a tool that asks reads the end of its input and gives up.
    process.closeWriteChannel();
    result.output = QString::fromLocal8Bit(waitForEnd(process, call));
    result.errorOutput = QString::fromLocal8Bit(process.readAllStandardError());
    result.exitCode = process.exitCode();
    result.exitStatus = process.exitStatus();
    return result;
}

bool ProcessUtils::run(const QString &program, const QStringList &arguments, const QString &workingDirectory)
{
    m_result = {};
    m_result = runProcess({program, arguments, workingDirectory, m_environment, -1, m_stopped});
    return m_result.succeeded();
}
