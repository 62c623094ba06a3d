// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/terminal/exitcode.h"
#include "cli/terminal/stopsignal.h"
#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "engine/reposhell.h"
#include "engine/repository/packagelist.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QStringList>

#include <functional>
#include <optional>

class Console;
class PackageSelection;
struct Invocation;

/**
 * The engine for the commands: runs its jobs one after the other, shows what they say, answers their questions, and
 * keeps what they have changed. A job that finds the repository locked is run again until --wait is over; before that
 * the repository is opened again, since the other job may have changed it.
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
    /** Runs a job to its end, and returns its result. `start` may be called again, for the repository as it is then. */
    int run(const std::function<void()> &start);
    struct Selected
    {
        QList<PackageInfoPtr> packages;
        QStringList unmatched; ///< the words without a package, which has been told
    };
    /** Runs the job that `start` begins for the selected packages; none when there are no such packages. */
    Selected runFor(const PackageSelection &selection,
                    const std::function<void(const QList<PackageInfoPtr> &packages)> &start);
    /**
     * The component and the key for packages that are added, and from now on the rule for those that are there already.
     * Without a rule they are refused: then the engine's remarks, such as those of files that were kept out, count as
     * findings.
     */
    AddOptions addOptions();
    /** What becomes of collisions, after addOptions(). */
    PackageReplacementRules collisionRule() const;
    /** Whether a package that is there already is refused rather than kept; after addOptions(). */
    bool refusesCollisions() const { return m_remarksAreFindings; }

    /** Whether the repository is to get what it lacks for the packages. */
    bool extends() const;

    /** The result of the last run(). */
    int result() const { return m_result; }
    /** How many errors, and where they count remarks, the last run() has told. */
    int findings() const { return m_findings; }
    /** The exit code after the last run(). */
    ExitCode exitCode() const;
    QList<PackageInfoPtr> added() const;
    /** Those that came in for a package that was removed for them. */
    QList<PackageInfoPtr> replaced() const;
    /** The present records of those with new results of a check. */
    QList<PackageInfoPtr> checked() const;
    /** The same for a complete check. */
    QList<PackageInfoPtr> completelyChecked() const;
    /** Without those that were replaced. */
    QList<PackageInfoPtr> removed() const;
    /** The exit code after a job that changes no packages, or whose changes the caller knows better. */
    ExitCode exitCode(bool isAnyChanged) const;
    /** The lines of what the jobs have added, replaced and removed. Returns `result` with the object of it. */
    QJsonObject changes(QJsonObject result = {});
    /** The same, and prints the object. */
    void tellChanges(const QJsonObject &result = {});

private:
    const Invocation &m_invocation;
    Console &m_console;
    RepoShell m_shell;
    StopSignal m_stop;
    std::optional<PackageReplacementRules::Rule> m_rule;
    bool m_remarksAreFindings = false;
    bool m_isOpen = false;
    bool m_isOpening = false; ///< the signals of packages tell of those that are there
    int m_result = RepoEnums::ERROR;
    bool m_isLocked = false;
    int m_findings = 0;
    QList<PackageInfoPtr> m_added;
    QList<PackageInfoPtr> m_changed;
    QList<PackageInfoPtr> m_removed;
    QList<PackageInfoPtr> m_opened; ///< what the repository held when it was opened
    QString m_job;
    QString m_file; ///< what the job's remarks and errors are about; empty: the job

    void connectShell();
    /** The present records of changed packages that this is true for. */
    QList<PackageInfoPtr> changed(bool (*isWanted)(const PackageInfo &package)) const;
    /** Whether the folder that is being opened is no repository, which is told. */
    bool isWithoutDescription();
    void
    tell(const QString &text, const QString &details, RepoEnums::ErrorType type, RepoEnums::ErrorCause cause);
    void openOnce();
    int runOnce(const std::function<void()> &start);
    /** Waits until the other job may have ended; false when the time is over. */
    bool waitForOther(const QElapsedTimer &waited);
};
