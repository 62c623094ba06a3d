// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cliharness.h"
#include "cli/commandtable.h"

/** The commands about a repository itself, and what all commands have in common. */
class TestCliRepository : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    /** Every command of the table does something, even if it only says why it cannot, and explains itself. */
    void everyCommandIsThere()
    {
        const CliHarness h;
        for (const CommandDescription &command : CommandTable::commands()) {
            QStringList words{QLatin1String(command.name)};
            for (int i = 0; i < command.fewest; ++i)
                words.append("/no/such/place"_s);
            const CliResult result = h.run(words);
            QVERIFY2(result.code >= 0 && result.code < 6, command.name);
            QVERIFY2(result.code == 0 || !result.errors.isEmpty(), command.name);
            const CliResult help = h.run({QLatin1String(command.name), "--help"_s});
            QVERIFY2(help.code == 0 && help.output.contains(command.synopsis().toUtf8()), command.name);
            if (command.fewest > 0)
                QCOMPARE(h.run(words.mid(0, 1)).code, 2);
            QStringList options;
            for (const CommandOption &option : CommandTable::commonOptions() + command.options)
                options.append(QLatin1String(option.name));
            QVERIFY2(options.removeDuplicates() == 0, command.name);
        }
        for (const QStringList &wrong :
             {QStringList(), "nonsense"_list, "list"_list, "keys|x"_list, "list|/x|--wait|soon"_list})
            QCOMPARE(h.run(wrong).code, 2);
    }

    void made()
    {
        CliHarness h;
        h.create(
            "--architectures|amd64,i386|--origin|Us: all|--label|Our own|--version|1.6|--description|Of ours|--contents|.xz,udebs|--valid-for|2m"_list);
        QVERIFY(h.holds(QString()));
        const QJsonObject shown = h.json("show", {}).json();
        QCOMPARE(shown["path"_s].toString(), h.repo());
        for (const auto &[field, value] : {std::pair("codename", "dogwood"),
                                           {"suite", "stable"},
                                           {"version", "1.6"},
                                           {"origin", "Us: all"},
                                           {"label", "Our own"},
                                           {"description", "Of ours"}})
            QCOMPARE(shown[QLatin1String(field)].toString(), QLatin1String(value));
        QCOMPARE(shown["components"_s].toArray(), QJsonArray({"main"_s, "contrib"_s}));
        QCOMPARE(shown["signed"_s], QJsonValue(false));
        QCOMPARE(shown["contents"_s].toArray(), QJsonArray({".xz"_s, "udebs"_s}));
        QCOMPARE(shown["validFor"_s].toInt(), 62);
        QCOMPARE(shown["packages"_s].toObject().keys(), "amd64|i386"_list);
        const QByteArray release = readFile(h.repo() + "/dists/dogwood/Release"_s);
        QVERIFY(release.contains("Origin: Us: all\n") && release.contains("Label: Our own\n"));

        const QString other = h.at("other"_s);
        const QStringList good = {"create"_s, other, "--codename"_s, "x"_s, "--components"_s, "main"_s};
        const QStringList whole = good + "--architectures|amd64"_list;
        for (const QStringList &bad : {good,
                                       good + "--architectures|all"_list,
                                       whole + "--codename|a;b"_list,
                                       whole + "--codename|-x"_list,
                                       whole + "--suite|stable\n"_list,
                                       whole + "--version|1\nLog: x\n ./x.sh"_list,
                                       whole + "--label|mine # or not"_list,
                                       whole + "--sign-key|!x"_list,
                                       whole + "--contents|.gz,x"_list,
                                       whole + "--origin|"_list}) {
            const CliResult refused = h.run(bad + "--json"_list);
            QCOMPARE(refused.code, 2);
            QCOMPARE(refused.errorCodes(), "usage"_s);
            QVERIFY(!QFileInfo::exists(other));
        }
        // Nobody is there who could agree to a deletion.
        writeFile(other + "/letter"_s, "dear");
        const CliResult refused = h.run(whole + "--json"_list);
        QVERIFY(refused.code == 3 && refused.errorCodes() == "question exists"_s);
        QCOMPARE(readFile(other + "/letter"_s), QByteArray("dear"));
        QCOMPARE(h.run(whole + "--yes"_list).code, 3);
        QCOMPARE(readFile(other + "/letter"_s), QByteArray("dear"));
        QCOMPARE(h.run(whole + "--delete-contents"_list).code, 0);
        QVERIFY(!QFileInfo::exists(other + "/letter"_s));
        for (const char *command : {"show", "list", "check", "add"}) {
            const CliResult none = h.run({QLatin1String(command), "--json"_s, h.at("none"_s), "x.deb"_s});
            QVERIFY2(none.code == (QByteArray(command) == "show" ? 2 : 3), none.said());
            QVERIFY(!none.errorCodes().isEmpty() && !none.errorCodes().contains("no JSON"_s));
        }
    }

    void output()
    {
        CliHarness h;
        h.create();
        QCOMPARE(h.run({"add"_s, h.repo(), h.deb("foo")}).code, 0);
        for (const QString &option : "--json|--quiet"_list) {
            QProcess process;
            process.setStandardOutputFile("/dev/full"_s);
            h.start(&process, {"list"_s, option, h.repo()});
            const CliResult full = CliHarness::resultOf(&process);
            QVERIFY2(full.code == 3 && !full.errors.isEmpty(), full.said());
        }
        // An operand is no option, and an option counts although another one is wrong.
        const CliResult named = h.run({"add"_s, h.repo(), "--"_s, "--json"_s, "x.deb"_s});
        QVERIFY2(named.code == 3 && !named.errors.startsWith('{'), named.said());
        QCOMPARE(h.run({"list"_s, h.repo(), "--none"_s, "--json"_s}).errorCodes(), "usage"_s);
        QVERIFY(!h.run({"list"_s, h.repo(), "--none"_s, "--"_s, "--json"_s}).errors.startsWith('{'));
    }

    /** A script that says yes to everything runs nobody's programs. */
    void programsOfTheRepository()
    {
        CliHarness h;
        h.create();
        const QString conf = h.repo() + "/conf/distributions"_s;
        writeFile(conf, readFile(conf).trimmed() + "\nLog: log\n " + h.at("run.sh"_s).toUtf8() + "\n");
        writeFile(h.at("run.sh"_s), "#!/bin/sh\ntouch '" + h.at("ran"_s).toUtf8() + "'\n");
        QFile::setPermissions(h.at("run.sh"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        const QString file = h.deb("foo");
        const CliResult refused = h.json("add", {"--yes"_s, file});
        QVERIFY2(refused.code == 3 && refused.errorCodes().startsWith("question"_s), refused.said());
        QVERIFY(!QFileInfo::exists(h.at("ran"_s)));
        const CliResult trusted = h.json("add", {"--trust-settings"_s, file});
        QVERIFY2(trusted.code == 0 && QFileInfo::exists(h.at("ran"_s)), trusted.said());
    }

    void changed()
    {
        CliHarness h;
        h.create("--architectures|amd64,i386"_list);
        const QString conf = h.repo() + "/conf/distributions"_s;
        const QString foreign = h.deb(DebBuilder("baz"_s).architecture("i386"_s));
        QCOMPARE(h.run({"add"_s, h.repo(), h.deb("foo"), foreign}).code, 0);
        const QString all = "baz 1.0 i386,foo 1.0 amd64"_s;

        const QByteArray before = readFile(conf);
        for (const QStringList &bad : {"colour=red"_list,
                                       "suite"_list,
                                       "suite=a|suite=b"_list,
                                       "codename="_list,
                                       "sign=perhaps"_list,
                                       "label=a\nb"_list,
                                       "version=1#2"_list,
                                       "description=!x"_list,
                                       "sign-key="_list,
                                       "valid-for=soon"_list,
                                       "path="_list,
                                       "architectures=all"_list,
                                       "components=a/b"_list}) {
            const CliResult refused = h.json("change", bad);
            QVERIFY2(refused.code == 2 && refused.errorCodes() == "usage"_s, refused.said());
        }
        // What would delete packages, or somebody's files, needs an agreement.
        QVERIFY(h.json("change", {"architectures=amd64"_s}).code == 3);
        QVERIFY(h.json("change", {"codename=elm"_s, "--without-packages"_s}).code == 3);
        writeFile(h.at("taken/letter"_s), "dear");
        QVERIFY(h.json("change", {"path=taken"_s, "--yes"_s}).code == 3);
        QCOMPARE(readFile(conf), before);
        QVERIFY(h.holds(all));

        writeFile(conf, before + "SignWith: default\nNotAutomatic: yes\n");
        QVERIFY2(h.json("change", {"sign=no"_s}).code == 3, "a line that goes is told");
        writeFile(conf, before + "NotAutomatic: yes\n");
        const CliResult described
            = h.json("change", {"suite=testing"_s, "label=Ours"_s, "origin=Us"_s, "contents=yes"_s});
        QVERIFY2(described.code == 0, described.said());
        QCOMPARE(h.json("show", {}).json()["otherLines"_s].toArray(), QJsonArray({"NotAutomatic: yes"_s}));
        QCOMPARE(described.json()["codename"_s].toString(), "dogwood"_s);
        QVERIFY(readFile(h.repo() + "/dists/dogwood/Release"_s).contains("Label: Ours\nSuite: testing\n"));
        // The packages go along to a new name, and so do the fields that were not given.
        QCOMPARE(h.json("change", {"codename=elm"_s}).code, 0);
        QVERIFY(h.holds(all, "elm"_s));
        QVERIFY(readFile(h.repo() + "/dists/elm/Release"_s).startsWith("Origin: Us\nLabel: Ours\n"));

        const CliResult smaller = h.json("change", {"architectures=amd64"_s, "label="_s, "--yes"_s});
        QVERIFY2(smaller.code == 0, smaller.said());
        QCOMPARE(listed(smaller.json()["removed"_s]), "baz 1.0 i386"_s);
        QVERIFY(h.holds("foo 1.0 amd64"_s, "elm"_s) && !readFile(conf).contains("Label"));

        QCOMPARE(h.run({"change"_s, h.repo(), "path=moved here"_s}).code, 0);
        QVERIFY(!QFileInfo::exists(h.repo()));
        const CliResult moved = h.run({"list"_s, h.at("moved here"_s), "--json"_s});
        QCOMPARE(listed(QJsonDocument::fromJson(moved.output).array()), "foo 1.0 amd64"_s);
        QVERIFY(QDir().rename(h.at("moved here"_s), h.repo()) && h.holds("foo 1.0 amd64"_s, "elm"_s));
    }
};

VELT_TEST_MAIN(TestCliRepository, QCoreApplication)
#include "tst_clirepository.moc"
