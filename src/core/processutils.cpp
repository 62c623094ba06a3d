// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"

#include <QProcessEnvironment>

#include <sys/stat.h>

namespace
{
/** QProcess's only hook between fork and exec in Qt 5. */
class ChildProcess : public QProcess
{
public:
    explicit ChildProcess(int mask)
        : m_mask(mask)
    { }

protected:
    void setupChildProcess() override
    {
        if (m_mask >= 0)
            ::umask(static_cast<mode_t>(m_mask));
    }

private:
    int m_mask;
};

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
    ChildProcess process(call.umask);
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
    process.waitForFinished(-1);
    result.errorOutput = QString::fromLocal8Bit(process.readAllStandardError());
    result.output = QString::fromLocal8Bit(process.readAllStandardOutput());
    result.exitCode = process.exitCode();
    result.exitStatus = process.exitStatus();
    return result;
}

bool ProcessUtils::run(const QString &program, const QStringList &arguments, const QString &workingDirectory)
{
    m_result = {};
    m_result = runProcess({program, arguments, workingDirectory, {}, -1});
    return m_result.succeeded();
}
