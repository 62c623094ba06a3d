// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cliharness.h"
#include "support/localapt.h"

/** The commands that bring packages from elsewhere, take them elsewhere, and check them. */
class TestCliSources : public QObject
{
    Q_OBJECT
private:
    static QString depending(const char *name, const char *on, const char *version, const QString &folder)
    {
        return DebBuilder(QLatin1String(name))
            .version(QLatin1String(version))
            .field("Depends"_s, QLatin1String(on))
            .build(folder);
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt-get");
        VELT_NEED_TOOL("archivemount");
    }

    void fetchedCheckedAndUpgraded()
    {
        CliHarness h;
        h.create("--architectures|amd64,i386"_list);
        const QString pool = h.at("source/pool"_s);
        depending("top", "middle (>= 1.0)", "1.0", pool);
        depending("top", "middle (>= 1.0)", "2.0", pool);
        depending("middle", "gone | bottom", "1.0", pool);
        depending("lone", "nowhere", "1.0", pool);
        DebBuilder("bottom"_s).architecture("all"_s).build(pool);
        const LocalApt apt(h.folder.path(), {"source"_s});

        const auto dryRun = [&h](const char *command, const QStringList &words) {
            const QByteArray before = treeOf(h.repo());
            const CliResult result = h.json(command, QStringList{"--dry-run"_s} + words);
            QString text = QString::number(result.code);
            for (const QJsonValue &row : result.json()["rows"_s].toArray())
                text += u' ' + row["package"_s].toString() + u'-' + row["architecture"_s].toString() + u'-'
                        + row["after"_s]["version"_s].toString();
            return treeOf(h.repo()) == before ? text : "changed"_s;
        };
        QCOMPARE(dryRun("fetch", {"top=1.0"_s, "none"_s, "bottom"_s}),
                 "1 top-amd64-1.0 bottom-amd64-1.0 bottom-i386-1.0"_s);
        const CliResult plain = h.json("fetch", {"top=1.0"_s, "none"_s, "top=9"_s});
        QVERIFY2(plain.code == 1 && plain.errorCodes() == "unknown unknown"_s, plain.said());
        QCOMPARE(listed(plain.json()["added"_s]), "top 1.0 amd64"_s);
        QCOMPARE(h.json("fetch", {"none"_s}).code, 3);
        // A finding is an exit code of its own; the same check against the sources has none.
        const CliResult broken = h.json("check", {});
        QCOMPARE(broken.code, 1);
        QCOMPARE(
            QJsonDocument(broken.json()).toJson(QJsonDocument::Compact),
            QByteArray("{'broken':[{'architecture':'amd64','missing':['middle (>= 1.0)'],'package':'top',"
                       "'version':'1.0'}],'checked':1}")
                .replace('\'', '"'));
        // The window shows the same results.
        const QString results = "/corvana/velt-admin-repo-dependencies.json"_s;
        QVERIFY(readFile(qEnvironmentVariable("XDG_CONFIG_HOME") + results).contains(h.repo().toUtf8()));
        for (const char *where : {"public", "both"})
            QCOMPARE(h.json("check", {"t*"_s, "--against"_s, QLatin1String(where)}).code, 0);
        QCOMPARE(h.json("check", {"x*"_s}).code, 3);

        // What is there is no obstacle to what it needs.
        const CliResult with = h.json("fetch", {"top=1.0"_s, "--with-depends"_s});
        QVERIFY2(with.code == 0 && with.errors.isEmpty(), with.said());
        const QString rest = "bottom 1.0 amd64,bottom 1.0 i386,middle 1.0 amd64"_s;
        QCOMPARE(listed(with.json()["added"_s]), rest);
        QCOMPARE(h.json("check", {}).code, 0);
        const CliResult lone = h.json("fetch", {"lone"_s, "--with-depends"_s});
        QVERIFY2(lone.code == 1 && lone.errors.contains("nowhere"), lone.said());
        QVERIFY(h.holds("bottom 1.0 amd64,bottom 1.0 i386,lone 1.0 amd64,middle 1.0 amd64,top 1.0 amd64"_s));

        const QString source = "[trusted=yes arch=amd64] file:%1 dogwood main"_s.arg(h.at("source"_s));
        const CliResult offers = h.json("upgrade", {"--list"_s, "--from"_s, source});
        const QJsonObject offer = offers.json()["upgradable"_s].toArray().at(0).toObject();
        QVERIFY2(offers.code == 0 && offers.json()["upgradable"_s].toArray().size() == 1, offers.said());
        QCOMPARE(offer["package"_s].toString() + offer["version"_s].toString()
                     + offer["newVersion"_s].toString(),
                 "top1.02.0"_s);
        QCOMPARE(h.json("upgrade", {"--from"_s, "nonsense"_s}).code, 2);
        // Without an option these are the sources that apt has, whose options it does not tell.
        writeFile(h.at("source/dists/dogwood/main/binary-i386/Packages"_s), {});
        writeFile(h.at("etc/apt.conf.d/unsigned"_s),
                  "Acquire::AllowInsecureRepositories \"true\";\nAPT::Get::AllowUnauthenticated \"true\";\n");
        QCOMPARE(dryRun("upgrade", {}), "0 top-amd64-2.0"_s);
        const CliResult upgraded = h.json("upgrade", {});
        QVERIFY2(upgraded.code == 0, upgraded.said());
        QCOMPARE(listed(upgraded.json()["replaced"_s]), "top 2.0 amd64"_s);
        const CliResult again = h.json("upgrade", {});
        QVERIFY2(again.code == 0 && again.errors.isEmpty(), again.said());
        QVERIFY(h.holds("bottom 1.0 amd64,bottom 1.0 i386,lone 1.0 amd64,middle 1.0 amd64,top 2.0 amd64"_s));
    }

