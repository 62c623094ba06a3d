// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archiveutils.h"
#include "engine/engineharness.h"
#include "engine/history/repositoryhistory.h"
#include "engine/history/runningpoint.h"
#include "engine/reprepro/repolock.h"
#include "faultplan.h"
#include "files/saveleftovers.h"
#include "files/scratchfolder.h"
#include "privateplaces.h"
#include "reposnapshot.h"
#include "savedstate.h"
#include "support/testkeys.h"
#include "victim.h"

#include <unistd.h>

namespace
{
constexpr int Minute = 60000; // milliseconds

/** A job, with all data to start it and to check its result. */
struct Job
{
    QString name;
    QStringList arguments = {};
    bool isWhole = true; ///< it is done whole or not at all, also when a program fails or the disk is full
    bool hasArchive = false; ///< it writes the archive and leaves the repository as it is
    int backTo = 0; ///< the state that it goes back to
    int points = 20; ///< how many it leaves in the history
    bool signs = false; ///< each time it makes other files
};
} // namespace

/** Kills programs during their work, and checks the state that the next start finds. */
class FaultsTest : public QObject
{
    Q_OBJECT

public:
    explicit FaultsTest(bool hasPrivatePlaces)
        : m_private(hasPrivatePlaces)
    { }

private:
    QRandomGenerator m_random;
    int m_rounds = 1;
    bool m_private;
    std::unique_ptr<QTemporaryDir> m_folder;
    FaultPlan m_plan;
    QMap<int, RepoSnapshot> m_states; ///< before the points of the repository, by number
    QStringList m_new; ///< packages that it does not have
    QStringList m_other; ///< other versions or files of packages that it has
    QString m_disk; ///< the folder of another file system with the repository; else empty
    QString m_filler; ///< bytes that this file system has free, when it is nearly full

    QString repoPath() const { return m_folder->filePath(m_disk + "repo"_s); }
    QString archivePath() const { return m_folder->filePath("target/a.tgz"_s); }

    /** Makes fresh copies of the repository and of the folder for archives. */
    RepoSnapshot prepare() const
    {
        // Links that its history has with its pool stay.
        runShell("rm -rf %1repo %1filler target; cp -a %2 %1repo; mkdir target"_s.arg(
                     m_disk, m_filler.isEmpty() ? "base"_s : "cramped"_s),
                 m_folder->path());
        if (!m_filler.isEmpty())
            runShell("fallocate -l $(($(stat -f -c '%a * %S' .) - %1)) filler"_s.arg(m_filler),
                     m_folder->filePath(m_disk));
        return RepoSnapshot::read(repoPath());
    }

    QStringList wordsOf(const QString &job, const QStringList &arguments = {}) const
    {
        return QStringList{job, repoPath()} + arguments;
    }

    /** Runs the probe to its end, or until a fault ends it, and returns what it has said. */
    QString run(const QStringList &words) const
    {
        Victim victim(QStringLiteral(FAULT_PROBE), words);
        const bool ends = victim.endsWithin(Minute);
        victim.waitForOrphans();
        return victim.words() + (ends ? QString() : "critical: it does not end"_s);
    }

    QString listing(const QString &archive) const
    {
        return runShell("tar tzf '%1' | sort"_s.arg(archive), m_folder->path());
    }

    /** Whether a later start of the program deletes all temporary files of a save, and nothing else. */
    static bool isSwept(const QString &saved)
    {
        const QDir folder = QFileInfo(saved).dir();
        const QString pattern = QFileInfo(saved).fileName() + ".*"_s;
        const QString broken = saved + ".broken"_s;
        writeFile(broken, "not ours to delete");
        const QStringList written = folder.entryList({pattern}, QDir::Files | QDir::Hidden);
        SaveLeftovers::remove(saved);
        bool fine = folder.entryList({pattern}, QDir::Files | QDir::Hidden) == written;
        for (const QString &name : written) {
            QFile file(folder.filePath(name));
            fine = file.open(QIODevice::ReadWrite)
                   && file.setFileTime(QDateTime::currentDateTime().addSecs(-100),
                                       QFileDevice::FileModificationTime)
                   && fine;
        }
        SaveLeftovers::remove(saved);
        // A suffix of random letters that looks like a word may stay.
        const QRegularExpression unfinished("\\.(?![A-Z]?[a-z]+$|[A-Z]+$)[A-Za-z]{6}$"_s);
        return fine && QFile::remove(broken)
               && folder.entryList({pattern}, QDir::Files | QDir::Hidden).filter(unfinished).isEmpty();
    }

