// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

/** The result of a finished program. */
struct ProcessResult
{
    QString output; ///< standard output, decoded from the local 8-bit encoding
    QString errorOutput; ///< error output, or the reason why the program did not start or was given up
    int exitCode = 0;
    QProcess::ExitStatus exitStatus = QProcess::NormalExit;
    bool tooLarge = false; ///< killed because it printed more than its limit
    bool started = false; ///< false: the program does not exist, or the user may not run it

    bool crashed() const { return started && exitStatus == QProcess::CrashExit; }
    bool succeeded() const { return started && exitStatus == QProcess::NormalExit && exitCode == 0; }
};

/** One run of a program: a list of arguments without a shell, and the differences from our own environment. */
struct ProcessCall
{
    QString program;
    QStringList arguments;
    QString workingDirectory; ///< empty: our own
    QStringList environment; ///< "NAME=value" entries set on top of our own environment
    int umask = -1; ///< file mode mask of the program; -1: our own
    /**
     * Asked several times a second, on the calling thread. True kills the program and all processes that it started.
     */
    std::function<bool()> stopped = {};
    /** Receives, while the program runs, its output since the last call; on the calling thread. */
    std::function<void(const QByteArray &output)> printed = {};
    qint64 outputLimit = 0; ///< bytes of standard output; killed when it prints more; 0: no limit
    qint64 fileLimit = 0; ///< bytes for each file that the program writes; 0: no limit
};

/**
 * Runs a program and waits for its end without a time limit: never call it on the interface thread. The messages of the
 * program are not translated (LC_ALL=C.UTF-8, no LANGUAGE), because we parse them. The program has a session of its
 * own, so that a signal of our terminal, such as Ctrl+C, reaches us alone.
 */
ProcessResult runProcess(const ProcessCall &call);

/**
 * Runs a program in the same environment without waiting. `answer` gets the result later, on the thread of `context`,
 * which must be the calling thread. When `context` is deleted first, the program is killed and `answer` is not called.
 * A program that takes longer than `timeLimit` milliseconds is killed too, and the error output of its result tells the
 * reason. The functions in `call` are not used.
 */
void followProcess(const ProcessCall &call,
                   int timeLimit,
                   QObject *context,
                   const std::function<void(const ProcessResult &result)> &answer);

/**
 * Base of the classes that ask one external tool. It runs the tool and keeps the result. An object belongs to the
 * thread that made it.
 */
class ProcessUtils : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /** True when the program started, did not crash and ended with exit code 0. */
    virtual bool
    run(const QString &program, const QStringList &arguments, const QString &workingDirectory = QString());

    /** Later runs are killed as soon as `stopped` returns true, see ProcessCall::stopped. */
    void setStopRequest(const std::function<bool()> &stopped) { m_stopped = stopped; }
    /** "NAME=value" entries that later runs get in addition to our own environment. */
    void setEnvironment(const QStringList &entries) { m_environment = entries; }

    QString errorOutput() const { return m_result.errorOutput; }
    QString output() const { return m_result.output; }
    int exitStatus() const { return m_result.exitStatus; }
    int exitCode() const { return m_result.exitCode; }
    /** What error() told last; empty when no query has failed yet. */
    QString lastErrorText() const { return m_lastErrorText; }
    QString lastErrorDetails() const { return m_lastErrorDetails; }

Q_SIGNALS:
    /** A query failed; `detailedText` is the message of the tool. */
    void error(const QString &text, const QString &detailedText = QString());

protected:
    /** Keeps and emits an error. */
    void tellError(const QString &text, const QString &details);
    /** Limits for later runs, see ProcessCall::outputLimit and fileLimit. */
    void setLimits(qint64 output, qint64 file);
    const ProcessResult &result() const { return m_result; }

private:
    ProcessResult m_result;
    QString m_lastErrorText;
    QString m_lastErrorDetails;
    std::function<bool()> m_stopped;
    QStringList m_environment;
    qint64 m_outputLimit = 0;
    qint64 m_fileLimit = 0;
};