    void allThatIsMissing()
    {
        CliHarness h;
        h.create();
        const QString pool = h.at("source/pool"_s);
        depending("middle", "gone | bottom, middle-data (= 2.0)", "2.0", pool);
        depending("bottom", "middle", "1.0", pool);
        depending("half", "nowhere", "1.0", pool);
        DebBuilder("middle-data"_s).version("2.0"_s).architecture("all"_s).build(pool);
        const LocalApt apt(h.folder.path(), {"source"_s});
        const QString own = h.at("own"_s);
        const QString top = depending("top", "middle (>= 1.0)", "1.0", own);
        const QString broken = depending("broken", "half, never", "1.0", own);
        QCOMPARE(h.run({"add"_s, h.repo(), top, broken}).code, 0);
        QCOMPARE(h.run({"fetch"_s, h.repo()}).code, 2);
        QCOMPARE(h.json("fetch", {"--missing"_s, "x*"_s}).code, 3);

        const auto fetched = [](const CliResult &result) {
            QStringList texts;
            for (const QJsonValue &row : result.json()["fetched"_s].toArray())
                texts.append(row["package"_s].toString() + u' ' + row["architecture"_s].toString() + u'<'
                             + row["neededBy"_s][0].toString());
            texts.sort();
            return texts.join(u',');
        };
        const QByteArray before = treeOf(h.repo());
        const CliResult shown = h.json("fetch", {"--missing"_s, "--dry-run"_s, "top"_s});
        QVERIFY2(shown.code == 0 && treeOf(h.repo()) == before, shown.said());
        QCOMPARE(fetched(shown), "bottom amd64<middle,middle amd64<top,middle-data all<middle"_s);
        QVERIFY(shown.json()["missing"_s].toArray().isEmpty()
                && shown.json()["rows"_s].toArray().size() == 3);
        const auto sizeOf = [](const QJsonValue &row) { return row["bytes"_s].toInt(); };
        QVERIFY(sizeOf(shown.json()["fetched"_s].toArray().at(0)) > 0);

        // For a part, after which its check is green; one job, which is undone in one go.
        const CliResult part = h.json("fetch", {"--missing"_s, "top"_s});
        QVERIFY2(part.code == 0 && part.errors.isEmpty(), part.said());
        const QString rest = "bottom 1.0 amd64,middle 2.0 amd64,middle-data 2.0 amd64"_s;
        QCOMPARE(listed(part.json()["added"_s]), rest);
        QCOMPARE(h.json("check", {"top"_s, "middle*"_s, "bottom"_s}).code, 0);
        QCOMPARE(h.json("undo", {"--yes"_s}).code, 0);
        QVERIFY(h.holds("broken 1.0 amd64,top 1.0 amd64"_s));

        // For all: what cannot be had is told, and why.
        const CliResult all = h.json("fetch", {"--missing"_s});
        QVERIFY2(all.code == 1 && all.errors.contains("never") && all.errors.contains("nowhere"), all.said());
        QStringList left;
        for (const QJsonValue &entry : all.json()["missing"_s].toArray())
            left.append(entry["package"_s].toString() + u' ' + entry["needs"_s].toString());
        left.sort();
        QCOMPARE(left, QStringList({"broken never"_s, "half nowhere"_s}));
        QVERIFY(
            h.holds("bottom 1.0 amd64,broken 1.0 amd64,half 1.0 amd64,middle 2.0 amd64,middle-data 2.0 amd64,"
                    "top 1.0 amd64"_s));
        // Nothing more is to be had.
        const CliResult again = h.json("fetch", {"--missing"_s});
        QVERIFY2(again.code == 1 && again.errorCodes() == "missing"_s, again.said());
        QVERIFY(again.json()["added"_s].toArray().isEmpty()
                && again.json()["missing"_s].toArray().size() == 2);
        QCOMPARE(h.json("fetch", {"--missing"_s, "top"_s, "--dry-run"_s}).code, 0);
    }

