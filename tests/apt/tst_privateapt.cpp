// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptfetch.h"
#include "apt/privateapt.h"
#include "apt/sourceoptions.h"
#include "support/testenvironment.h"

namespace
{
/** A stand-in fetches one list, and knows of no other. */
const QByteArray Answers = "case $* in *update*) : >\"${APT_CONFIG%/*}\"/lists/x;; esac\n"
                           "echo 'x|http://h|x|amd64|main'\n";
} // namespace

/** apt's state of our own for chosen sources; the program apt-get is a stand-in here. */
class TestPrivateApt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void messages()
    {
        const auto row = [](const char *said, const char *expected) {
            QCOMPARE(AptFetch::problems(QString::fromLatin1(said)).join(u'|'), QString::fromLatin1(expected));
        };
        row("W: Target Packages (main/binary-amd64/Packages) is configured multiple times\nN: Skipping\n",
            "");
        row("E: OpenPGP signature verification failed: http://h x InRelease: no\nE: GPG error: http://i x "
            "InRelease: "
            "The following signatures were invalid: EXPKEYSIG 12\n",
            "The source http://h x InRelease is not trusted: its signature is missing or cannot be checked.|"
            "The source http://i x InRelease is not trusted: its signature is missing or cannot be checked.");
        row("W: Failed to fetch http://h/a  Connection timed out\nW: Failed to fetch http://h/a  Connection "
            "timed "
            "out\nE: Failed to fetch http://h/b  404  Not Found\n",
            "The server could not be reached: http://h/a.|A part of the source is missing: http://h/b.");
        row("E: The method driver /usr/lib/apt/methods/ftp could not be found.\n"
            "E: Failed to fetch ftp://h/dists/x/InRelease  \n",
            "apt of this machine cannot use addresses with \"ftp:\".|"
            "The source could not be fetched: ftp://h/dists/x/InRelease.");
    }

    void trustOfTheSystem()
    {
        SourceOptions options;
        options.addLines("# deb [trusted=yes] http://off x main\n"
                         "deb [ arch=amd64 signed-by=/k.gpg ] http://one/ x main\ndeb http://plain x main\n"
                         "deb-src [trusted=yes] http://src x main\n"_s);
        options.addStanzas(
            "Types: deb\nURIs: http://two http://three/\n# a comment\nSuites: x\n y\nSigned-By: /a.gpg\n"
            "Trusted: yes\n\nURIs: http://four\nSuites: x\nSigned-By:\n -----BEGIN PGP\n"_s);
        const QStringList unchanged
            = "http://off x main|http://plain x main|http://src x main|"
              "http://one y main|http://four x main|[trusted=no] http://one x main"_list;
        for (const QString &source : unchanged)
            QCOMPARE(options.completed(source), source);
        QCOMPARE(options.completed("http://one x main"_s), "[signed-by=/k.gpg] http://one x main"_s);
        QCOMPARE(options.completed("[arch=i386,amd64] http://three y main"_s),
                 "[arch=i386,amd64 signed-by=/a.gpg trusted=yes] http://three y main"_s);
    }

    void nothingIsSmuggledIn()
    {
        VELT_NEED_TOOL("apt-config");
        const PrivateApt apt({"http://h x main\ndeb http://other x main"_s},
                             {"i386\";APT::Update::Pre-Invoke::\"false"_s, "amd64"_s});
        const QString config = apt.environment().first().section(u'=', 1);
        const QByteArray text = readFile(config);
        QVERIFY(text.contains("Architecture \"amd64\"") && !text.contains("Pre-Invoke"));
        const QDir folder = QFileInfo(config).dir();
        const QString list = folder.filePath(folder.entryList({"*.list"_s}).value(0));
        QCOMPARE(readFile(list), QByteArray("deb http://h x main deb http://other x main\n"));
    }

    void listsServeForAnHour()
    {
        VELT_NEED_TOOL("apt-config");
        const QTemporaryDir folder;
        const QString log = folder.filePath("runs"_s);
        writeScript(
            folder.filePath("bin/apt-get"_s),
            "#!/bin/sh\necho \"$*\" >>" + log.toLocal8Bit() + "\necho dlstatus:1:42.0:x\n" + Answers
                + "grep -q '^deb http://h x main$' \"$(dirname \"$APT_CONFIG\")\"/*.list || exit 1\n");
        const ScopedVariable behind("PATH", ScopedVariable::pathBehind(folder.filePath("bin"_s)));
        const auto updates = [&log] { return readFile(log).count("update"); };
        int percent = 0;
        const auto fetch = [&percent](PrivateApt &apt, bool stop = false) {
            return apt.fetch([stop] { return stop; }, [&percent](int value) { percent = value; });
        };
        const auto apt = std::make_unique<PrivateApt>("http://h x main"_list, "amd64"_list);
        QVERIFY(apt->isValid());
        QVERIFY(fetch(*apt).usable);
        QCOMPARE(percent, 42);
        PrivateApt again({"http://h x main"_s}, {"amd64"_s});
        QVERIFY(fetch(again).usable);
        QCOMPARE(updates(), 1);
        // Other architectures have other lists, and what was stopped or failed counts for nothing.
        PrivateApt other({"http://h x main"_s}, {"i386"_s});
        const auto stopped = fetch(other, true);
        QVERIFY(!stopped.usable && stopped.problems.isEmpty());
        writeScript(folder.filePath("bin/apt-get"_s),
                    "#!/bin/sh\necho update >>" + log.toLocal8Bit() + "\nexit 100\n");
        for (int i = 0; i < 2; ++i) {
            const auto failed = fetch(other);
            QVERIFY(!failed.usable && failed.problems.size() == 1);
        }
        QVERIFY(updates() >= 3);
    }

    void listsOfAFolderServeUntilItChanges()
    {
        VELT_NEED_TOOL("apt-config");
        const QTemporaryDir folder;
        const QString log = folder.filePath("runs"_s);
        writeScript(folder.filePath("bin/apt-get"_s),
                    "#!/bin/sh\necho \"$*\" >>" + log.toLocal8Bit() + '\n' + Answers);
        const ScopedVariable behind("PATH", ScopedVariable::pathBehind(folder.filePath("bin"_s)));
        const QString release = folder.filePath("dists/x/InRelease"_s);
        for (const char *form : {"[trusted=yes] file:%1 x main", "copy://%1/ x main", "file:%1 dists/x/"}) {
            PrivateApt apt({QString::fromLatin1(form).arg(folder.path()), "http://h x main"_s}, {"amd64"_s});
            const auto updates = [&] {
                QFile::remove(log);
                const auto outcome = apt.fetch({}, {});
                return outcome.usable ? readFile(log).count("update") : -1;
            };
            QFile::remove(release);
            QVERIFY(updates() == 1 && updates() == 1);
            writeFile(release, "a");
            QVERIFY(updates() == 1 && updates() == 0);
            const QByteArray lists = apt.fetch({}, {}).lists;
            QCOMPARE(apt.fetch({}, {}).lists, lists);
            writeFile(release, "b");
            QVERIFY(updates() == 1 && updates() == 0 && apt.fetch({}, {}).lists != lists);
        }
    }
};

VELT_TEST_MAIN(TestPrivateApt, QCoreApplication)
#include "tst_privateapt.moc"
