// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptcommands.h"
#include "apt/aptutils.h"
#include "apt/dpkgutils.h"
#include "support/testenvironment.h"

namespace
{
/** Notes what would be run, as "folder> program|argument|…", and fails. */
template <class Tool>
class Recorder : public Tool
{
public:
    bool run(const QString &program, const QStringList &arguments, const QString &folder) override
    {
        calls.append(folder + "> "_s + (QStringList{program} + arguments).join(u'|'));
        return false;
    }

    QStringList calls;
};

void askAll(AptUtils &apt, const QString &name)
{
    apt.sourcesFromPolicy();
    apt.packageRecords(name);
    apt.searchByPrefix(name);
    apt.download(name, "1:2-%2"_s, "amd64"_s, "/target"_s);
}
} // namespace

class TestAptCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyNamesReachTheTools()
    {
        const auto calls = [](const QString &name) {
            Recorder<AptUtils> apt;
            QSignalSpy errors(&apt, &ProcessUtils::error);
            askAll(apt, name);
            // Refused or failed: all but the search say that they have no answer.
            return errors.size() == 3 ? apt.calls.size() : -1;
        };
        QCOMPARE(calls("0ad"_s), 4);
        QCOMPARE(calls("libstdc++-12.x"_s), 4);
        // Packages with such names exist, yet nothing is searched for with them.
        QCOMPARE(calls("Virt"_s), 3);
        QCOMPARE(calls("a_b"_s), 3);
        const QStringList bad
            = ",-o,+a,.a,a b,a;id,a$(id),a`id`,a|b,a'b,a\\b,a\n,a\nb,a*,?a,a:i386,a=1,a/b,a%2,aж"_s.split(
                u',');
        for (const QString &name : bad)
            QVERIFY2(calls(name) == 1, qPrintable(name));

        Recorder<AptUtils> apt;
        const QStringList architectures = ",*,any=1,-a,a b"_s.split(u',');
        for (const QString &architecture : architectures)
            apt.download("foo"_s, "1"_s, architecture, QDir::tempPath());
        QCOMPARE(apt.calls, QStringList());
    }

    void downloadNames()
    {
        const AptDownload foo{"foo"_s, "1:2.0-1"_s, "amd64"_s};
        const auto accepted
            = [&foo](const QString &name) { return !AptCommands::fileOf(foo, {name + ".deb"_s}).isEmpty(); };
        const QStringList files = "foo_1%3a2.0-1_all.deb foo_1%3a2.0-1_amd64.deb"_s.split(u' ');
        QCOMPARE(AptCommands::fileOf(foo, files), files.last());
        QVERIFY(accepted("foo_1%3a2.0-1_amd64"_s) && accepted("foo_1%3a2.0-1_all"_s));
        const QStringList others = "foo_2.0-1_amd64 libfoo_1%3a2.0-1_amd64 foo_1%3a2.0-1_amd64v2 "
                                   "foo_1%3a2.0-1_i386 foo_1%3a2.0-10_amd64"_s.split(u' ');
        for (const QString &name : others)
            QVERIFY2(!accepted(name), qPrintable(name));
    }

    void noOptionReachesDpkg()
    {
        Recorder<DpkgUtils> dpkg;
        QVERIFY(!dpkg.compareVersions("--version"_s, "<<"_s, "1"_s));
        QVERIFY(dpkg.errorText().contains("--version"_s) && dpkg.calls.isEmpty());
    }

    void dpkgFailuresAreToldApart()
    {
        const QTemporaryDir folder;
        DpkgUtils dpkg;
        const auto holds = [&dpkg](const char *relation, const char *a = "1", const char *b = "2") {
            return dpkg.compareVersions(QLatin1String(a), QLatin1String(relation), QLatin1String(b));
        };
        QVERIFY(holds("<<", "1.0~rc1", "1.0") && holds("gt", "1:0.1", "9") && holds("lt", "", "0~"));
        // A relation that does not hold is no error, a relation that dpkg does not know is one.
        QVERIFY(!holds(">>"));
        QCOMPARE(dpkg.errorText(), QString());
        QVERIFY(!holds("like"));
        QVERIFY2(dpkg.errorText().contains("bad relation"_s), qPrintable(dpkg.errorText()));
        QVERIFY(!dpkg.packageInformation(folder.filePath("nosuch.deb"_s)));
        QVERIFY2(dpkg.errorText().contains("No such file"_s), qPrintable(dpkg.errorText()));

        writeScript(folder.filePath("bin/dpkg"_s), "#!/bin/sh\necho half a word >&2\nkill -SEGV $$\n");
        {
            const ScopedVariable crashing("PATH", folder.filePath("bin"_s));
            QVERIFY(!holds("<<"));
            QCOMPARE(dpkg.errorText(), "The process dpkg crashed!"_s);
            const ScopedVariable missing("PATH", folder.filePath("none"_s));
            QVERIFY(!holds("<<"));
            QVERIFY2(dpkg.errorText().startsWith("dpkg: "_s), qPrintable(dpkg.errorText()));
        }
        // An error does not outlive the next success.
        QVERIFY(holds("<<"));
        QCOMPARE(dpkg.errorText(), QString());
    }
};

VELT_TEST_MAIN(TestAptCommands, QCoreApplication)
#include "tst_aptcommands.moc"
