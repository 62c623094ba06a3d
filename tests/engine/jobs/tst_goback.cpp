// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/history/repositoryhistory.h"
#include "support/testkeys.h"

#include <QMap>

#include <random>

namespace
{
const QString KeyName = "Release key <r@example.org>"_s;

/**
 * What a repository is for those who use it: the bytes of its files, without dates of indices, and what reprepro says
 * of it. The judges are reprepro itself and sha256sum.
 */
QString stateOf(const QString &repoPath)
{
    return runShell(R"(
        set +e +o pipefail
        find pool conf/distributions packages.conf -type f -size +0 2>/dev/null | LC_ALL=C sort | xargs -rd '\n' sha256sum
        find dists -type l -printf '%p -> %l\n' | sort
        # Packages files byte for byte; of a Release file all but its date, and not what depends on the date.
        find dists -name Packages -o -name 'Contents*' | LC_ALL=C sort | xargs -rd '\n' sha256sum
        for file in $(find dists -name Release | LC_ALL=C sort); do echo $file; grep -v ^Date: $file; done
        reprepro -b . list $(sed -n 's/^Codename: //p' conf/distributions)
        reprepro -b . _listchecksums; reprepro -b . dumpreferences | sort
        reprepro -b . check >/dev/null && reprepro -b . checkpool && reprepro -b . dumpunreferenced && echo sound)"_s,
                    repoPath);
}

/** A repository whose states are kept by the number of the point that was made after them. */
class HistoryHarness : public RepoHarness
{
public:
    using RepoHarness::RepoHarness;

    QMap<int, QString> states;

    /** Runs a job that must succeed, and notes the state before it. */
    bool step(const std::function<void()> &start)
    {
        const QString before = stateOf(repoPath());
        const int newest = RepositoryHistory::newestNumber(repoPath());
        const bool isDone = run(start) == RepoEnums::SUCCESS && trouble().isEmpty() && !isExportOwed();
        if (const int number = RepositoryHistory::newestNumber(repoPath()); number > newest)
            states.insert(number, before);
        if (!isDone)
            qWarning() << words() << isExportOwed();
        return isDone;
    }
    bool goBack(int point)
    {
        return step([&] { shell.goBack(point); });
    }
    /** Whether the repository and what is shown of it are in the state before the point. */
    bool isBefore(int point) const
    {
        const QString now = stateOf(repoPath());
        if (now == states.value(point) && now.endsWith("sound\n"_s) && settled())
            return true;
        writeFile(folder.filePath("expected"_s), states.value(point).toUtf8());
        writeFile(folder.filePath("actual"_s), now.toUtf8());
        qWarning().noquote() << point << runShell("diff expected actual || true"_s, folder.path());
        return false;
    }
};
} // namespace

