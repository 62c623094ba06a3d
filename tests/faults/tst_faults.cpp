// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archiveutils.h"
#include "engine/engineharness.h"
#include "engine/reprepro/databasecopy.h"
#include "engine/reprepro/repolock.h"
#include "files/saveleftovers.h"
#include "files/scratchfolder.h"
#include "privateplaces.h"
#include "repostate.h"
#include "savedstate.h"
#include "victim.h"

#include <csignal>

#include <unistd.h>

namespace
{
constexpr int Minute = 60000; // milliseconds

/** Ways to interrupt a program. */
enum class Fault {
    Killed, ///< only the program; its children continue
    KilledWithChildren,
    ChildKilled,
    DiskFull,
    DatabaseTorn, ///< killed with its children, and a part of the database was not written
    Count
};

/** A job, with all data to start it and to check its result. */
struct Job
{
    QString name;
    QStringList arguments;
    QByteArray child = "reprepro"; ///< name of the program that it runs
    Request request = {};
    QString archive = {}; ///< path of the archive that it writes
    int largestFile = 0; ///< bytes of the largest file that it writes
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
    int m_rounds = 2;
    bool m_private;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_base; ///< a repository to copy
    QStringList m_new; ///< packages that it does not have
    QStringList m_other; ///< other versions or files of packages that it has

    bool m_isCramped = false; ///< the repository is on a small disk without space for a copy of its database

    QString repoPath() const { return m_folder->filePath(m_isCramped ? "small/repo"_s : "repo"_s); }
    QString archivePath() const { return m_folder->filePath("target/a.tgz"_s); }

    /** Makes fresh copies of the repository and of the folder for archives. */
    RepoState prepare(bool withArchive) const
    {
        runShell("rm -rf repo target; cp -a base repo; mkdir target"_s, m_folder->path());
        if (m_isCramped)
            runShell("rm -rf small/repo small/filler; cp -a cramped small/repo; "
                     "fallocate -l $(($(stat -f -c '%a * %S' small) - 256 * 1024)) small/filler"_s,
                     m_folder->path());
        if (withArchive)
            writeFile(archivePath(), "an older archive\n");
        return RepoState::read(repoPath());
    }

    static QStringList startWords(const Job &job, const QString &repo)
    {
        return QStringList{job.name, repo} + job.arguments;
    }

    QString listing(const QString &archive) const
    {
        return runShell("tar tzf '%1' | sort"_s.arg(archive), m_folder->path());
    }