    QString leftovers() const
    {
        QStringList left = QDir(QDir::tempPath()).entryList({"velt-admin-repo-work-*"_s}, QDir::Dirs);
        for (const QString &place :
             {QString(qEnvironmentVariable("XDG_DATA_HOME") + "/velt-admin-repo/databases"_s),
              "/var/tmp/velt-admin-repo-databases-%1"_s.arg(::geteuid()),
              "/dev/shm/velt-admin-repo-databases-%1"_s.arg(::geteuid())})
            left += QDir(place).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        if (readFile("/proc/self/mountinfo"_s).contains("importTempDir"))
            left += "a mount"_s;
        const QStringList beside
            = QDir(m_folder->filePath("target"_s)).entryList(QDir::Files | QDir::Hidden | QDir::System);
        for (const QString &file : beside)
            if (file != "a.tgz"_s)
                left += file;
        return left.isEmpty() ? QString() : "left behind: %1\n"_s.arg(left.join(QLatin1Char(' ')));
    }

    /** The program asks this before the next change; here the answer is yes. */
    static void removeStaleLock(const QString &path)
    {
        if (RepoLock::state(path) == RepoLock::State::Stale)
            RepoLock::remove(path);
    }

    /** Opens the repository as the next start does, and tells its state and what is wrong with it. */
    RepoSnapshot reopened(const RepoSnapshot &before, const RepoSnapshot &after, QString *faults) const
    {
        ScratchFolder::removeLeftovers();
        ArchiveUtils::removeLeftover();
        QStringList first;
        for (const bool isFirst : {true, false}) {
            EngineHarness engine;
            engine.reply = true;
            if (engine.open(repoPath()) != RepoEnums::SUCCESS)
                *faults += "it does not open: %1 %2\n"_s.arg(engine.trouble(), engine.lastMessage());
            removeStaleLock(repoPath());
            // What waited for an answer is finished by the opening after it.
            if (isFirst && !engine.questions.isEmpty())
                EngineHarness().open(repoPath());
            const QStringList all = RepoSnapshot::everything(repoPath());
            for (const QString &line : isFirst ? QStringList() : all)
                if (!first.contains(line))
                    *faults += "changed by the second opening: %1\n"_s.arg(line);
            first = all;
            *faults += isFirst ? RepoSnapshot::troubles(engine) : RepoSnapshot::faultsWithin(engine);
        }
        const RepoSnapshot now = RepoSnapshot::read(repoPath());
        *faults += leftovers();
        const QString fromBefore = now.differences(before);
        const QString fromAfter = now.differences(after);
        if (!fromBefore.isEmpty() && !fromAfter.isEmpty())
            *faults += "neither before (%1) nor after (%2)\n"_s.arg(fromBefore, fromAfter);
        return now;
    }

