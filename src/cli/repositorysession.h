// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/exitcode.h"
#include "cli/stopsignal.h"
#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "engine/reposhell.h"
#include "engine/repository/packagelist.h"

#include <QElapsedTimer>
#include <QStringList>

#include <functional>
#include <optional>

class Console;
struct Invocation;

/**
 * The engine for the commands: runs its jobs one after the other, shows what they say, answers their questions, and
 * keeps what they have changed. A job that finds the repository locked is run again until --wait is over.
 */
class RepositorySession : public QObject
{
    Q_OBJECT
public:
    RepositorySession(const Invocation &invocation, Console &console);
    ~RepositorySession() override;

    RepoShell &shell() { return m_shell; }
    /** Opens the repository of the command line. False when it cannot be opened, which has been told. */
    bool open();
    /** Runs a job to its end, and returns its result. */
    int run(const std::function<void()> &start);
    /** What becomes of packages that are there already; without it the file is refused. */
    void setReplacementRule(PackageReplacementRules::Rule rule) { m_rule = rule; }
    /** Has the engine's remarks, such as those of files that were kept out, count as findings. */
    void setRemarksAreFindings(bool areFindings) { m_remarksAreFindings = areFindings; }

    /** The exit code after the last run(). */
    ExitCode exitCode() const;
    const QList<PackageInfoPtr> &added() const { return m_added; }
    const QList<PackageInfoPtr> &changed() const { return m_changed; }
    /** Without those that were replaced. */
    QList<PackageInfoPtr> removed() const;
    /** Errors and, where they count, remarks of the last run(). */
    int findings() const { return m_findings; }
    /** The sentence with which the last job has ended. */
    QString lastMessage() const { return m_message; }

private:
    const Invocation &m_invocation;
    Console &m_console;
    RepoShell m_shell;
    StopSignal m_stop;
    std::optional<PackageReplacementRules::Rule> m_rule;
    bool m_remarksAreFindings = false;
    bool m_isOpening = false; ///< the signals of packages tell of those that are there
    int m_result = RepoEnums::ERROR;
    bool m_isLocked = false;
    int m_findings = 0;
    QList<PackageInfoPtr> m_added;
    QList<PackageInfoPtr> m_changed;
    QList<PackageInfoPtr> m_removed;
    QString m_job;
    QString m_message;

    void connectShell();
    void
    tell(const QString &text, const QString &details, RepoEnums::ErrorType type, RepoEnums::ErrorCause cause);
    int runOnce(const std::function<void()> &start);
    /** Waits until the other job may have ended; false when the time is over. */
    bool waitForOther(const QElapsedTimer &waited);
};