    /** A repository of reprepro's own, of which only the program has been told, beside a source of apt. */
    void sourcesThatAptDoesNotKnow()
    {
        CliHarness far;
        far.create();
        const QString debs = far.at("debs"_s);
        QStringList offered{DebBuilder("lib-data"_s).architecture("all"_s).build(debs),
                            depending("lib", "lib-data", "2.0", debs)};
        for (const char *name : {"both", "lone"})
            offered.append(DebBuilder(QLatin1String(name)).version("2.0"_s).build(debs));
        QCOMPARE(far.run(QStringList{"add"_s, far.repo()} + offered).code, 0);
        QVERIFY(QFile::link(far.repo(), far.at("far"_s)));

        CliHarness h;
        h.create();
        DebBuilder("both"_s).build(h.at("source/pool"_s));
        DebBuilder("plain"_s).build(h.at("source/pool"_s));
        const LocalApt apt(h.folder.path(), {"source"_s});
        const QString needy = depending("needy", "lib (>= 2)", "1.0", h.at("own"_s));
        QCOMPARE(h.run({"add"_s, h.repo(), needy}).code, 0);
        const auto checked
            = [&h](const char *how) { return h.json("check", QString::fromLatin1(how).split(u' ')); };
        QCOMPARE(checked("--against public").code, 1);
        QCOMPARE(checked("--complete").code, 1);
        const QDir cache(qEnvironmentVariable("XDG_CACHE_HOME") + "/velt-admin-repo/apt"_s);
        const int states = static_cast<int>(cache.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());

        QSettings settings(qEnvironmentVariable("XDG_CONFIG_HOME") + "/corvana/velt-admin-repo.conf"_s,
                           QSettings::IniFormat);
        const auto restored = qScopeGuard([&settings] { settings.remove("EnabledRepos"_s); });
        const QString source = "[trusted=yes] file:%1 dogwood main contrib"_s.arg(far.at("far"_s));
        settings.setValue("EnabledRepos/repo1"_s, source);
        settings.sync();
        for (const char *how : {"--complete", "--against public", "--against both"}) {
            const CliResult good = checked(how);
            QVERIFY2(good.code == 0 && good.errors.isEmpty(), good.said());
        }
        // All of them have shared the lists.
        QCOMPARE(cache.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), states + 1);

        // From both places in one job, and what each lacks. The preview refuses what it does not find.
        const CliResult shown = h.json("fetch", {"--dry-run"_s, "lone"_s, "plain"_s});
        QVERIFY2(shown.code == 0 && shown.json()["rows"_s].toArray().size() == 2, shown.said());
        const CliResult fetched = h.json("fetch", {"plain"_s, "lone"_s, "both"_s});
        QVERIFY2(fetched.code == 0 && fetched.errors.isEmpty(), fetched.said());
        QCOMPARE(listed(fetched.json()["added"_s]), "both 2.0 amd64,lone 2.0 amd64,plain 1.0 amd64"_s);
        const CliResult missing = h.json("fetch", {"--missing"_s});
        QVERIFY2(missing.code == 0 && missing.errors.isEmpty(), missing.said());
        QCOMPARE(listed(missing.json()["added"_s]), "lib 2.0 amd64,lib-data 1.0 amd64"_s);
        QCOMPARE(checked("--against local").code, 0);