/** The way back to earlier states of a repository. */
class TestGoBack : public QObject
{
    Q_OBJECT
private:
    QString m_key;

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("gpg");
        m_key = TestKeys::make(KeyName);
    }

    void everyJobCanBeUndone()
    {
        HistoryHarness h("amd64 i386"_s);
        HistoryLimits limits;
        limits.points = 50;
        h.shell.setHistoryLimits(limits);
        h.info.contents = true;
        h.choice = PackageReplacementRules::ReplaceThis;
        const QString all = h.deb(DebBuilder("all"_s).architecture("all"_s));
        const auto add = [&](const QStringList &files, const AddOptions &options = {}) {
            return h.step([&] { h.shell.addPackages(files, options); });
        };
        QVERIFY(h.step([&] { h.shell.changeRepo(h.repoPath(), h.info); }));
        QVERIFY(add(h.debs("foo bar baz")));
        QVERIFY(add({all}, {QString(), true, m_key}));
        QVERIFY(add(h.debs("foo", "2.0")));
        QVERIFY(add(h.debs("foo", "2.0", "other contents, and a longer file")));
        QVERIFY(h.step([&] { h.shell.removePackages({h.find("bar"_s), h.find("all"_s, "i386"_s)}); }));
        QVERIFY(h.step([&] { h.shell.signPackages({h.find("baz"_s)}, m_key); }));
        h.info.components = "main"_s;
        h.info.architectures = "amd64"_s;
        h.info.suite = "stable"_s;
        QVERIFY(h.step([&] { h.shell.changeRepo(h.repoPath(), h.info); }));
        h.info.codename = "elm"_s;
        h.info.contents = false;
        QVERIFY(h.step([&] { h.shell.changeRepo(h.repoPath(), h.info, {}, true); }));
        QVERIFY(add(h.debs("foo", "1.0")));
        h.reply = true; // to what the repository lacks
        QVERIFY(add({h.deb(DebBuilder("foo"_s).architecture("arm64"_s).field("Section"_s, "extra/net"_s)),
                     h.deb(DebBuilder("all"_s).version("2.0"_s).architecture("all"_s))}));
        QCOMPARE(h.shell.repoInfo().architectures + h.shell.repoInfo().components, "amd64 arm64main extra"_s);
        const QList<int> points = h.states.keys();
        QCOMPARE(points.size(), 11);
        // One after the other, then from one end to the other and back; each way back is a job with a point of its own.
        QList<int> way;
        for (int i = points.size() - 1; i >= 0; --i)
            way << points.at(i);
        way << points.last() << points.at(1) << points.last() + points.size() << points.at(5) << points.at(3);
        for (const int point : way) {
            QVERIFY2(h.goBack(point), qPrintable(QString::number(point)));
            QVERIFY2(h.isBefore(point), qPrintable(QString::number(point)));
        }
        // The next opening finds nothing to do, and the same packages.
        const QStringList listed = h.listed();
        h.open(h.repoPath());
        QVERIFY(h.trouble().isEmpty() && h.listed() == listed && h.isBefore(way.last()));
    }

    void nothingHappensWhenFilesAreMissing()
    {
        HistoryHarness h;
        h.choice = PackageReplacementRules::ReplaceThis;
        QVERIFY(h.step([&] { h.shell.addPackages(h.debs("foo bar"), {}); }));
        QVERIFY(h.step([&] { h.shell.addPackages(h.debs("foo", "2.0"), {}); }));
        QVERIFY(h.step([&] { h.shell.removePackages({h.find("bar"_s)}); }));
        const int replacing = h.states.keys().at(1);
        const QString kept = RepositoryHistory::pointFolder(h.repoPath(), replacing)
                             + "/pool/main/f/foo/foo_1.0_amd64.deb"_s;
        const QByteArray bytes = readFile(kept);
        QVERIFY(!bytes.isEmpty());
        const QString before = stateOf(h.repoPath());
        const auto refuses = [&] {
            return h.run([&] { h.shell.goBack(replacing); }) == RepoEnums::ERROR && h.complains("1 file"_s)
                   && h.trouble().endsWith("|pool/main/f/foo/foo_1.0_amd64.deb"_s)
                   && stateOf(h.repoPath()) == before && h.settled();
        };
        // A file with other bytes, none, and a link to the right ones; all are no files of ours.
        QFile::remove(kept);
        writeFile(kept, QByteArray(bytes).replace('x', 'y'));
        QVERIFY(refuses());
        QVERIFY(QFile::remove(kept) && refuses());
        writeFile(h.at("elsewhere"), bytes);
        QVERIFY(QFile::link(h.at("elsewhere"), kept) && refuses());
        QFile::remove(kept);
        writeFile(kept, bytes);
        QCOMPARE(h.run([&] { h.shell.goBack(99); }), RepoEnums::ERROR);
        QVERIFY(h.complains("does not keep"_s));
        // A stop that comes before anything is written leaves everything; the same way is free then.
        const auto stop = h.cancelAt(&RepoShell::started);
        QCOMPARE(h.run([&] { h.shell.goBack(replacing); }), RepoEnums::CANCEL);
        QVERIFY(QObject::disconnect(stop) && stateOf(h.repoPath()) == before && h.settled());
        QVERIFY(h.goBack(replacing) && h.isBefore(replacing));
    }

    void packageComesBack()
    {
        HistoryHarness h("amd64 i386"_s);
        h.choice = PackageReplacementRules::ReplaceThis;
        const auto all = [&h](const char *contents) {
            return h.deb(DebBuilder("doc"_s).architecture("all"_s).contents(contents));
        };
        const QString first = all("first");
        QVERIFY(h.step([&] { h.shell.addPackages(QStringList{first} + h.debs("foo"), {}); }));
        const QByteArray bytes = readFile(first);
        QVERIFY(h.step([&] { h.shell.addPackages({all("second, which is longer")}, {}); }));
        QVERIFY(h.step([&] { h.shell.removePackages({h.find("foo"_s)}); }));
        for (const RestorePoint &point : RepositoryHistory::read(h.repoPath()).points)
            for (const PackageChange &change : point.changes)
                if (change.kind != PackageChange::Added && change.architecture == "amd64"_s)
                    QVERIFY(h.step([&] { h.shell.bringBack(point.number, change); }));
        QVERIFY(h.holds("doc 1.0 main amd64,doc 1.0 main i386,foo 1.0 main amd64"_s));
        QCOMPARE(h.inPool("doc"_s), bytes);
        QVERIFY(h.questions.isEmpty() && h.collisions.isEmpty());
    }

    void clientsFollow()
    {
        VELT_NEED_TOOL("apt-get");
        HistoryHarness h;
        h.choice = PackageReplacementRules::ReplaceThis;
        h.info.signWith = true;
        QVERIFY(h.step([&] { h.shell.changeRepo(h.repoPath(), h.info); }));
        QVERIFY(h.step([&] { h.shell.addPackages(h.debs("foo"), {}); }));
        const QByteArray old = h.inPool("foo"_s);
        QVERIFY(h.step([&] { h.shell.addPackages(h.debs("foo", "2.0"), {}); }));
        const QString apt = R"(mkdir -p apt/lists/partial apt/cache/archives/partial apt/got; touch apt/status
            gpg --export %1 >apt/key.gpg
            echo "deb [signed-by=$PWD/apt/key.gpg] copy:$PWD/repo dogwood main" >apt/list
            set -- -qq -o Dir::State=$PWD/apt -o Dir::State::status=$PWD/apt/status -o Dir::Cache=$PWD/apt/cache \
                -o Dir::Etc::sourcelist=$PWD/apt/list -o Dir::Etc::sourceparts=- -o APT::Sandbox::User= \
                -o APT::Architecture=amd64 -o APT::Architectures=amd64
            cd apt/got; rm -f *; apt-get "$@" update 2>&1; apt-get "$@" download foo 2>&1; ls)"_s.arg(m_key);
        QCOMPARE(runShell(apt, h.folder.path()).trimmed(), "foo_2.0_amd64.deb"_s);
        // apt takes no Release file that is older than the one it has, so going back must write a new one.
        QTest::qWait(1100);
        QVERIFY(h.goBack(h.states.lastKey()));
        QCOMPARE(runShell(apt, h.folder.path()).trimmed(), "foo_1.0_amd64.deb"_s);
        QCOMPARE(readFile(h.at("apt/got/foo_1.0_amd64.deb")), old);
    }

    /** Each of so many sequences of jobs is undone to its start: VELT_SEQUENCES, by default few. */
    void randomSequencesAreUndone()
    {
        const int sequences = qEnvironmentVariableIsSet("VELT_SEQUENCES")
                                  ? qEnvironmentVariableIntValue("VELT_SEQUENCES")
                                  : 3;
        constexpr int MostJobs = 6;
        const auto seed = qEnvironmentVariableIntValue("VELT_SEED");
        for (int sequence = 0; sequence < sequences; ++sequence) {
            std::mt19937 random(static_cast<unsigned>(seed + sequence));
            const auto below
                = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
            HistoryHarness h("amd64 i386"_s);
            h.choice = PackageReplacementRules::ReplaceThis;
            QString jobs;
            const auto addSome = [&] {
                QStringList files;
                for (int count = 1 + below(3); count > 0; --count) {
                    DebBuilder deb(QChar('a' + below(5)));
                    deb.version(QString::number(1 + below(3))).contents(noise(1 + below(3000)));
                    const QStringList places = h.info.architectures.split(u' ') + QStringList{"all"_s};
                    deb.architecture(places.at(below(places.size())));
                    files << h.deb(deb);
                    jobs += " +"_s + files.last().section(u'/', -1);
                }
                const bool isSigned = below(4) == 0;
                h.step([&] {
                    h.shell.addPackages(files, {QString(), isSigned, isSigned ? m_key : QString()});
                });
            };
            addSome();
            const QString start = stateOf(h.repoPath());
            const int first = RepositoryHistory::newestNumber(h.repoPath());
            for (int count = 1 + below(MostJobs); count > 0; --count) {
                const QList<PackageInfoPtr> packages = h.shell.packages();
                const int kind = below(8);
                jobs += u' ' + QString::number(kind);
                if (kind < 4) {
                    addSome();
                } else if (kind < 6 && !packages.isEmpty()) {
                    h.step(
                        [&] { h.shell.removePackages(packages.mid(below(packages.size()), 1 + below(3))); });
                } else if (kind == 6) {
                    h.info.codename = QChar('p' + below(5));
                    h.info.contents = below(2) == 0;
                    h.step([&] { h.shell.changeRepo(h.repoPath(), h.info, {}, true); });
                } else {
                    h.info.architectures = below(2) == 0 ? "amd64"_s : "amd64 i386"_s;
                    h.step([&] { h.shell.changeRepo(h.repoPath(), h.info); });
                }
                // Now and then somebody goes back in between.
                if (below(5) == 0 && RepositoryHistory::newestNumber(h.repoPath()) > first)
                    h.step([&] { h.shell.goBack(RepositoryHistory::newestKept(h.repoPath())); });
            }
            const QByteArray what = "sequence %1:%2"_s.arg(QString::number(seed + sequence), jobs).toUtf8();
            for (int number = RepositoryHistory::newestNumber(h.repoPath()); number > first; --number)
                QVERIFY2(h.goBack(number) && (number == first + 1 || h.isBefore(number)), what.constData());
            h.states.insert(0, start);
            QVERIFY2(h.isBefore(0), what.constData());
        }
    }
};

VELT_TEST_MAIN(TestGoBack, QCoreApplication)
#include "tst_goback.moc"