    /** Runs a job undisturbed at first, then interrupts it in each round, and runs it again to its end. */
    void cutShort(const Job &job)
    {
        qputenv("FAULTS_POINTS", QByteArray::number(job.points));
        const QStringList words = wordsOf(job.name, job.arguments);
        const bool prunes = job.points < m_states.size();
        const RepoSnapshot before = prepare();
        m_plan.set(FaultBoard::None);
        QString said = run(words);
        const int length = m_plan.steps();
        QString faults;
        const RepoSnapshot after = reopened(before, RepoSnapshot::read(repoPath()), &faults);
        const bool isChange = !job.hasArchive && job.name != "prune"_s;
        if (!after.differences(before).isEmpty() != isChange || said.contains("critical"_s))
            faults += "it does not do its work"_s;
        if (job.backTo > 0)
            faults += after.differences(m_states[job.backTo]);
        const QString members = job.hasArchive ? listing(archivePath()) : QString();
        faults += after.historyFaults(before, prunes);
        QVERIFY2(faults.isEmpty(), qPrintable(said + faults));

        QString found;
        for (int round = 0; round < m_rounds; ++round) {
            const auto fault = static_cast<FaultBoard::Fault>(m_random.bounded(1, int(FaultBoard::Count)));
            const int step = m_random.bounded(1, length + 2);
            const int span = m_random.bounded(2) == 0 ? length * 10 : m_random.bounded(1, 20);
            const bool hasOld = m_random.bounded(2) == 0;
            const RepoSnapshot fresh = prepare();
            if (job.hasArchive && hasOld)
                writeFile(archivePath(), "an older archive\n");
            qputenv("FAULTS_ANSWER", m_random.bounded(2) == 0 ? "yes" : "no");
            m_plan.set(fault, step, step + span);
            said = run(words);
            qunsetenv("FAULTS_ANSWER");
            QString situation
                = "round %1, fault %2 at step %3 to %4 of %5\n%6"_s.arg(QString::number(round),
                                                                        QString::number(fault),
                                                                        QString::number(step),
                                                                        QString::number(step + span),
                                                                        QString::number(length),
                                                                        said);
            const QString served = RepoSnapshot::served(repoPath());
            // The next openings can be cut short too.
            for (int kills = m_random.bounded(4); kills > 0; --kills) {
                const int moment = m_random.bounded(1, 60);
                m_plan.set(m_random.bounded(2) == 0 ? FaultBoard::AllKilled : FaultBoard::MainKilled, moment);
                said = run(wordsOf("open"_s));
                situation += "opened, killed at step %1: %2"_s.arg(QString::number(moment), said);
            }
            m_plan.set(FaultBoard::None);
            // A job that meets a full disk or a failing program may do a part of its work, which is told.
            const bool mayBePart = !job.isWhole && fault >= FaultBoard::ChildKilled;
            faults.clear();
            RepoSnapshot target = before;
            if (mayBePart || job.signs) {
                EngineHarness engine;
                engine.reply = true;
                engine.open(repoPath());
                removeStaleLock(repoPath());
                target = RepoSnapshot::read(repoPath());
                if (!(job.signs ? target.isAlike(before) : target.isBetween(before, after)))
                    faults += "a package is neither as before nor as after\n"_s;
            }
            const RepoSnapshot now = reopened(target, after, &faults);
            // What a killed pruning leaves goes with the next one.
            if (prunes)
                faults.remove(QRegularExpression("left behind: \\S*\\.unfinished\n"_s));
            const bool isUndone = now.differences(before).isEmpty();
            faults += now.historyFaults(before, prunes);
            // A job that goes on after a fault may have begun to write the indices itself.
            if (fault <= FaultBoard::AllKilled && isUndone
                && served == RepoSnapshot::served(m_folder->filePath("base"_s))
                && served != RepoSnapshot::served(repoPath()))
                faults += "the indices were written anew\n"_s;
            if (job.hasArchive) {
                const bool isOld = hasOld ? readFile(archivePath()) == "an older archive\n"
                                          : !QFile::exists(archivePath());
                if (!isOld && listing(archivePath()) != members)
                    faults += "the archive is neither the old nor the new one\n"_s;
            }
            const auto isBad = [&](const QString &end) {
                const bool isFine = faults.isEmpty() && (end.isEmpty() || !said.contains("critical"_s));
                if (!isFine)
                    found += situation + end + faults + u'\n';
                return !isFine;
            };
            // What was done can be undone, and what was undone can be done again.
            const int point = now.newPoint(before);
            const bool isAgain = isUndone || !isChange;
            if (isBad({}) || (!isAgain && point == 0))
                continue;
            said = run(isAgain ? words : wordsOf("back"_s, {QString::number(point)}));
            const RepoSnapshot again = job.signs ? RepoSnapshot::read(repoPath()) : after;
            const RepoSnapshot &end = isAgain ? again : before;
            const RepoSnapshot last = reopened(end, end, &faults);
            faults += last.historyFaults(now, prunes);
            if (isBad((isAgain ? "again: "_s : "undone: "_s) + said) || prunes || !last.isWholeHistory())
                continue;
            // The whole way back works after all that.
            said = run(wordsOf("back"_s, {QString::number(m_states.firstKey())}));
            reopened(m_states.first(), m_states.first(), &faults);
            isBad("all the way back: "_s + said);
        }
        // A long run tells all that it finds.
        if (!found.isEmpty())
            qWarning("%s", qPrintable(found));
        QVERIFY(found.isEmpty());
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *tool : {"reprepro", "archivemount", "dpkg-deb"})
            if (!haveTool(tool))
                qFatal("%s is not installed", tool);
        bool isSet = false;
        const uint given = qEnvironmentVariable("FAULTS_SEED").toUInt(&isSet);
        // The short run uses a fixed seed, so its result is always the same. Long runs look for unknown faults.
        const bool isLong = qEnvironmentVariableIsSet("FAULTS_ROUNDS");
        const quint32 chosen = isLong ? QRandomGenerator::global()->generate() : 1;
        const quint32 seed = isSet ? given : chosen;
        m_random.seed(seed);
        m_rounds = qMax(1, qEnvironmentVariable("FAULTS_ROUNDS", "1"_s).toInt());
        qInfo("FAULTS_SEED=%u FAULTS_ROUNDS=%d", seed, m_rounds);
        Victim::adoptOrphans();
        QCoreApplication::setOrganizationName("corvana"_s);
        QCoreApplication::setApplicationName("velt-admin-repo"_s);