        // What lies on this computer counts as soon as it is there.
        QCOMPARE(far.run({"add"_s, far.repo(), far.deb("late")}).code, 0);
        QCOMPARE(listed(h.json("fetch", {"late"_s}).json()["added"_s]), "late 1.0 amd64"_s);

        // A server that is away is told of each time, and hides nothing of the others.
        const ScopedVariable direct("no_proxy", "127.0.0.1"_s);
        settings.setValue("EnabledRepos/repo2"_s, "[trusted=yes] http://127.0.0.1:1/r x main"_s);
        settings.sync();
        for (int i = 0; i < 2; ++i) {
            const CliResult away = checked("--against public needy");
            QVERIFY2(away.errors.contains("could not be reached"), away.said());
            QVERIFY(away.json()["broken"_s].toArray().isEmpty());
        }
        // Switched off, it is nobody's business.
        settings.remove("EnabledRepos"_s);
        settings.sync();
        QCOMPARE(checked("--against public needy").code, 1);
        QCOMPARE(h.json("fetch", {"lone"_s}).code, 3);
    }

    void outAndIn()
    {
        CliHarness h;
        h.create();
        const QString needs = depending("needs", "needed", "1.0", h.at("debs"_s));
        QCOMPARE(h.run({"add"_s, h.repo(), needs, h.deb("needed"), h.deb("other")}).code, 0);
        const QString all = "needed 1.0 amd64,needs 1.0 amd64,other 1.0 amd64"_s;
        const auto members = [&h](const char *archive) {
            QString names = runShell(
                "tar tzf '%1' | grep -o '[a-z]*_1.0_amd64' | sort -u"_s.arg(h.at(QLatin1String(archive))));
            return names.remove("_1.0_amd64"_s).trimmed().replace(u'\n', u' ');
        };
        const CliResult written = h.json("export", {"all.tgz"_s});
        QVERIFY2(written.code == 0, written.said());
        QCOMPARE(written.json()["file"_s].toString(), h.at("all.tgz"_s));
        QCOMPARE(written.json()["bytes"_s].toInt(), static_cast<int>(QFileInfo(h.at("all.tgz"_s)).size()));
        QCOMPARE(h.json("export", {"all.tgz"_s}).code, 3); // nobody says that it can be replaced
        QCOMPARE(h.json("export", {"some.tgz"_s, "--packages"_s, "needs"_s, "--with-depends"_s}).code, 0);
        QCOMPARE(members("some.tgz"), "needed needs"_s);
        const QStringList listed2 = "two.tgz|--packages|other,needs|--packages|none"_list;
        const CliResult two = h.json("export", listed2);
        QVERIFY2(two.code == 1 && two.errorCodes().contains("unknown"_s), two.said());
        QCOMPARE(members("two.tgz"), "needs other"_s);
        for (const QStringList &bad : {"x.tgz|--with-depends"_list, "x.tgz|--packages|,"_list})
            QCOMPARE(h.json("export", bad).code, 2);
        QCOMPARE(h.json("export", {"/no/such/place/x.tgz"_s}).code, 3);
        QCOMPARE(h.json("export", {"my repo/x.tgz"_s}).code, 3);
        QVERIFY(h.holds(all));

        CliHarness other;
        other.create();
        const CliResult in = other.json("import", {h.at("some.tgz"_s)});
        QVERIFY2(in.code == 0, in.said());
        QCOMPARE(listed(in.json()["added"_s]), "needed 1.0 amd64,needs 1.0 amd64"_s);
        QCOMPARE(other.json("import", {h.repo(), "--on-collision"_s, "none"_s}).code, 0);
        QVERIFY(other.holds(all));
        writeFile(other.at("torn.tgz"_s), "torn");
        QDir().mkpath(other.at("empty"_s));
        for (const char *bad : {"torn.tgz", "empty", "none.tgz"}) {
            const CliResult refused = other.json("import", {QLatin1String(bad)});
            QVERIFY2(refused.code == 3 && !refused.errors.isEmpty(), bad);
        }
        QVERIFY(other.holds(all));
    }
};

VELT_TEST_MAIN(TestCliSources, QCoreApplication)
#include "tst_clisources.moc"
