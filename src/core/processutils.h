// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

/** What a finished program left behind. */
struct ProcessResult
{
    QString output; ///< standard output, decoded from the local 8-bit encoding
    QString errorOutput; ///< error output, or why the program could not be started or was not waited for
    int exitCode = 0;
    QProcess::ExitStatus exitStatus = QProcess::NormalExit;
    bool tooLarge = false; ///< killed because it printed more than it may
    bool started = false; ///< false: there is no such program, or it may not be run

    bool crashed() const { return started && exitStatus == QProcess::CrashExit; }
    bool succeeded() const { return started && exitStatus == QProcess::NormalExit && exitCode == 0; }
};

/** One run of a program: no shell, an argument list, and what differs from our own environment. */
struct ProcessCall
{
    QString program;
    QStringList arguments;
    QString workingDirectory; ///< empty: our own
    QStringList environment; ///< "NAME=value" entries set on top of our own environment
    int umask = -1; ///< file mode mask of the program; -1: our own
    /** Asked several times a second, on the calling thread; true kills the program and what it has started. */
    std::function<bool()> stopped = {};
    /** Gets what the program has printed since the last call, while it runs; on the calling thread. */
    std::function<void(const QByteArray &output)> printed = {};
    qint64 outputLimit = 0; ///< bytes of standard output; more kills the program; 0: no limit
    qint64 fileLimit = 0; ///< bytes that each file that it writes may have; 0: no limit
};

/**
 * Runs a program and waits for its end without a time limit, so never call it on the interface thread. The program's
 * messages are not translated (LC_ALL=C.UTF-8, no LANGUAGE), because we read them.
 */
ProcessResult runProcess(const ProcessCall &call);

/**
 * Runs a program without waiting, in the same surroundings. `answer` gets its result later, on the thread of `context`
 * (which must be the calling one); when `context` dies before, the program is killed and nothing is answered. So is a
 * program that takes longer than `timeLimit` milliseconds, with the reason as its error output. The functions in
 * `call` are not used.
 */
void followProcess(const ProcessCall &call,
                   int timeLimit,
                   QObject *context,
                   const std::function<void(const ProcessResult &result)> &answer);

/**
 * Base of the classes that ask one external tool: runs it and keeps what it answered. An object belongs to the thread
 * that made it.
 */
class ProcessUtils : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /** True exactly when the program could be started, did not crash and ended with exit code 0. */
    virtual bool
    run(const QString &program, const QStringList &arguments, const QString &workingDirectory = QString());

    /** The programs of later runs are killed as soon as this answers true, see ProcessCall::stopped. */
    void setStopRequest(const std::function<bool()> &stopped) { m_stopped = stopped; }
    /** "NAME=value" entries that later runs get on top of our own environment. */
    void setEnvironment(const QStringList &entries) { m_environment = entries; }

    QString errorOutput() const { return m_result.errorOutput; }
    QString output() const { return m_result.output; }
    int exitStatus() const { return m_result.exitStatus; }
    int exitCode() const { return m_result.exitCode; }

Q_SIGNALS:
    /** A query failed; `detailedText` is what the tool said. */
    void error(const QString &text, const QString &detailedText = QString());

protected:
    /** For later runs, see ProcessCall::outputLimit and fileLimit. */
    void setLimits(qint64 output, qint64 file);
    const ProcessResult &result() const { return m_result; }

private:
    ProcessResult m_result;
    std::function<bool()> m_stopped;
    QStringList m_environment;
    qint64 m_outputLimit = 0;
    qint64 m_fileLimit = 0;
};