    /** The cleanup at a start of the program. */
    static void sweep()
    {
        ScratchFolder::removeLeftovers();
        ArchiveUtils::removeLeftover();
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

    /** Opens the repository as the next start does, and describes what is wrong with it. */
    QString reopenedFaults(const RepoState &before, const Request &request) const
    {
        sweep();
        EngineHarness engine;
        engine.reply = true;
        if (engine.open(repoPath()) != RepoEnums::SUCCESS)
            return "it does not open: %1 %2\n"_s.arg(engine.trouble(), engine.lastMessage());
        // The program asks this before the next change; here the answer is yes.
        if (RepoLock::state(repoPath()) == RepoLock::State::Stale)
            RepoLock::remove(repoPath());
        return RepoState::faultsWithin(engine) + RepoState::read(repoPath()).faultsAfter(before, request)
               + leftovers();
    }

    /** Truncates the database as if a write of the job was incomplete. Only between begin and end of a job. */
    void tearDatabase(int size) const
    {
        const QString database = repoPath() + "/db/packages.db"_s;
        if (DatabaseCopy::exists(repoPath()) && size < QFileInfo(database).size())
            QVERIFY(QFile::resize(database, size));
    }

    /** Runs a job undisturbed at first, then interrupts it in each round and runs it again to its end. */
    void cutShort(const Job &job)
    {
        const RepoState before = prepare(false);
        QElapsedTimer time;
        {
            Victim whole(QStringLiteral(FAULT_PROBE), startWords(job, repoPath()));
            time.start();
            QVERIFY(whole.endsWithin(Minute));
        }
        const int length = static_cast<int>(time.elapsed());
        const RepoState whole = RepoState::read(repoPath());
        QVERIFY(job.request.offered.isEmpty() == (whole == before) || !job.request.removed.isEmpty());
        const QString members = job.archive.isEmpty() ? QString() : listing(job.archive);
        QString faults = reopenedFaults(before, job.request);
        QVERIFY2(faults.isEmpty(), qPrintable(faults));

        for (int round = 0; round < m_rounds; ++round) {
            const auto fault = static_cast<Fault>(m_random.bounded(static_cast<int>(Fault::Count)));
            const int moment = m_random.bounded(length + length / 10 + 1);
            // In half of the rounds the database can be copied, but cannot grow much afterwards.
            const int database = static_cast<int>(QFileInfo(m_base + "/db/packages.db"_s).size());
            const int size = m_random.bounded(2) == 0 ? database + m_random.bounded(12000)
                                                      : m_random.bounded(4096, job.largestFile);
            const bool hasOld = m_random.bounded(2) == 0;
            prepare(hasOld && !job.archive.isEmpty());
            QString words;
            {
                Victim victim(QStringLiteral(FAULT_PROBE),
                              startWords(job, repoPath()),
                              fault == Fault::DiskFull ? size : 0);
                if (fault != Fault::DiskFull && !victim.endsWithin(moment)) {
                    if (fault == Fault::ChildKilled)
                        victim.killChild(job.child);
                    else
                        victim.kill(fault != Fault::Killed);
                }
                const bool ends = victim.endsWithin(Minute);
                victim.waitForOrphans();
                words = victim.words();
                QVERIFY2(ends, "the job does not end");
            }
            if (fault == Fault::DatabaseTorn)
                tearDatabase(size);
            const QString situation = "round %1, fault %2 at %3 of %4 ms, file size %5\n%6\n"_s.arg(
                QString::number(round),
                QString::number(static_cast<int>(fault)),
                QString::number(moment),
                QString::number(length),
                QString::number(size),
                words);
            faults = reopenedFaults(before, job.request);
            if (!job.archive.isEmpty()) {
                const bool isOld
                    = hasOld ? readFile(job.archive) == "an older archive\n" : !QFile::exists(job.archive);
                if (!isOld && listing(job.archive) != members)
                    faults += "the archive is neither the old nor the new one\n"_s;
            }
            QVERIFY2(faults.isEmpty(), qPrintable(situation + faults));
            {
                Victim again(QStringLiteral(FAULT_PROBE), startWords(job, repoPath()));
                QVERIFY(again.endsWithin(Minute));
                words = again.words();
            }
            faults = reopenedFaults(before, job.request);
            if (!(RepoState::read(repoPath()) == whole))
                faults += "done again, it does not come to the same\n"_s;
            QVERIFY2(faults.isEmpty() && !words.contains("critical"_s),
                     qPrintable(situation + "again: "_s + words + faults));
        }
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
        m_rounds = qMax(1, qEnvironmentVariable("FAULTS_ROUNDS", "2"_s).toInt());
        qInfo("FAULTS_SEED=%u FAULTS_ROUNDS=%d", seed, m_rounds);
        Victim::adoptOrphans();
        QCoreApplication::setOrganizationName("corvana"_s);
        QCoreApplication::setApplicationName("velt-admin-repo"_s);

        m_folder = std::make_unique<QTemporaryDir>("/tmp/vfXXXXXX"_s);
        RepoHarness h("amd64 i386"_s);
        const auto package = [&h](const char *name, const char *version, int size, char fill) {
            return DebBuilder(QLatin1String(name))
                .version(QLatin1String(version))
                .architecture(qstrcmp(name, "every") == 0 || qstrcmp(name, "each") == 0 ? "all"_s : "amd64"_s)
                .field("Section"_s, qstrcmp(name, "side") == 0 ? "contrib/admin"_s : "admin"_s)
                .contents(noise(size) + fill);
        };
        const QString folder = m_folder->path();
        QStringList base;
        for (const char *name : {"one", "two", "every", "side", "big"})
            base += package(name, "1.0", qstrcmp(name, "big") == 0 ? 900000 : 20000, 'a').build(folder);
        QCOMPARE(h.add(base), RepoEnums::SUCCESS);
        for (const char *name : {"three", "each", "large"})
            m_new += package(name, "1.0", qstrcmp(name, "large") == 0 ? 900000 : 20000, 'b').build(folder);
        m_other += package("one", "2.0", 20000, 'c').build(folder);
        // These have the names of files in the pool, but other contents.
        for (const char *name : {"every", "side", "big"})
            m_other += package(name, "1.0", 30000, 'd').build(folder + "/other"_s);
        runShell("cp -a '%1' base; tar czf packages.tgz *.deb other"_s.arg(h.repoPath()), folder);
        m_base = folder + "/base"_s;
    }

    void adding()
    {
        Job job{"add"_s, m_new};
        job.request.offer(m_new);
        job.largestFile = 1000000;
        cutShort(job);
    }

    /** With many files, most are added in one run of reprepro, and so are those that replace older versions. */
    void addingMany()
    {
        QStringList files;
        for (int i = 10; i < 95; ++i)
            files += DebBuilder("p%1"_s.arg(i < 65 ? i : i - 50))
                         .version(i < 65 ? "1.0"_s : "2.0"_s)
                         .field("Section"_s, i % 2 == 0 ? "contrib/admin"_s : "admin"_s)
                         .build(m_folder->filePath("many"_s));
        Job job{"add"_s, files};
        job.request.offer(files);
        job.largestFile = 60000;
        cutShort(job);
    }

    void replacing()
    {
        Job job{"add"_s, m_other};
        job.request.offer(m_other);
        job.largestFile = 60000;
        cutShort(job);
    }

    void removing()
    {
        Job job{"remove"_s, {"one"_s, "every"_s, "side"_s}};
        job.request.removed = {"one"_s, "every"_s, "side"_s};
        job.largestFile = 60000;
        cutShort(job);
    }

    /** The copy of the database is on another disk, or in memory when there is no other disk. */
    void removingFromFullDisk()
    {
        if (!m_private)
            QSKIP("mounting a small disk needs root");
        const QString small = m_folder->filePath("small"_s);
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
        const auto restored = qScopeGuard([&, data = qgetenv("XDG_DATA_HOME")] {
            m_isCramped = false;
            qputenv("XDG_DATA_HOME", data);
            runShell("umount /var/tmp || true; umount small"_s, m_folder->path());
        });
        m_isCramped = true;
        Job job{"remove"_s, {"one"_s, "every"_s, "side"_s}};
        job.request.removed = {"one"_s, "every"_s, "side"_s};
        job.largestFile = 60000;
        cutShort(job);
        if (QTest::currentTestFailed())
            return;
        qputenv("XDG_DATA_HOME", (small + "/other"_s).toLocal8Bit());
        runShell("mount --bind small/other /var/tmp"_s, m_folder->path());
        cutShort(job);
    }

    /** The packages of a component are deleted when the new description lacks it. */
    void changing()
    {
        Job job{"change"_s, {"main"_s}};
        job.request.removed = {"side"_s};
        job.largestFile = 60000;
        cutShort(job);
    }

    /** The packages get another code name. Those for all architectures are added to a new architecture too. */
    void renaming()
    {
        Job job{"change"_s, {"main contrib"_s, "aspen"_s, "amd64 i386 arm64"_s}};
        job.request.offer({m_folder->filePath("every_1.0_all.deb"_s)});
        job.largestFile = 60000;
        cutShort(job);
    }

    /** A repository is copied to another file system. At every moment it is whole in one of the places. */
    void moving()
    {
        if (!m_private)
            QSKIP("needs root, for a file system of its own at /srv");
        const QTemporaryDir far("/srv/vfXXXXXX"_s);
        const QString target = far.filePath("repo"_s);
        const QStringList words{"move"_s, repoPath(), target};
        const auto isRepository
            = [](const QString &path) { return QFile::exists(path + "/conf/distributions"_s); };
        int length = 0;
        for (int round = 0; round <= m_rounds * 2; ++round) {
            const RepoState before = prepare(false);
            runShell("rm -rf '%1'; ls"_s.arg(target));
            const int moment = m_random.bounded(length + 1);
            {
                Victim victim(QStringLiteral(FAULT_PROBE), words);
                QElapsedTimer time;
                time.start();
                if (round == 0)
                    QVERIFY(victim.endsWithin(Minute));
                else if (!victim.endsWithin(moment))
                    victim.kill(m_random.bounded(2) == 0);
                victim.waitForOrphans();
                length = qMax(length, static_cast<int>(time.elapsed()));
            }
            const auto faultsAt = [&](const QString &path) {
                EngineHarness engine;
                engine.reply = true;
                if (engine.open(path) != RepoEnums::SUCCESS)
                    return "it does not open: "_s + engine.trouble();
                return RepoState::faultsWithin(engine) + RepoState::read(path).faultsAfter(before, {});
            };
            QString faults;
            for (const QString &path : {repoPath(), target})
                if (isRepository(path))
                    faults += faultsAt(path);
            if (isRepository(repoPath())) {
                QVERIFY(round > 0);
                Victim again(QStringLiteral(FAULT_PROBE), words);
                QVERIFY(again.endsWithin(Minute));
            }
            faults += faultsAt(target);
            QVERIFY2(faults.isEmpty() && !QFile::exists(repoPath()),
                     qPrintable("round %1 at %2 of %3 ms\n%4"_s.arg(
                         QString::number(round), QString::number(moment), QString::number(length), faults)));
            QCOMPARE(QDir(far.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                     QStringList{"repo"_s});
        }
    }

    void importing()
    {
        Job job{"import"_s, {m_folder->filePath("packages.tgz"_s)}};
        job.child = m_random.bounded(2) == 0 ? "reprepro" : "archivemount";
        job.request.offer(m_new + m_other);
        job.request.offer(QDir(m_folder->path()).entryList({"*.deb"_s}));
        job.largestFile = 1000000;
        cutShort(job);
    }

    void exporting()
    {
        for (const char *name : {"export", "pack"}) {
            Job job{QString::fromLatin1(name), {archivePath()}};
            job.archive = archivePath();
            job.largestFile = 1500000;
            cutShort(job);
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
            Victim victim(QStringLiteral(FAULT_PROBE),
                          {"save"_s, QString::number(last + 1)},
                          isFull ? m_random.bounded(512, m_random.bounded(2) == 0 ? 6000 : 100000) : 0);
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
        Request request;
        request.offer(m_new);
        constexpr int StartAndAdd = 3000; // milliseconds
        for (int round = 0; round < m_rounds; ++round) {
            const RepoState before = prepare(false);
            const int moment = m_random.bounded(StartAndAdd);
            const int ending = m_random.bounded(300);
            const bool terminates = m_random.bounded(2) == 0;
            const bool withChildren = m_random.bounded(2) == 0;
            {
                Victim victim(QStringLiteral(PROGRAM), m_new, 0, false);
                victim.endsWithin(moment);
                if (terminates) {
                    victim.terminate();
                    victim.endsWithin(ending);
                }
                victim.kill(withChildren);
            }
            QString faults = reopenedFaults(before, request);
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
