// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagenames.h"
#include "core/processutils.h"
#include "engine/jobs/repositoryremoval.h"
#include "engine/repository/descriptionfields.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagesfile.h"
#include "engine/repository/systemrelease.h"
#include "engine/reprepro/configfolder.h"
#include "engine/reprepro/joblock.h"
#include "engine/reprepro/privateconfig.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"
#include "files/pathguard.h"
#include "files/scratchfolder.h"
#include "support/testenvironment.h"

#include <array>

#include <unistd.h>

using RepositoryRemoval::Outcome;

class TestEngineRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /** The texts are those of reprepro 5.3.1. */
    void listings()
    {
        const auto packages
            = ReproListing::packages("main amd64 tool pool/main/t/tool/tool_1.0_all.deb\n"
                                     "main amd64 core pool/main/c/core/core_2_amd64.udeb\n"
                                     "contrib amd64 lib++ pool/contrib/lib+/lib++/lib ++_1_amd64.deb\n"
                                     "torn amd64\n"_s);
        QCOMPARE(packages.size(), 3);
        QCOMPARE(packages.at(2).file, "pool/contrib/lib+/lib++/lib ++_1_amd64.deb"_s);
        const QString references = "stable|contrib|amd64 pool/contrib/lib+/lib++/lib ++_1_amd64.deb\n"
                                   "u|stable|main|amd64 pool/main/c/core/core_2_amd64.udeb\n"
                                   "stable|main|amd64 pool/main/t/tool/tool_1.0_all.deb\n"_s;
        for (const ReproListing::Package &package : packages)
            QVERIFY(ReproListing::files(references).contains(ReproListing::reference("stable"_s, package)));

        const auto sums = ReproListing::checksums(
            "pool/main/c/core/core_2_amd64.udeb :1:1523b8c25c9218101c83f5f6a409a476bb0b733f "
            ":2:40160e336366fc01f0"
            "7f9d4f5ea808914d16b703475ddafaf14bd0fd9b400c6d 5e35ff936e35a02bc2d18ec388f6b0de 668\n"
            "pool/main/t/tool/tool_1.0_all.deb 3e3a59f911f62ac914512d599ecdf08f 652\n"_s);
        QCOMPARE(sums.value("pool/main/c/core/core_2_amd64.udeb"_s),
                 QByteArray("40160e336366fc01f07f9d4f5ea808914d16b703475ddafaf14bd0fd9b400c6d"));
        QVERIFY(sums.contains("pool/main/t/tool/tool_1.0_all.deb"_s));
        QVERIFY(sums.value("pool/main/t/tool/tool_1.0_all.deb"_s).isEmpty());
    }

    void descriptions()
    {
        RepoInfo info = Distributions::repoInfoForCodename("dogwood"_s);
        info.version = "1.6"_s;
        info.signWith = true;
        QCOMPARE(Distributions::text(info),
                 "Origin: Debian\nCodename: dogwood\nSuite: stable\nVersion: 1.6\nArchitectures: armhf\n"
                 "Components: main contrib non-free rpi3\nUDebComponents: main contrib non-free rpi3\n"
                 "SignWith: yes\n"_s);
        const auto parsed = [](const char *text) { return Distributions::parse(QLatin1String(text), {}); };
        const RepoInfo lower = parsed("codename: x\nsuite:y");
        QCOMPARE(lower.codename + lower.suite + parsed("CODENAME: x\n").codename, "xy"_s);
        const RepoInfo foreign = parsed("# Codename: old\nCodename: a\r\nComponents: main contrib\r\n");
        QCOMPARE(foreign.codename + foreign.components, "amain contrib"_s);
        QCOMPARE(parsed("UDebComponents: x\nComponents: y\n").components, "y"_s);
        QVERIFY(!parsed("SignWith: Yes\n").signWith);
        QVERIFY(parsed("Codename: a\n").origin == "Debian"_s && parsed("Codename: a\n").label.isEmpty());
        const QString named = "Origin: Us: all\nLabel: Our own\nCodename: a\n"_s;
        QVERIFY(Distributions::text(Distributions::parse(named, {})).startsWith(named));
        QCOMPARE(Distributions::fieldValue({"Description: first"_s, " second"_s}, "Description"_s),
                 "first\n second"_s);
        QCOMPARE(SystemRelease::versionFromText("Name 1.6 (x)\n"_s), "1.6"_s);
        QCOMPARE(SystemRelease::versionFromText("Name 1.6 (x) y\n"_s), "Name 1.6 (x) y"_s);
    }

    /** Files that people have written. Each line stays, is lost with a word, or has become a value; the judge is reprepro. */
    void oddDescriptions()
    {
        VELT_NEED_TOOL("reprepro");
        RepoInfo plain = Distributions::repoInfoForCodename("aspen"_s);
        plain.signWith = plain.contents = true;
        const QString own = Distributions::text(plain);
        const QTemporaryDir folder;
        const auto accepted = [&folder](const QString &text) {
            writeFile(folder.filePath("conf/distributions"_s), text.toUtf8());
            return runProcess({"reprepro"_s, {"-b"_s, folder.path(), "_listcodenames"_s}, {}, {}, -1})
                .succeeded();
        };
        const auto lost = [](const QString &text, const RepoInfo &info) {
            return Distributions::lostLines(text, info).join(u'|');
        };
        // What is put in place of what; what is kept of it; what is lost as soon as the description changes.
        const QList<std::array<const char *, 4>> cases{
            {"Suite", "Suite", "", ""},
            {"\n", "\r\n", "", ""},
            {"Suite",
             "Log: log\n\ttell.sh  \n# mine\n --via=x other.sh\nSuite",
             "Log: log|\ttell.sh| --via=x other.sh|# mine",
             ""},
            {"Suite", "# über\nNotAutomatic: yes # really\nSuite", "# über|NotAutomatic: yes # really", ""},
            {"Suite", "Description: a:  b\nValidFor: 1m 11 d\nSuite", "", ""},
            {"Suite", "Description: a\n b\nSuite", "Description: a| b", "Description: a| b"},
            {"Suite",
             "Description: !a\nValidFor: 0d\nSuite",
             "Description: !a|ValidFor: 0d",
             "Description: !a|ValidFor: 0d"},
            {"SignWith: yes", "signwith: 0123456789abcdef", "", ""},
            {"SignWith: yes", "SIGNWITH: !hook.sh", "SIGNWITH: !hook.sh", "SIGNWITH: !hook.sh"},
            {"SignWith: yes",
             "SignWith: AB12 89ABCDEF",
             "SignWith: AB12 89ABCDEF",
             "SignWith: AB12 89ABCDEF"},
            {"Contents: .gz", "Contents: .xz  udebs", "", ""},
            {"Contents: .gz", "Contents:\n .gz", "Contents:| .gz", "Contents:| .gz"},
            {"UDebComponents: main contrib non-free",
             "UDebComponents: main\nContentsUComponents: main",
             "UDebComponents: main|ContentsUComponents: main",
             ""},
            {"UDebComponents: main contrib non-free",
             "UDebComponents: non-free\nContentsArchitectures: amd64",
             "UDebComponents: non-free|ContentsArchitectures: amd64",
             "UDebComponents: non-free"},
            {"Origin: Debian", "Origin: Us\n and them", "", " and them"}};
        RepoInfo changed;
        for (const auto &[from, to, kept, gone] : cases) {
            const QString text = QString(own).replace(QLatin1String(from), QString::fromUtf8(to));
            const RepoInfo info = Distributions::parse(text, {});
            QVERIFY2(accepted(text) && accepted(Distributions::text(info)), to);
            QCOMPARE(info.otherLines.join(u'|'), QString::fromUtf8(kept));
            QCOMPARE(Distributions::parse(Distributions::text(info), {}), info);
            QVERIFY(lost(text, info).isEmpty() || QByteArray(to).contains("and them"));
            changed = info;
            changed.components = "main contrib"_s;
            changed.description = changed.label = "new"_s;
            changed.signWith = changed.contents = true;
            changed.contentsChoices = ". allcomponents"_s;
            changed.validFor = DescriptionFields::MostDays;
            QVERIFY2(accepted(Distributions::text(changed)), qPrintable(Distributions::text(changed)));
            QCOMPARE(lost(text, changed), QString::fromUtf8(gone));
            QCOMPARE(Distributions::parse(Distributions::text(changed), {}).validFor, changed.validFor);
            QVERIFY(!Distributions::text(Distributions::unsignedInfo(info))
                         .contains("signwith"_s, Qt::CaseInsensitive));
        }
        QVERIFY(DescriptionFields::refusal(changed).isEmpty());
        QCOMPARE(DescriptionFields::days("1y1m1"_s), 397);
        QCOMPARE(lost(QString::fromUtf8("Label: a\xFF"), changed), QString::fromUtf8("Label: a\xFF"));

        // What would become another line, or none that reprepro reads.
        const QList<std::function<void(RepoInfo &)>> hostile{
            [](RepoInfo &info) { info.description = "a\nSignWith: !evil.sh"_s; },
            [](RepoInfo &info) { info.label = "a\u2028b"_s; },
            [](RepoInfo &info) { info.origin = "!include: /etc/passwd"_s; },
            [](RepoInfo &info) { info.description = "one # two"_s; },
            [](RepoInfo &info) { info.signKey = "!evil.sh"_s; },
            [](RepoInfo &info) { info.signKey = "0123456"_s; },
            [](RepoInfo &info) { info.contentsChoices = ".zst"_s; },
            [](RepoInfo &info) { info.contentsChoices = "allcomponents nocompatsymlink"_s; },
            [](RepoInfo &info) { info.contentsChoices = ".gz\nLog: x"_s; },
            [](RepoInfo &info) { ++info.validFor; },
            [](RepoInfo &info) { info.origin = " "_s; }};
        for (const auto &spoil : hostile) {
            RepoInfo bad = changed;
            spoil(bad);
            const QString refusal = DescriptionFields::refusal(bad, changed);
            QVERIFY2(!refusal.isEmpty() && refusal != DescriptionFields::refusal(changed),
                     qPrintable(bad.description));
        }
        for (const QString &unread : " i386|# c\n\ti386|!include: x"_list) {
            const QString text = QString(own).replace("\nComponents"_s, u'\n' + unread + "\nComponents"_s);
            QCOMPARE(Distributions::unreadLine(text), unread.section(u'\n', -1));
        }
    }

    void foreignFieldsAreKeptBeside()
    {
        const QTemporaryDir folder;
        const QString conf = folder.filePath("conf/distributions"_s);
        const DistributionsFile file(folder.path());
        const RepoInfo info = Distributions::repoInfoForCodename("aspen"_s);
        QVERIFY(!file.read());
        QVERIFY(!file.write(info)); // there is no folder to write into
        for (const char *text : {"Codename: aspen\nLog: packages.log\n", "Codename: aspen\nLog: later\n"}) {
            writeFile(conf, text);
            QVERIFY(file.write(info));
            QCOMPARE(file.read()->codename, "aspen"_s);
            // The first file is the one to keep.
            QCOMPARE(readFile(conf + ".orig"_s), QByteArray("Codename: aspen\nLog: packages.log\n"));
        }
        QCOMPARE(file.read()->name, QFileInfo(folder.path()).fileName());
    }

    void placesOfFiles()
    {
        const auto poolFile = [](const char *control, const char *name, const char *version) {
            PackageInfo package;
            package.name = QLatin1String(name);
            package.version = QLatin1String(version);
            package.component = "main"_s;
            package.control = ControlText(control);
            return PackageNames::poolFile(package, "all"_s);
        };
        QCOMPARE(poolFile("", "libfoo2", "1"), "pool/main/libf/libfoo2/libfoo2_1_all.deb"_s);
        QCOMPARE(poolFile("", "lib", "1"), "pool/main/l/lib/lib_1_all.deb"_s);
        QCOMPARE(poolFile("Source: bar (2.0)\n", "foo", "1"), "pool/main/b/bar/foo_1_all.deb"_s);
        QCOMPARE(poolFile("", "foo", "2:1.0-1"), "pool/main/f/foo/foo_1.0-1_all.deb"_s);

        const auto index = [](const QString &path) -> QString {
            const auto place = indexPlace(path).value_or(IndexPlace());
            return place.component + u' ' + place.architecture
                   + (place.type == PackageType::Udeb ? " udeb"_s : ""_s);
        };
        QCOMPARE(index("main/debian-installer/binary-armhf/Packages"_s), "main armhf udeb"_s);
        QCOMPARE(index("non-free/binary-e2k-8c/Packages"_s), "non-free e2k-8c"_s);
        QCOMPARE(index("updates/main/binary-i386/Packages"_s), "updates/main i386"_s);
        QVERIFY(!indexPlace("binary-amd64/Packages"_s) && !indexPlace("main/source/Packages"_s));
    }

    void silentOptions()
    {
        const QByteArray own = "verbose\n--export changed\nkeepunreferencedfiles\nexport=never\noutdir /x\n";
        QCOMPARE(PrivateConfig::optionsText(QLatin1String(own), PrivateConfig::Keep),
                 "verbose\noutdir /x\nexport silent-never\nkeepunreferencedfiles\n"_s);
        QCOMPARE(PrivateConfig::optionsText(QString(), PrivateConfig::Delete), "export silent-never\n"_s);

        const QTemporaryDir folder;
        const ConfigFolder conf(folder.path());
        const QString distributions = folder.path() + "/distributions"_s;
        const QString options = folder.path() + "/options"_s;
        writeFile(distributions, "Codename: dog\n");
        QVERIFY(!conf.keepsUnreferencedFiles());
        writeFile(options, own);
        QVERIFY(conf.keepsUnreferencedFiles());
        PrivateConfig config(conf, PrivateConfig::Keep);
        QVERIFY(config.isValid());
        const QString silent = config.environment().first().section(u'=', 1);
        QCOMPARE(readFile(silent + "/distributions"_s), QByteArray("Codename: dog\n"));
        QVERIFY(readFile(silent + "/options"_s).contains("silent-never"));
        // Programs of the administrator's own, told by reprepro, may need their PATH and their keys.
        const auto whole = [&] {
            const QStringList lean = PrivateConfig(conf, PrivateConfig::Keep).environment();
            return lean.filter("PATH="_s).isEmpty() && lean.filter("GNUPGHOME="_s).isEmpty();
        };
        writeFile(distributions, "Codename: dog\nLog: packages.log\n tell.sh\n");
        QVERIFY(whole());
        writeFile(distributions, "Codename: dog\n");
        QVERIFY(!whole());
        writeFile(options, "endhook tell.sh\n");
        QVERIFY(whole());
        writeFile(options, "");
        // As reprepro reads it: in any case, with the value on the next line, or in another file.
        QVERIFY(!conf.signs() && !conf.runsProgramsForIndices());
        for (const char *line : {"SignWith: yes", "Signwith:\n yes", "SIGNWITH : AB12", "!include: more"}) {
            writeFile(distributions, "Codename: dog\n" + QByteArray(line) + '\n');
            QVERIFY2(conf.signs(), line);
        }
        writeFile(distributions, "Codename: dog\nDEBINDICES:\n Packages Release . .gz tell.sh\n");
        QVERIFY(conf.runsProgramsForIndices() && !conf.runsPrograms());
    }

    void pathGuard()
    {
        const QTemporaryDir folder;
        const auto in = [&](const char *path) { return folder.filePath(QLatin1String(path)); };
        const QString home = QDir::homePath();
        const QString open = in("a/open");
        QDir().mkpath(open);
        // A link to a folder is that folder.
        QVERIFY(QFile::link(in("a"), in("above")));
        QVERIFY(QFile::link(open, in("link")));
        for (const QString &path :
             QStringList{in("new"), home + "/repo"_s, open + "/inside"_s, in("a/opened")}
                 + "/srv/repo,/home/ann/repo,/opt/bin/repo,/library/repo"_s.split(u','))
            QVERIFY2(PathGuard::mayBeWiped(path, {open, QString()}), qPrintable(path));
        for (const QString &path :
             "/,//,/srv,repo,,/home/ann,/var/lib/dpkg/info,/usr/lib,/etc/apt/x,/boot/grub,/libx32/a"_s.split(
                 u',')
                 + QStringList{home, home + "/x/.."_s, QFileInfo(home).path()}
                 + QStringList{open, in("a"), in("above"), in("link")})
            QVERIFY2(!PathGuard::mayBeWiped(path, {open}), qPrintable(path));
        // So does a folder with repositories that are not open; what a link in it leads to does not lie in it.
        writeFile(in("shelf/one/conf/distributions"), "x");
        writeFile(in("shelf/x/.y/two/conf/distributions"), "x");
        writeFile(in("shelf/a/b/c/d/deep/conf/distributions"), "x");
        QVERIFY(QFile::link(in("shelf/one"), in("new")));
        QVERIFY(!PathGuard::mayBeWiped(in("shelf"), {}));
        QCOMPARE(PathGuard::repositoriesBelow(in("shelf"),
                                              {in("shelf/a/b/c/d/deep/"), in("shelf/gone"), in("shelf")}),
                 (QStringList{in("shelf/a/b/c/d/deep"), in("shelf/one"), in("shelf/x/.y/two")}));
        // What is written elsewhere may lie on a disk that does not answer: it is not even looked at.
        QVERIFY(QFile::link(in("shelf/a/b/c/d/deep"), in("far")));
        QVERIFY(!PathGuard::repositoriesBelow(in("shelf"), {in("far")}).contains(in("shelf/a/b/c/d/deep")));
        QCOMPARE(PathGuard::writtenBelow({"/srv/a"_s, "/link/"_s},
                                         "/srv/a,/srv/a/x/,/srv/b/../a/y,/link/z,,/,/srv,/srv/ab,/link2/z,"
                                         "/srv/a/../b,/mnt/srv/a"_s.split(u',')),
                 "/srv/a,/srv/a/x/,/srv/b/../a/y,/link/z"_s.split(u','));
        QCOMPARE(PathGuard::writtenBelow({"/"_s}, {"/srv"_s}), "/srv"_list);
        QVERIFY(PathGuard::mayBeWiped(in("shelf/one"), {})
                && PathGuard::repositoriesBelow(in("a")).isEmpty());
        for (const QString &path :
             QStringList{in("link"), open + "/new/deep"_s, folder.path(), in("link/in"), in("above")})
            QVERIFY2(PathGuard::overlap(open, path) && PathGuard::overlap(path, open), qPrintable(path));
        QVERIFY(!PathGuard::overlap(open, in("a/opened")));
    }

    void onlyLeftoversOfOursGo()
    {
        const QTemporaryDir tmp;
        const auto restore = qScopeGuard([old = qgetenv("TMPDIR")] { qputenv("TMPDIR", old); });
        qputenv("TMPDIR", tmp.path().toLocal8Bit());
        const auto place = [&tmp](const char *name) {
            QString path = tmp.filePath("velt-admin-repo-"_s + QLatin1String(name));
            writeFile(path + "/file"_s, "x");
            return path;
        };
        const ScratchFolder inUse;
        QVERIFY(inUse.isValid() && inUse.path().startsWith(tmp.path()));
        const QString other = place("other");
        const QString left = place("work-left");
        QVERIFY(QFile::link(other, left + "/link"_s)
                && QFile::link(other, tmp.filePath("velt-admin-repo-work-x"_s)));
        // A program that was started by one that was killed may still be reading its folder.
        const QString outlived = place("work-outlived");
        const QString foreign = place("work-foreign");
        const bool isForeign = ::chown(QFile::encodeName(foreign).constData(), 65534, 65534) == 0;
        QProcess process;
        process.start("sh"_s, {"-c"_s, "echo ready; read line"_s, outlived});
        QVERIFY(process.waitForReadyRead());
        ScratchFolder::removeLeftovers();
        QVERIFY(!QFile::exists(left));
        for (const QString &kept : QStringList{inUse.path(), other + "/file"_s, outlived + "/file"_s})
            QVERIFY2(QFile::exists(kept), qPrintable(kept));
        QVERIFY(QFile::exists(foreign) || !isForeign);
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished());
        ScratchFolder::removeLeftovers();
        QVERIFY(!QFile::exists(outlived));
        // Whose folder holds ours may put another one in its place at any moment.
        const QString endangered = place("work-endangered");
        if (::chown(QFile::encodeName(tmp.path()).constData(), 65534, 65534) == 0) {
            ScratchFolder::removeLeftovers();
            QVERIFY(QFile::exists(endangered + "/file"_s));
        }
    }

    void onlyRepositoriesAreDeleted()
    {
        const QTemporaryDir folder("/tmp/viXXXXXX"_s);
        const QString outside = folder.filePath("outside"_s);
        const QString repo = folder.filePath("repo"_s);
        // A home directory stays, even when somebody keeps a conf/distributions in it.
        for (const QString &path : QStringList{repo, repo + "/inner"_s, QDir::homePath()})
            writeFile(path + "/conf/distributions"_s, "Codename: birch\n");
        writeFile(outside + "/precious"_s, "x");
        QVERIFY(QFile::link(outside, repo + "/link"_s));

        for (const QString &path : {outside, QDir::homePath()}) {
            QString reason;
            QCOMPARE(RepositoryRemoval::remove(path, {}, &reason), Outcome::Refused);
            QVERIFY(!reason.isEmpty());
        }
        QVERIFY(QFile::exists(QDir::homePath() + "/conf/distributions"_s));
        // One that holds an open repository stays, whatever the spelling.
        QString reason;
        QCOMPARE(RepositoryRemoval::remove(repo, {{repo + "/../repo/inner/"_s}, {}}, &reason),
                 Outcome::Refused);
        QCOMPARE(RepositoryRemoval::remove(repo, {}, &reason), Outcome::Refused);
        QVERIFY2(reason.endsWith("repositories: "_s + repo + "/inner"_s), qPrintable(reason));
        const QString inner = repo + "/inner"_s;
        const QString deep = repo + "/a/b/c/d/deep"_s;
        QVERIFY(QDir().mkpath(QFileInfo(deep).path()) && QFile::rename(inner, deep));
        QCOMPARE(RepositoryRemoval::remove(repo, {{}, {deep, repo}}, &reason), Outcome::Refused);
        QVERIFY(QFile::exists(repo + "/conf/distributions"_s));
        QVERIFY(QDir(repo + "/a"_s).removeRecursively());

        // Nor does one go on which a job is at work; that is known before anything is given up for it.
        QCOMPARE(RepositoryRemoval::refusal(repo, {}), QString());
        QVERIFY(QDir().mkpath(repo + "/db"_s));
        JobLock lock;
        QVERIFY(lock.take(repo));
        QVERIFY(RepositoryRemoval::refusal(repo, {}).contains("being changed by another program"_s));
        QCOMPARE(RepositoryRemoval::remove(repo, {}, &reason), Outcome::Refused);
        QVERIFY2(QFile::exists(repo + "/db"_s) && reason.contains(repo), qPrintable(reason));
        lock.release();

        // What cannot be deleted whole can be deleted again. Root may delete everything, so somebody else tries.
        const QString stubborn = repo + "/pool/main"_s;
        writeFile(stubborn + "/file"_s, "x");
        const auto give = [](const QString &path, uid_t owner) {
            return ::chown(QFile::encodeName(path).constData(), owner, gid_t(-1)) == 0;
        };
        const bool isRoot = ::geteuid() == 0;
        constexpr uid_t Nobody = 65534;
        for (const QString &path : QStringList{folder.path(), repo, repo + "/pool"_s, repo + "/conf"_s})
            QVERIFY(!isRoot || give(path, Nobody));
        QVERIFY(QFile::setPermissions(stubborn, QFile::ReadOwner | QFile::ExeOwner));
        const auto setWritable = [&folder](bool isWritable) {
            const QFile::Permissions others = QFile::ReadOwner | QFile::ExeOwner;
            return QFile::setPermissions(folder.path(), isWritable ? others | QFile::WriteOwner : others);
        };
        QVERIFY(setWritable(false));
        // What may be written is asked for the real user.
        QVERIFY(!isRoot || ::setresuid(Nobody, Nobody, 0) == 0);
        const QString early = RepositoryRemoval::refusal(repo, {});
        const QString gone = RepositoryRemoval::refusal(repo + "/gone"_s, {});
        QVERIFY(!isRoot || ::setresuid(0, 0, 0) == 0);
        QVERIFY(setWritable(true));
        QVERIFY2(early.contains("cannot be written"_s) && gone.isEmpty(), qPrintable(early));
        QVERIFY(!isRoot || ::seteuid(Nobody) == 0);
        const Outcome outcome = RepositoryRemoval::remove(repo, {}, &reason);
        QVERIFY(!isRoot || ::seteuid(0) == 0);
        QCOMPARE(outcome, Outcome::Refused);
        QVERIFY2(QFile::exists(repo + "/conf/distributions"_s) && !QFileInfo(repo + "/link"_s).isSymLink(),
                 qPrintable(reason));
        QVERIFY(QFile::setPermissions(stubborn, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

        const QString link = folder.filePath("other-name"_s);
        QVERIFY(QFile::link(repo, link));
        QCOMPARE(RepositoryRemoval::remove(link, {{outside}, {}}, &reason), Outcome::Deleted);
        QVERIFY(!QFile::exists(repo) && !QFileInfo(link).isSymLink());
        QVERIFY(QFile::exists(outside + "/precious"_s));
    }
};

VELT_TEST_MAIN(TestEngineRules, QCoreApplication)
#include "tst_enginerules.moc"
