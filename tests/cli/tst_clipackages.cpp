// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cliharness.h"
#include "support/standin.h"
#include "support/testkeys.h"

#include <csignal>

namespace
{
/** Names that a shell, a parser of options or a list would take for something else. */
const QStringList Hostile{"--help"_s, "a b;rm *"_s, "$(id)"_s, "x\ny"_s, "../../etc"_s, "[a"_s, "-"_s};
} // namespace

/** The commands that change packages. */
class TestCliPackages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("debsig-verify");
    }

    void namesOfFiles()
    {
        CliHarness h;
        h.create();
        const QString file = h.deb("plain");
        const QString blank = h.deb(DebBuilder("blank"_s).fileName("a b.deb"_s));
        const QString odd = h.deb(DebBuilder("odd"_s).fileName("x\ny.deb"_s));
        const QString option = h.deb(DebBuilder("option"_s).fileName("--yes.deb"_s));
        // One a line, with names that are relative to the folder the program runs in.
        const QByteArray lines
            = file.toUtf8() + "\n\n" + QDir(h.folder.path()).relativeFilePath(blank).toUtf8();
        const CliResult added = h.json("add", {"-"_s}, lines);
        QVERIFY2(added.code == 0 && added.errors.isEmpty(), added.said());
        QCOMPARE(listed(added.json()["added"_s]), "blank 1.0 amd64,plain 1.0 amd64"_s);
        const QJsonObject one = added.json()["added"_s].toArray().at(0).toObject();
        QCOMPARE(one.keys(), "architecture|component|filename|package|section|sha256|version"_list);
        QVERIFY(QFileInfo::exists(h.repo() + u'/' + one["filename"_s].toString()));
        QFile pooled(h.repo() + u'/' + one["filename"_s].toString());
        QCryptographicHash sum(QCryptographicHash::Sha256);
        QVERIFY(pooled.open(QIODevice::ReadOnly) && sum.addData(&pooled));
        QCOMPARE(one["sha256"_s].toString().toLatin1(), sum.result().toHex());
        QCOMPARE(h.json("add", {"-"_s}, odd.toUtf8() + '\0' + QFileInfo(option).path().toUtf8()).code, 0);
        QVERIFY(h.holds("blank 1.0 amd64,odd 1.0 amd64,option 1.0 amd64,plain 1.0 amd64"_s));
        QVERIFY(h.json("add", {"-"_s}).errorCodes() == "nothing"_s);

        const CliResult found = h.json("list", {"[op]*"_s});
        QCOMPARE(listed(QJsonDocument::fromJson(found.output).array()),
                 "odd 1.0 amd64,option 1.0 amd64,plain 1.0 amd64"_s);
        for (const QString &name : Hostile) {
            const CliResult none = h.json("list", {"--"_s, name});
            QVERIFY2(none.code == 0 && QJsonDocument::fromJson(none.output).array().isEmpty(),
                     none.output.constData());
            for (const char *command : {"remove", "sign", "check", "add", "import", "fetch"}) {
                if (name == u'-' && QByteArray(command) == "add")
                    continue;
                const CliResult refused = h.json(command, {"--"_s, name});
                QVERIFY2(refused.code == 3, qPrintable(QLatin1String(command) + u' ' + name));
                QVERIFY2(!refused.errors.isEmpty() && !refused.errorCodes().contains("no JSON"_s),
                         refused.said());
            }
        }
        QVERIFY(h.holds("blank 1.0 amd64,odd 1.0 amd64,option 1.0 amd64,plain 1.0 amd64"_s));

        // What changes packages takes names alone: a pattern could mean more than the user knows of.
        const CliResult removed = h.json("remove", {"o*"_s, "plain=2.0"_s, "odd"_s, "blank=1.0"_s});
        QVERIFY(removed.code == 1 && removed.errorCodes() == "unknown unknown"_s);
        QCOMPARE(listed(removed.json()["removed"_s]), "blank 1.0 amd64,odd 1.0 amd64"_s);
        QVERIFY(h.holds("option 1.0 amd64,plain 1.0 amd64"_s));
    }

    void whatIsThereAlready()
    {
        CliHarness h;
        h.create();
        const QString middle = h.deb("foo", "2.0");
        QCOMPARE(h.json("add", {middle}).code, 0);
        const QString newer = h.deb("foo", "3.0");
        const QString older = h.deb("foo", "1.0");
        const auto add = [&h](const QString &rule, const QString &file) {
            const CliResult result = h.json("add", {"--on-collision"_s, rule, file});
            return "%1 %2 %3"_s.arg(result.code)
                .arg(listed(result.json()["replaced"_s]), result.errorCodes());
        };
        QCOMPARE(add("fail"_s, newer), "3  refused"_s);
        QCOMPARE(add("none"_s, newer), "0  "_s);
        QCOMPARE(add("older"_s, newer), "0  "_s);
        QVERIFY(h.holds("foo 2.0 amd64"_s));
        QCOMPARE(add("newer"_s, older), "0  "_s);
        QCOMPARE(add("newer"_s, newer), "0 foo 3.0 amd64 "_s);
        QCOMPARE(add("older"_s, older), "0 foo 1.0 amd64 "_s);
        QCOMPARE(add("all"_s, middle), "0 foo 2.0 amd64 "_s);
        QVERIFY(h.holds("foo 2.0 amd64"_s));
        QCOMPARE(add("sometimes"_s, newer), "2  usage"_s);

        // What is refused is told with its file, and the others go in.
        writeFile(h.at("torn.deb"_s), "torn");
        const CliResult mixed = h.json("add", {"torn.deb"_s, newer, h.deb("bar")});
        QCOMPARE(mixed.code, 1);
        QCOMPARE(listed(mixed.json()["added"_s]), "bar 1.0 amd64"_s);
        QStringList files;
        for (const QJsonObject &error : mixed.jsonErrors())
            files.append(error["file"_s].toString());
        QCOMPARE(files, QStringList({h.at("torn.deb"_s), newer}));
        QCOMPARE(h.json("add", {"torn.deb"_s}).code, 3);
        QVERIFY(h.holds("bar 1.0 amd64,foo 2.0 amd64"_s));
    }

    void anotherJobHoldsTheLock()
    {
        CliHarness h;
        h.create();
        const QString file = h.deb("foo");
        QProcess holder;
        holder.start("flock"_s, {"-F"_s, h.repo() + "/db"_s, "sh"_s, "-c"_s, "echo held; exec sleep 600"_s});
        QVERIFY(holder.waitForReadyRead());
        QElapsedTimer clock;
        clock.start();
        const CliResult refused = h.json("add", {file});
        QVERIFY2(refused.code == 4 && refused.errorCodes() == "locked"_s, refused.said());
        QCOMPARE(h.json("list", {}).code, 0);
        // In the middle of a job the indices are no basis for anything.
        writeFile(h.repo() + "/db/velt-admin-repo.export-owed"_s, {});
        for (const char *command : {"remove", "check"}) {
            const CliResult early = h.json(command, {"foo"_s});
            QVERIFY2(early.code == 4 && early.errorCodes() == "locked"_s, early.said());
        }
        clock.restart();
        const CliResult late = h.json("add", {"--wait"_s, "1"_s, file});
        QVERIFY(late.code == 4 && clock.elapsed() >= 1000 && late.errorCodes() == "locked"_s);
        QProcess waiting;
        h.start(&waiting, {"add"_s, "--wait"_s, "60"_s, h.repo(), file});
        QVERIFY(!waiting.waitForFinished(500));
        holder.kill();
        QVERIFY(holder.waitForFinished());
        QCOMPARE(CliHarness::resultOf(&waiting).code, 0);
        QVERIFY(h.holds("foo 1.0 amd64"_s));
    }

    /** What is selected for removal is what the user has named, whatever comes into its place meanwhile. */
    void replacedMeanwhile()
    {
        CliHarness h;
        h.create();
        QCOMPARE(h.json("add", {h.deb("foo"), h.deb("bar")}).code, 0);
        const QString newer = h.deb("foo", "2.0");
        QProcess holder;
        holder.start("flock"_s, {"-F"_s, h.repo() + "/db"_s, "sh"_s, "-c"_s, "echo held; exec sleep 600"_s});
        QVERIFY(holder.waitForReadyRead());
        QProcess waiting;
        h.start(&waiting, {"remove"_s, "--json"_s, "--wait"_s, "60"_s, h.repo(), "foo=1.0"_s, "bar"_s});
        QVERIFY(!waiting.waitForFinished(1000));
        QCOMPARE(h.reprepro({"includedeb"_s, "dogwood"_s, newer}).left(6), "Export"_s);
        holder.kill();
        QVERIFY(holder.waitForFinished());
        const CliResult removed = CliHarness::resultOf(&waiting);
        QVERIFY2(removed.code == 1 && removed.errorCodes() == "unknown"_s, removed.said());
        QVERIFY(h.holds("foo 2.0 amd64"_s));

        // The indices lack what has come since, and reprepro would remove by the name alone.
        writeFile(h.repo() + "/conf/options"_s, "export never\n");
        h.reprepro({"includedeb"_s, "dogwood"_s, h.deb("foo", "3.0")});
        const CliResult old = h.json("list", {});
        QVERIFY2(old.code == 0 && old.errorCodes() == "outdated"_s, old.said());
        const CliResult stale = h.json("remove", {"foo=2.0"_s});
        QVERIFY2(stale.code == 3 && stale.errorCodes().contains("error"_s), stale.said());
        QVERIFY(h.reprepro({"list"_s, "dogwood"_s}).contains("foo 3.0"_s));
    }

    /** The terminal sends SIGINT to the whole foreground group: no run of reprepro may be torn by it. */
    void stoppedByTheTerminal()
    {
        CliHarness h;
        h.create();
        // A run of reprepro takes 25 packages and longer than half a second.
        const StandIn slow(h.folder.path(), "reprepro", "sleep 0.6");
        constexpr int Files = 80;
        int told = 0;
        for (const QString &round : "p|q"_list) {
            const QString debs = h.at("debs "_s + round);
            for (int i = 0; i < Files; ++i)
                DebBuilder(round + QString::number(100 + i)).build(debs);
            QProcess adding;
            h.start(&adding, {"add"_s, "--json"_s, h.repo(), debs});
            const QString pool = h.repo() + "/pool/main/"_s + round;
            QVERIFY(QTest::qWaitFor([&pool] { return QFileInfo::exists(pool); }, 30000));
            const auto group = static_cast<pid_t>(adding.processId());
            for (int i = 0; i < 3; ++i)
                ::kill(-group, SIGINT);
            const CliResult stopped = CliHarness::resultOf(&adding);
            QCOMPARE(stopped.code, 5);
            QCOMPARE(stopped.errors, QByteArray());
            const int added = stopped.json()["added"_s].toArray().size();
            QVERIFY(added > 0 && added < Files);
            told += added;
            const QString inside = h.reprepro({"list"_s, "dogwood"_s});
            QCOMPARE(inside.count(u'\n'), told);
            QStringList lines;
            for (const QString &line : inside.split(u'\n', Qt::SkipEmptyParts))
                lines.append(line.section(u' ', 1) + " amd64"_s);
            lines.sort();
            QVERIFY(h.holds(lines.join(u',')));
        }
    }

    void keysAndSignatures()
    {
        CliHarness h;
        h.create();
        QCOMPARE(h.run({"keys"_s, "--json"_s}).json()["keys"_s], QJsonValue(QJsonArray()));
        const QString good = TestKeys::make("Release key ü <r@example.org>"_s);
        const QString old = TestKeys::makeExpired("old"_s);
        const QJsonArray keys = h.run({"keys"_s, "--json"_s}).json()["keys"_s].toArray();
        QCOMPARE(keys.size(), 2);
        QCOMPARE(keys.at(0)["fingerprint"_s].toString(), good);
        QCOMPARE(keys.at(0)["user"_s].toString(), "Release key ü <r@example.org>"_s);
        QCOMPARE(keys.at(0)["state"_s].toString() + keys.at(1)["state"_s].toString(), "usableexpired"_s);
        QVERIFY(keys.at(0)["expires"_s].isNull()
                && keys.at(1)["expires"_s].toString().startsWith("2020-01-02T"_s));

        h.json("add", {h.deb("foo"), h.deb("bar")});
        QCOMPARE(h.json("sign", {"foo"_s}).errorCodes(), "key"_s);
        QCOMPARE(h.json("sign", {"foo"_s, "--key"_s, old}).code, 3);
        QCOMPARE(h.json("sign", {"foo"_s, "--key"_s, "0123456789ABCDEF"_s}).errorCodes(), "key"_s);
        const CliResult signedOne = h.json("sign", {"foo"_s, "nobody"_s, "--key"_s, good});
        QVERIFY2(signedOne.code == 1 && signedOne.errorCodes() == "unknown"_s, signedOne.said());
        const QJsonArray packages = signedOne.json()["signed"_s].toArray();
        QCOMPARE(listed(packages), "foo 1.0 amd64"_s);
        QVERIFY(TestKeys::verifies(h.repo() + u'/' + packages.at(0)["filename"_s].toString(), good));
        const CliResult added = h.json("add", {"--sign-packages"_s, good, h.deb("baz")});
        const QString file = added.json()["added"_s].toArray().at(0)["filename"_s].toString();
        QVERIFY(added.code == 0 && TestKeys::verifies(h.repo() + u'/' + file, good));
        QVERIFY(h.holds("bar 1.0 amd64,baz 1.0 amd64,foo 1.0 amd64"_s));

        // The repository itself is signed, which gpg judges.
        const CliResult changed = h.json("change", {"sign=yes"_s});
        QVERIFY2(changed.code == 0, changed.said());
        TestKeys::gpg({"--verify"_s, h.repo() + "/dists/dogwood/InRelease"_s});
    }
};

VELT_TEST_MAIN(TestCliPackages, QCoreApplication)
#include "tst_clipackages.moc"