        m_folder = std::make_unique<QTemporaryDir>("/tmp/vfXXXXXX"_s);
        m_plan.watch(m_folder->path());
        RepoHarness h("amd64 i386"_s);
        const auto package = [&h](const char *name, const char *version, int size, char fill) {
            return DebBuilder(QLatin1String(name))
                .version(QLatin1String(version))
                .architecture(qstrcmp(name, "every") == 0 || qstrcmp(name, "each") == 0 ? "all"_s : "amd64"_s)
                .field("Section"_s, qstrcmp(name, "side") == 0 ? "contrib/admin"_s : "admin"_s)
                .contents(noise(size) + fill);
        };
        const QString folder = m_folder->path();
        const auto done = [&](int result) {
            if (result != RepoEnums::SUCCESS || !h.settled())
                qFatal("the repository cannot be prepared: %s", qPrintable(h.trouble()));
        };
        const auto remember = [&] {
            m_states[RepositoryHistory::nextNumber(h.repoPath())] = RepoSnapshot::read(h.repoPath());
        };
        QStringList base;
        for (const char *name : {"one", "two", "every", "side", "big"})
            base += package(name, "1.0", qstrcmp(name, "big") == 0 ? 900000 : 20000, 'a').build(folder);
        h.choice = PackageReplacementRules::ReplaceAll;
        // Its history has a package that was replaced, one that was removed, and another description.
        done(h.add({package("one", "0.9", 20000, 'o').build(folder + "/old"_s),
                    package("gone", "1.0", 20000, 'g').build(folder + "/old"_s)}));
        remember();
        done(h.add(base));
        remember();
        done(h.remove({h.find("gone"_s)}));
        remember();
        h.info = h.shell.repoInfo();
        h.info.suite = "testing"_s;
        done(h.change(h.repoPath()));
        for (const char *name : {"three", "each", "large"})
            m_new += package(name, "1.0", qstrcmp(name, "large") == 0 ? 900000 : 20000, 'b').build(folder);
        m_other += package("one", "2.0", 20000, 'c').build(folder);
        // These have the names of files in the pool, but other contents.
        for (const char *name : {"every", "side", "big"})
            m_other += package(name, "1.0", 30000, 'd').build(folder + "/other"_s);
        runShell("cp -a '%1' base; tar czf packages.tgz *.deb other"_s.arg(h.repoPath()), folder);
    }

    void adding() { cutShort({"add"_s, m_new, false}); }

    /** With many files, most are added in one run of reprepro, and so are those that replace older versions. */
    void addingMany()
    {
        QStringList files;
        for (int i = 10; i < 95; ++i)
            files += DebBuilder("p%1"_s.arg(i < 65 ? i : i - 50))
                         .version(i < 65 ? "1.0"_s : "2.0"_s)
                         .field("Section"_s, i % 2 == 0 ? "contrib/admin"_s : "admin"_s)
                         .build(m_folder->filePath("many"_s));
        cutShort({"add"_s, files, false});
    }

    /** The description gets an architecture and a component in the middle of the job. */
    void extending()
    {
        const QString folder = m_folder->filePath("further"_s);
        cutShort({"add"_s,
                  {m_new.first(),
                   DebBuilder("far"_s).architecture("arm64"_s).build(folder),
                   DebBuilder("beside"_s).field("Section"_s, "extra/net"_s).build(folder)},
                  false});
    }
    void replacing() { cutShort({"add"_s, m_other, false}); }
    void replacingAndPruning() { cutShort({"add"_s, m_other, false, false, 0, 2}); }
    void removing() { cutShort({"remove"_s, {"one"_s, "every"_s, "side"_s}, false}); }
    /** The copy of the database is on another disk, or in memory when there is no other disk. */
    void removingFromFullDisk()
    {
        if (!m_private)
            QSKIP("mounting a small disk needs root");
        runShell(
            "mkdir small; mount -t tmpfs -o size=8m tmpfs small; mkdir small/other; chmod 1777 small/other"_s,
            m_folder->path());
        // Its database has grown far beyond the needs of its packages.
        const QString fat = DebBuilder("fat"_s)
                                .field("Notes"_s, QString(800000, QLatin1Char('n')))
                                .build(m_folder->filePath("fat"_s));
        runShell("cp -a base cramped; reprepro -b cramped includedeb dogwood %1; "
                 "reprepro -b cramped remove dogwood fat"_s.arg(fat),
                 m_folder->path());
        m_disk = "small/"_s;
        m_filler = "256 * 1024"_s;
        removing();
        if (QTest::currentTestFailed())
            return;
        qputenv("XDG_DATA_HOME", (m_folder->path() + "/small/other"_s).toLocal8Bit());
        runShell("mount --bind small/other /var/tmp"_s, m_folder->path());
        removing();
    }

    void cleanup()
    {
        m_disk.clear();
        m_filler.clear();
    }

    void signing()
    {
        cutShort({"sign"_s, {TestKeys::make("Faults <f@example.org>"_s)}, false, false, 0, 20, true});
    }
    /** The packages of a component are deleted when the new description lacks it. */
    void changing() { cutShort({"change"_s, {"main"_s}}); }
    /** The packages get another code name. Those for all architectures are added to a new architecture too. */
    void renaming() { cutShort({"change"_s, {"main contrib"_s, "aspen"_s, "amd64 i386 arm64"_s}}); }
    void goingBack()
    {
        cutShort({"back"_s, {QString::number(m_states.firstKey())}, true, false, m_states.firstKey()});
    }
    void undoing() { cutShort({"undo"_s, {}, true, false, m_states.lastKey()}); }
    void pruning() { cutShort({"prune"_s, {}, true, false, 0, 1}); }
    void importing() { cutShort({"import"_s, {m_folder->filePath("packages.tgz"_s)}, false}); }
    void exporting() { cutShort({"export"_s, {archivePath()}, true, true}); }
    void packing() { cutShort({"pack"_s, {archivePath()}, true, true}); }

    /** A repository is copied to another file system. At every moment it is whole in one of the places. */
    void moving()
    {
        if (!m_private)
            QSKIP("mounting a file system of its own needs root");
        const QDir far(m_folder->filePath("far"_s));
        const QString target = far.filePath("repo"_s);
        runShell("mkdir far; mount -t tmpfs tmpfs far"_s, m_folder->path());
        const QStringList words = wordsOf("move"_s, {target});
        const auto isRepository
            = [](const QString &path) { return QFile::exists(path + "/conf/distributions"_s); };
        int length = 0;
        for (int round = 0; round <= m_rounds * 2; ++round) {
            const RepoSnapshot before = prepare();
            runShell("rm -rf '%1'; ls"_s.arg(target));
            const int moment = m_random.bounded(length + 1);
            const auto fault = m_random.bounded(2) == 0 ? FaultBoard::MainKilled : FaultBoard::AllKilled;
            m_plan.set(round == 0 ? FaultBoard::None : fault, moment);
            QString said = run(words);
            length = qMax(length, m_plan.steps());
            const auto faultsAt = [&](const QString &path) -> QString {
                EngineHarness engine;
                engine.reply = true;
                removeStaleLock(path);
                if (engine.open(path) != RepoEnums::SUCCESS)
                    return "it does not open: "_s + engine.trouble();
                const RepoSnapshot now = RepoSnapshot::read(path);
                return RepoSnapshot::faultsWithin(engine) + now.differences(before)
                       + now.historyFaults(before);
            };
            QString faults;
            for (const QString &path : {repoPath(), target})
                if (isRepository(path))
                    faults += faultsAt(path);
            if (isRepository(repoPath())) {
                QVERIFY(round > 0);
                m_plan.set(FaultBoard::None);
                said += "again: "_s + run(words);
            }
            faults += faultsAt(target);
            QVERIFY2(
                faults.isEmpty() && !QFile::exists(repoPath()),
                qPrintable("round %1 at step %2 of %3\n%4%5"_s.arg(
                    QString::number(round), QString::number(moment), QString::number(length), said, faults)));
            QCOMPARE(QDir(far.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                     QStringList{"repo"_s});
        }
    }

    void saving()
    {
        DependsData(DependsData::userFileName(), SavedState::OtherRepoPath)
            .savePackages(SavedState::results(1));
        SavedState::save(0);
        int last = 0;
        for (int round = 0; round < m_rounds * 3; ++round) {
            const int moment = m_random.bounded(100);
            const bool isFull = m_random.bounded(4) == 0;
            const int full = m_random.bounded(200);
            m_plan.set(isFull ? FaultBoard::DiskFull : FaultBoard::None, full, full + m_random.bounded(100));
            Victim victim(QStringLiteral(FAULT_PROBE), {"save"_s, QString::number(last + 1)});
            victim.endsWithin(moment);
            victim.kill(true);
            // The probe prints a number only after the save has ended.
            const QStringList said = victim.words().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            // On a full disk a save fails as a whole, and the probe continues.
            const int first = last;
            last = qMax(last, said.last().toInt());
            const int settings = SavedState::settingsNumber();
            const int results = SavedState::resultsNumber();
            const QString situation
                = "round %1 at %2 ms: said %3, settings %4, results %5"_s.arg(QString::number(round),
                                                                              QString::number(moment),
                                                                              said.last(),
                                                                              QString::number(settings),
                                                                              QString::number(results));
            QVERIFY2(settings >= (isFull ? first : last) && settings <= last + 1, qPrintable(situation));
            QVERIFY2(isSwept(QSettings().fileName()) && isSwept(DependsData::userFileName()),
                     qPrintable(situation));
            QVERIFY2(results >= (isFull ? first : last) && results <= last + 1, qPrintable(situation));
            last = settings;
            SavedState::save(last); // while files of a killed save still exist
            QCOMPARE(SavedState::settingsNumber(), last);
        }
    }

    void programKilled()
    {
        const QString settingsFile = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                                     + "/corvana/velt-admin-repo.conf"_s;
        {
            QSettings settings;
            settings.setValue(SettingsKey::RecentOpennedRepos, QStringList{repoPath()});
            settings.setValue(SettingsKey::ShowAddPkgSettings, false);
            settings.setValue(SettingsKey::AddPkgCheckDepends, false);
            settings.setValue(SettingsKey::DependsRepoType, int(DependsNowhere));
        }
        constexpr int StartAndAdd = 3000; // milliseconds
        prepare();
        m_plan.set(FaultBoard::None);
        Victim(QStringLiteral(FAULT_PROBE), wordsOf("add"_s, m_new)).endsWithin(Minute);
        const RepoSnapshot after = RepoSnapshot::read(repoPath());
        for (int round = 0; round < m_rounds; ++round) {
            const RepoSnapshot before = prepare();
            const int moment = m_random.bounded(StartAndAdd);
            const int ending = m_random.bounded(300);
            const bool terminates = m_random.bounded(2) == 0;
            const bool withChildren = m_random.bounded(2) == 0;
            {
                Victim victim(QStringLiteral(PROGRAM), m_new, false);
                victim.endsWithin(moment);
                if (terminates) {
                    victim.terminate();
                    victim.endsWithin(ending);
                }
                victim.kill(withChildren);
            }
            QString faults;
            reopened(before, after, &faults);
            const QSettings settings;
            if (settings.status() != QSettings::NoError
                || settings.value(SettingsKey::RecentOpennedRepos).toStringList() != QStringList{repoPath()}
                || UserChoices::load(settings).dependsRepoType != DependsNowhere
                || UserChoices::load(settings).showAddPkgSettings)
                faults += "the settings are %1\n"_s.arg(QString::fromUtf8(readFile(settingsFile)));
            QVERIFY2(faults.isEmpty(),
                     qPrintable("round %1, after %2 ms, %3\n%4"_s.arg(QString::number(round),
                                                                      QString::number(moment),
                                                                      terminates ? "ending"_s : "working"_s,
                                                                      faults)));
        }
    }
};

int main(int argc, char *argv[])
{
    const bool isPrivate = PrivatePlaces::enter();
    const TestEnvironment environment;
    TestApplication<QCoreApplication> application(argc, argv);
    FaultsTest test(isPrivate);
    return QTest::qExec(&test, argc, argv);
}
#include "tst_faults.moc"
