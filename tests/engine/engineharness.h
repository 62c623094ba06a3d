// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"
#include "engine/changes/exportsession.h"
#include "engine/reposhell.h"
#include "engine/repository/packagelisting.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"

/** What the engine said during one job. */
struct JobNotes
{
    QStringList started;
    QStringList finished; ///< the messages
    RepoEnums::JobId lastJob = RepoEnums::COMMON_JOB;
    QStringList criticals; ///< "text|details"
    QStringList questions; ///< "title|text"
    QStringList notes; ///< for the log alone
    QVector<int> ranges;
    QVector<int> steps;
    QStringList events; ///< "+name version arch", "-…", "~…" for added, removed, changed
    QVector<RepoEnums::ErrorCode> collisions;
    QVector<bool> singles;
    QStringList newcomers; ///< "file version", with "last" when nothing follows
};

/** An engine on real folders, with an interface that notes everything and answers questions as told. */
class EngineHarness : public QObject, public JobNotes
{
    Q_OBJECT
public:
    using Code = RepoEnums::ErrorCode;

    EngineHarness();

    RepoShell shell;
    QTemporaryDir folder{QStringLiteral("/tmp/veXXXXXX")};
    RepoInfo info;
    bool reply = false; ///< to every question
    quint32 choice = PackageReplacementRules::KeepThis; ///< at every collision
    std::function<void()> whileAsked = [] {}; ///< runs before either is given

    QString at(const char *name) const { return folder.filePath(QString::fromUtf8(name)); }
    QString repoPath() const { return folder.filePath(QStringLiteral("repo")); }
    /** Builds packages with these names (separated by blanks), or the one described, in a new folder. */
    QStringList debs(const char *names, const char *version = "1.0", const char *contents = "x");
    QString deb(const DebBuilder &deb) { return deb.build(folder.filePath(QString::number(++m_builds))); }

    // Each runs one job to its end and forgets what was noted before.
    Code run(const std::function<void()> &start);
    Code open(const QString &path)
    {
        return run([&] { shell.openRepo(path); });
    }
    Code change(const QString &path, bool carries = false)
    {
        return run([&] { shell.changeRepo(path, info, {}, carries); });
    }
    Code add(const QStringList &files, const AddOptions &options = {})
    {
        return run([&] { shell.addPackages(files, options); });
    }
    Code remove(const QList<PackageInfoPtr> &list)
    {
        return run([&] { shell.removePackages(list); });
    }

    /** Stops jobs from their own thread, at the count-th of these signals from now on and at each one after it. */
    template <typename Signal>
    QMetaObject::Connection cancelAt(Signal signal, int count = 1)
    {
        const auto stop = [this, count]() mutable {
            if (--count <= 0)
                shell.cancel();
        };
        return connect(&shell, signal, &shell, stop, Qt::DirectConnection);
    }

    QString lastMessage() const { return finished.isEmpty() ? QString() : finished.last(); }
    /** All criticals in one text, for comparing with nothing and showing more. */
    QString trouble() const { return criticals.join(u'\n'); }
    /** Start, troubles and end of the job: all that it said, separated by bars. */
    QString words() const { return (started + criticals + finished).join(u'|'); }
    /** Whether there were so many troubles, with this in their texts or details. */
    bool complains(const QString &text, int count = 1) const;
    /** Whether the repository has these packages, as listed() has them, separated by commas, and is settled. */
    bool holds(const QString &packages) const;
    /** The engine's records, or what the indices below dists say, as "name version component architecture", sorted. */
    QStringList listed() const { return shown(shell.packages()); }
    QStringList inIndices() const { return shown(listPackages(shell.path(), shell.repoInfo())); }
    /** What reprepro itself says is in the repository, as it prints it. */
    QStringList inDatabase() const;
    ProcessResult reprepro(const QStringList &arguments) const;
    bool isExportOwed() const { return ExportSession::isExportOwed(shell.path()); }
    /** Whether records, indices, database and pool agree and no job's leftovers lie about. */
    bool settled() const;
    /** Fails the program when there is none. */
    PackageInfoPtr find(const QString &name, const QString &architecture = QString()) const;
    QByteArray inPool(const QString &name) const { return readFile(find(name)->filePath()); }

private:
    static QStringList shown(const QList<PackageInfoPtr> &packages);

    int m_builds = 0;
};

/** An engine with a new, empty repository. */
class RepoHarness : public EngineHarness
{
public:
    explicit RepoHarness(const QString &architectures = QStringLiteral("amd64"))
    {
        info.architectures = architectures;
        if (shell.createRepo(repoPath(), info) != RepoEnums::SUCCESS)
            qFatal("the repository could not be created: %s", qPrintable(trouble()));
    }
};
