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

    /** What --dry-run prints is what the command then does; it changes no byte itself. */
    void dryRunsTellAndChangeNothing()
    {
        CliHarness h;
        h.create();
        const QString old = h.deb("foo", "1.0");
        const QString newer = h.deb("foo", "2.0");
        const QString other = h.deb("bar");
        const QString torn = h.at("torn.deb"_s);
        writeFile(torn, "torn");
        QCOMPARE(h.json("add", {old}).code, 0);
        // "exit code: package-action" of each row, with + when it is on, and whether anything has changed on the disk.
        const auto dry = [&h](const char *command, const QStringList &words) -> QString {
            const QByteArray before = treeOf(h.repo());
            const CliResult result = h.json(command, QStringList{"--dry-run"_s} + words);
            QString text = QString::number(result.code) + u':';
            const QJsonArray rows = result.json()["rows"_s].toArray();
            for (const QJsonValue &row : rows)
                text += u' ' + row["package"_s].toString() + u'-' + row["action"_s].toString()
                        + (row["selected"_s].toBool() ? "+"_s : QString());
            return text + (treeOf(h.repo()) == before ? QString() : " CHANGED"_s) + result.errorCodes();
        };
        QCOMPARE(dry("add", {other}), "0: bar-add+"_s);
        QCOMPARE(dry("add", {other, newer, torn}), "1: bar-add+ foo-replace torn.deb-refuse"_s);
        QCOMPARE(dry("add", {newer}), "3: foo-replace"_s);
        QCOMPARE(dry("add", {"--on-collision"_s, "newer"_s, newer}), "0: foo-replace+"_s);
        QCOMPARE(dry("add", {"--on-collision"_s, "older"_s, newer}), "0: foo-replace"_s);
        QCOMPARE(dry("import", {QFileInfo(newer).path(), "--on-collision"_s, "all"_s}), "0: foo-replace+"_s);
        const QString arm = h.deb(DebBuilder("arm"_s).architecture("arm64"_s));
        QCOMPARE(dry("add", {arm}), "3: arm-refuse"_s);
        QCOMPARE(dry("add", {arm, "--extend"_s}), "0: arm-add+"_s);
        QCOMPARE(dry("remove", {"foo"_s, "nothing"_s}), "1: foo-remove+unknown"_s);
        QCOMPARE(dry("change", {"label=New"_s}), "0:"_s);
        QCOMPARE(dry("change", {"codename=elm"_s, "--without-packages"_s}), "0: foo-remove+"_s);
        const CliResult change = h.run({"change"_s, h.repo(), "label=New"_s, "--dry-run"_s});
        QVERIFY2(change.code == 0 && change.output.contains("apt-get update --allow-releaseinfo-change"),
                 change.output.constData());
        // What would be older for clients is a finding.
        QCOMPARE(h.json("add", {"--on-collision"_s, "newer"_s, newer}).code, 0);
        QCOMPARE(dry("add", {"--on-collision"_s, "all"_s, old}), "1: foo-replace+"_s);
        QVERIFY(h.holds("foo 2.0 amd64"_s));
        // A general yes does not change the description.
        QCOMPARE(h.run({"add"_s, h.repo(), arm, "--yes"_s}).code, 3);
        QCOMPARE(h.json("add", {"--extend"_s, arm}).code, 0);
        QVERIFY(h.holds("arm 1.0 arm64,foo 2.0 amd64"_s));
    }

    void copiedAndMoved()
    {
        CliHarness from;
        CliHarness to;
        from.create("--architectures|amd64,i386"_list);
        to.create("--architectures|amd64,i386"_list);
        const QStringList files{from.deb(DebBuilder("app"_s).field("Depends"_s, "lib"_s)),
                                from.deb("lib"),
                                from.deb(DebBuilder("both"_s).architecture("all"_s))};
        QCOMPARE(from.json("add", files).code, 0);
        const QByteArray before = treeOf(from.repo()) + treeOf(to.repo());
        const CliResult dry = from.json("copy", {to.repo(), "app"_s, "--with-depends"_s, "--dry-run"_s});
        QVERIFY2(dry.code == 0, dry.said());
        QCOMPARE(dry.json()["rows"_s].toArray().size(), 2);
        QCOMPARE(treeOf(from.repo()) + treeOf(to.repo()), before);

        const CliResult copied = from.json("copy", {to.repo(), "app"_s, "--with-depends"_s});
        QVERIFY2(copied.code == 0, copied.said());
        QCOMPARE(listed(copied.json()["added"_s]), "app 1.0 amd64,lib 1.0 amd64"_s);
        QVERIFY(to.holds("app 1.0 amd64,lib 1.0 amd64"_s));
        // What is there already is no collision, another version is.
        QCOMPARE(from.json("copy", {to.repo(), "app"_s}).code, 0);
        QCOMPARE(from.json("copy", {to.repo(), "app"_s, "--dry-run"_s}).code, 0);
        QCOMPARE(from.json("add", {"--on-collision"_s, "newer"_s, from.deb("app", "2.0")}).code, 0);
        const CliResult refused = from.json("copy", {to.repo(), "app"_s, "--move"_s});
        QVERIFY2(refused.code == 3 && refused.errorCodes() == "refused warning"_s, refused.said());
        const CliResult moved = from.json(
            "copy", {to.repo(), "app=2.0"_s, "both"_s, "none"_s, "--move"_s, "--on-collision"_s, "newer"_s});
        QVERIFY2(moved.code == 1 && moved.errorCodes() == "unknown"_s, moved.said());
        QCOMPARE(listed(moved.json()["replaced"_s]), "app 2.0 amd64"_s);
        QCOMPARE(listed(moved.json()["moved"_s]), "app 2.0 amd64,both 1.0 amd64,both 1.0 i386"_s);
        QVERIFY(from.holds("lib 1.0 amd64"_s));
        QVERIFY(to.holds("app 2.0 amd64,both 1.0 amd64,both 1.0 i386,lib 1.0 amd64"_s));

        // Within one repository it is a job of one restore point.
        QCOMPARE(to.json("copy", {to.repo(), "lib"_s}).code, 2);
        QCOMPARE(
            to.json("copy", {to.repo(), "lib"_s, "both"_s, "--move"_s, "--component"_s, "contrib"_s}).code,
            0);
        QCOMPARE(
            to.reprepro({"-C"_s, "contrib"_s, "--list-format"_s, "${package} "_s, "list"_s, "dogwood"_s}),
            "both lib both "_s);
        QVERIFY(to.holds("app 2.0 amd64,both 1.0 amd64,both 1.0 i386,lib 1.0 amd64"_s));
        QCOMPARE(to.json("undo", {"--yes"_s}).code, 0);
        QCOMPARE(to.json("copy", {to.repo(), "lib"_s, "--component"_s, "main"_s}).errorCodes(), "nothing"_s);
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
