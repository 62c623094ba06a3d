// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/history/repositoryhistory.h"
#include "engine/installability/relatedpackages.h"
#include "engine/preview/previewreport.h"
#include "engine/preview/previewrequest.h"
#include "engine/preview/previewrules.h"
#include "engine/reprepro/joblock.h"
#include "support/scopedvariable.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRandomGenerator>

namespace
{
/** What reprepro lists: "version file sha256" by "type component architecture name". */
using Listing = QMap<QString, QString>;

QString placeOf(const PackageChange &change)
{
    return QStringList{change.type == PackageType::Udeb ? "udeb"_s : "deb"_s,
                       change.component,
                       change.architecture,
                       change.name}
        .join(u' ');
}

/** The listing after the rows that are on. */
Listing expected(Listing listing, const QVector<PreviewRow> &rows)
{
    for (const PreviewRow &row : rows) {
        if (!row.takesPart())
            continue;
        if (row.change.kind == PackageChange::Removed)
            listing.remove(placeOf(row.change));
        else
            listing[placeOf(row.change)]
                = QStringList{row.change.after.version, row.change.after.file, row.change.after.sha256}.join(
                    u' ');
    }
    return listing;
}

Listing listingOf(const EngineHarness &h)
{
    const QString format
        = "${$type} ${$component} ${$architecture} ${package}|${version} ${filename} ${SHA256}\n"_s;
    const ProcessResult result
        = h.reprepro({"--list-format"_s, format, "list"_s, h.shell.repoInfo().codename});
    Listing listing;
    for (const QString &line : result.output.split(u'\n', Qt::SkipEmptyParts))
        listing.insert(line.section(u'|', 0, 0), line.section(u'|', 1));
    return listing;
}

/** The previews of an engine, as they come. */
class Previews
{
public:
    explicit Previews(EngineHarness &harness)
        : h(harness)
    {
        QObject::connect(
            &h.shell,
            &RepoShell::previewReady,
            &h.shell,
            [this](const ChangePreview &preview) { all.append(preview); },
            Qt::DirectConnection);
        QObject::connect(
            &h.shell, &RepoShell::previewOutdated, &h.shell, [this] { ++outdated; }, Qt::DirectConnection);
    }

    ChangePreview of(const PreviewRequest &request)
    {
        all.clear();
        h.run([&] { h.shell.preview(request); });
        return all.isEmpty() ? ChangePreview() : all.last();
    }
    RepoEnums::ErrorCode apply(const ChangePreview &preview)
    {
        outdated = 0;
        return h.run([&] { h.shell.apply(preview); });
    }
    /** Applies it, and compares what reprepro lists then with the rows. */
    bool isKept(const ChangePreview &preview)
    {
        const Listing before = listingOf(h);
        const Listing wanted = expected(before, preview.rows);
        apply(preview);
        const Listing after = listingOf(h);
        if (after == wanted && outdated == 0 && h.criticals.isEmpty() && h.collisions.isEmpty()
            && h.questions.isEmpty() && h.settled())
            return true;
        qWarning().noquote() << PreviewReport::text(preview);
        qWarning() << h.words();
        for (const QString &place : before.keys() + after.keys() + wanted.keys())
            if (after.value(place) != wanted.value(place))
                qWarning() << place << "was" << before.value(place) << "is" << after.value(place) << "shown"
                           << wanted.value(place);
        return false;
    }

    EngineHarness &h;
    QVector<ChangePreview> all;
    int outdated = 0;
};

PreviewRequest adding(const QStringList &files)
{
    PreviewRequest request;
    request.files = files;
    request.findsEffect = false;
    return request;
}

PreviewRequest describing(const RepoInfo &info)
{
    PreviewRequest request;
    request.kind = ChangePreview::Describe;
    request.info = info;
    request.findsEffect = false;
    return request;
}

/** "name version architecture: verdict" of each row. */
QString shown(const ChangePreview &preview)
{
    QStringList lines;
    for (const PreviewRow &row : preview.rows) {
        static const QStringList verdicts{"change"_s, "collision"_s, "refused"_s};
        static const QStringList relations{"alone"_s, "newer"_s, "older"_s, "same file"_s, "same version"_s};
        lines.append("%1 %2 %3 %4%5"_s.arg(row.change.architecture,
                                           verdicts.at(row.verdict),
                                           relations.at(row.relation),
                                           row.isOn ? "on"_s : "off"_s,
                                           row.group < 0 ? QString() : " %1"_s.arg(row.group)));
    }
    return lines.join(u'|');
}

QString lostNames(const QVector<PreviewLoss> &losses)
{
    QStringList list;
    for (const PreviewLoss &loss : losses)
        list.append(loss.package->name);
    list.sort();
    return list.join(u' ');
}
} // namespace

/** Previews against what the jobs then do with the real reprepro. */
class TestPreview : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    /** Whatever is added and however the rows are switched, the repository becomes what they say. */
    void randomMixesBecomeWhatIsShown()
    {
        const auto seed = QRandomGenerator::system()->generate();
        qInfo() << "seed" << seed;
        QRandomGenerator random(seed);
        const auto one = [&random](const QStringList &list) { return list.at(random.bounded(list.size())); };
        RepoHarness h("amd64 i386"_s);
        Previews previews(h);
        for (int round = 0; round < 12; ++round) {
            QStringList files;
            const int count = random.bounded(2, 12);
            for (int i = 0; i < count; ++i) {
                DebBuilder deb(one({"aa"_s, "bb"_s, "cc"_s, "dd"_s, "ee"_s}));
                deb.version(one({"1.0"_s, "1.0"_s, "2.0"_s, "1:1.0"_s, "1.0~rc1"_s}))
                    .architecture(one({"amd64"_s, "i386"_s, "all"_s, "all"_s, "armhf"_s}))
                    .field("Section"_s, one({"net"_s, "net"_s, "contrib/net"_s, "nowhere/net"_s}))
                    .contents(one({"x"_s, "y"_s}).toUtf8());
                if (random.bounded(5) == 0)
                    deb.udeb();
                if (random.bounded(12) == 0)
                    deb.field("Source"_s, "No_source"_s);
                if (random.bounded(8) == 0)
                    deb.field("Priority"_s, {});
                files.append(h.deb(deb));
                if (random.bounded(10) == 0)
                    writeFile(files.last(), readFile(files.last()).left(random.bounded(1, 300)));
            }
            PreviewRequest request = adding(files);
            using Rules = PackageReplacementRules;
            const QVector<quint32> rules{
                Rules::PreferHigher, Rules::PreferLower, Rules::ReplaceAll, Rules::ReplaceNone};
            request.collisions.value = rules.at(random.bounded(rules.size()));
            request.extends = round > 4 && random.bounded(2) == 0;
            ChangePreview preview = previews.of(request);
            QVERIFY2(!preview.rows.isEmpty(), qPrintable(h.words()));
            for (int i = random.bounded(4); i > 0; --i)
                preview.setOn(random.bounded(preview.rows.size()), random.bounded(2) == 0);
            QVERIFY2(previews.isKept(preview), qPrintable("seed %1, round %2"_s.arg(seed).arg(round)));

            if (round % 3 == 2) {
                PreviewRequest removal;
                removal.kind = ChangePreview::Remove;
                removal.findsEffect = false;
                for (const PackageInfoPtr &package : h.shell.packages())
                    if (random.bounded(3) == 0)
                        removal.packages.append(package);
                QVERIFY(previews.isKept(previews.of(removal)));
            }
        }
    }

    /** What cannot be parted is switched together, and only one file can have a place. */
    void rowsKnowEachOther()
    {
        RepoHarness h("amd64 i386"_s);
        Previews previews(h);
        const auto all = [&](const char *version, const char *contents) {
            return h.deb(
                DebBuilder("doc"_s).version(QLatin1String(version)).architecture("all"_s).contents(contents));
        };
        h.add({all("1.0", "x")});
        const QString other = all("1.0", "y");
        ChangePreview preview = previews.of(adding({other}));
        QCOMPARE(shown(preview), "amd64 collision same version off 0|i386 collision same version off 0"_s);
        preview.setOn(1, true);
        QVERIFY(preview.rows.at(0).isOn && preview.rows.at(1).isOn);
        QVERIFY(previews.isKept(preview));
        QCOMPARE(shown(previews.of(adding({other}))),
                 "amd64 collision same file off|i386 collision same file off"_s);

        // A newer version has a file of its own, so one architecture can go on alone.
        preview = previews.of(adding({all("3.0", "x"), all("2.0", "x"), all("3.0", "z")}));
        QCOMPARE(shown(preview),
                 "amd64 collision newer on 0|i386 collision newer on 0|amd64 collision newer off|"
                 "i386 collision newer off|amd64 collision newer off 1|i386 collision newer off 1"_s);
        preview.setOn(2, true);
        QCOMPARE(shown(preview),
                 "amd64 collision newer off 0|i386 collision newer off 0|amd64 collision newer on|"
                 "i386 collision newer off|amd64 collision newer off 1|i386 collision newer off 1"_s);
        QVERIFY(previews.isKept(preview));
        QVERIFY(h.holds("doc 1.0 main i386,doc 2.0 main amd64"_s));

        QVERIFY(!preview.breaksSomething());
        preview = previews.of(adding({all("0.5", "x")}));
        QVERIFY(!PreviewRules::isDue(PreviewWhenBreaking, preview)
                && PreviewRules::isDue(PreviewAlways, preview));
        preview.setOnForAll(PreviewRow::Older, true);
        QVERIFY(PreviewRules::isDue(PreviewWhenBreaking, preview)
                && !PreviewRules::isDue(PreviewNever, preview));
        QVERIFY(previews.isKept(preview));
    }

    /** A preview changes no byte, and an outdated one is not carried out. */
    void outdatedPreviewsChangeNothing()
    {
        RepoHarness h("amd64 i386"_s);
        Previews previews(h);
        h.add(h.debs("present old"));
        const QStringList files = h.debs("added") + h.debs("present", "2.0");
        const QByteArray tree = treeOf(h.repoPath());
        const QDateTime database = QFileInfo(h.repoPath() + "/db/packages.db"_s).lastModified();
        const ChangePreview preview = previews.of(adding(files));
        QCOMPARE(treeOf(h.repoPath()), tree);
        QCOMPARE(QFileInfo(h.repoPath() + "/db/packages.db"_s).lastModified(), database);

        const auto isRefused = [&](const ChangePreview &shown) {
            const QByteArray before = treeOf(h.repoPath());
            return previews.apply(shown) == RepoEnums::ERROR && previews.outdated == 1
                   && treeOf(h.repoPath()) == before;
        };
        // A file of the same size and times, with other contents.
        const QFileInfo info(files.first());
        const QByteArray bytes = readFile(files.first());
        const auto touch = [&](const QByteArray &contents) {
            writeFile(files.first(), contents);
            QFile file(files.first());
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(info.lastModified(), QFileDevice::FileModificationTime));
        };
        QByteArray changed = bytes;
        changed[changed.size() - 3] = char(changed.at(changed.size() - 3) + 1);
        touch(changed);
        QVERIFY(isRefused(preview));
        QFile::remove(files.first());
        QVERIFY(isRefused(preview));
        touch(bytes);

        // Somebody else's change is refused, noticed by the next preview, and part of that.
        QVERIFY(h.reprepro({"remove"_s, "dogwood"_s, "old"_s}).succeeded());
        QVERIFY(isRefused(preview));
        const ChangePreview anew = previews.of(adding(files));
        QVERIFY(h.events.contains("-old 1.0 amd64"_s));
        QVERIFY(previews.isKept(anew));
        QVERIFY(isRefused(anew));

        // While another job has the repository, nothing is done either.
        JobLock lock;
        const ChangePreview last = previews.of(adding(h.debs("late")));
        QVERIFY(lock.take(h.repoPath()));
        QCOMPARE(previews.apply(last), RepoEnums::ERROR);
        QVERIFY(previews.outdated == 0 && !h.criticals.isEmpty());
    }

    /** Descriptions: what goes, what comes into new architectures, and what clients must do. */
    void descriptionsBecomeWhatIsShown()
    {
        RepoHarness h("amd64 i386"_s);
        Previews previews(h);
        h.add({h.deb(DebBuilder("doc"_s).architecture("all"_s)),
               h.deb(DebBuilder("both"_s).architecture("amd64"_s)),
               h.deb(DebBuilder("both"_s).architecture("i386"_s)),
               h.deb(DebBuilder("free"_s).field("Section"_s, "contrib/net"_s)),
               h.deb(DebBuilder("inst"_s).architecture("all"_s).udeb())});
        const RepoInfo original = h.shell.repoInfo();
        const auto changed = [&](const char *architectures, const char *components, const char *codename) {
            RepoInfo info = h.shell.repoInfo();
            info.architectures = QLatin1String(architectures);
            info.components = QLatin1String(components);
            info.codename = QLatin1String(codename);
            return info;
        };
        PreviewRequest request = describing(changed("amd64 arm64", "main", "dogwood"));
        ChangePreview preview = previews.of(request);
        QVERIFY(preview.effect.description.join(u'|').contains("i386"_s));
        QVERIFY(preview.effect.clients.join(u'|').contains("contrib"_s));
        QVERIFY(previews.isKept(preview));

        request = describing(changed("amd64 arm64 i386", "main", "elm"));
        request.carriesPackages = true;
        preview = previews.of(request);
        QVERIFY(preview.effect.clients.join(u'|').contains("elm"_s));
        QVERIFY(previews.isKept(preview));

        // What the preview says of the description is not asked about again.
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        writeFile(conf, readFile(conf).trimmed() + "\nNotAutomatic: yes\n");
        request = describing(changed("amd64", "main", "fir"));
        preview = previews.of(request);
        QVERIFY(preview.effect.description.join(u'|').contains("NotAutomatic: yes"_s));
        QCOMPARE(expected(listingOf(h), preview.rows), Listing());
        QVERIFY(previews.isKept(preview));
    }

    /** A client's apt refuses a new label until the command that the preview shows, and takes a new suite as it is. */
    void clientsAcceptWithTheShownCommand()
    {
        VELT_NEED_TOOL("apt-get");
        RepoHarness h;
        Previews previews(h);
        h.add(h.debs("foo"));
        writeFile(h.at("sources.list"),
                  "deb [trusted=yes] file:" + h.repoPath().toUtf8() + " dogwood main\n");
        QDir(h.folder.path()).mkpath("lists/partial"_s);
        QDir(h.folder.path()).mkpath("cache/archives/partial"_s);
        writeFile(h.at("apt.conf"),
                  "Dir::Etc::sourcelist \"" + h.at("sources.list").toUtf8()
                      + "\"; Dir::Etc::sourceparts \"-\"; Dir::State::lists \"" + h.at("lists").toUtf8()
                      + "\"; Dir::Cache \"" + h.at("cache").toUtf8() + "\"; APT::Sandbox::User \"root\";");
        const ScopedVariable config("APT_CONFIG", h.at("apt.conf"));
        const auto update = [](const QString &command) {
            const QStringList words = command.split(u' ');
            return runProcess({words.first(), words.mid(1), {}, {}, -1});
        };
        const QString plain = "apt-get update"_s;
        QVERIFY(update(plain).succeeded());
        RepoInfo info = h.shell.repoInfo();
        info.label = "Another"_s;
        info.origin = "Somebody"_s;
        ChangePreview preview = previews.of(describing(info));
        const QString told = preview.effect.clients.join(u'|');
        const QString command = told.mid(told.indexOf("apt-get"_s));
        QVERIFY(previews.isKept(preview));
        QVERIFY(update(plain).errorOutput.contains("'Label'"_s));
        QVERIFY2(update(command).succeeded(), qPrintable(told));
        QVERIFY(update(plain).succeeded());
        info.suite = "testing"_s;
        QVERIFY(previews.isKept(previews.of(describing(info))));
        QVERIFY(update(plain).succeeded());
    }

    /** The effect is what complete checks before and after the change find, here and in another repository. */
    void effectIsThatOfCompleteChecks()
    {
        VELT_NEED_TOOL("apt-get");
        RelatedPackages h({"app 1.0; Depends: lib (>= 1)"_s,
                           "tool 1.0; Depends: lib (<< 2), helper"_s,
                           "lib 1.0"_s,
                           "waiting 1.0; Depends: coming"_s,
                           "healed 1.0; Depends: nothing"_s,
                           "far 1.0; Depends: tool"_s},
                          {"helper 1.0"_s});
        RepoHarness other;
        other.add({other.deb(described("guest 1.0; Depends: lib (<< 2)"_s))});
        Previews previews(h);
        PreviewRequest request = adding({h.deb(described("lib 2.0; Depends: nothing"_s)),
                                         h.deb(described("coming 1.0"_s)),
                                         h.deb(described("healed 2.0"_s)),
                                         h.deb(described("broken 1.0; Depends: nothing"_s))});
        request.findsEffect = true;
        request.others = {other.shell.snapshot()};
        h.check(CompleteCheckBase::Public);
        const QString before = h.broken();
        const ChangePreview preview = previews.of(request);
        QCOMPARE(previews.all.size(), 2);
        QVERIFY(!previews.all.first().effect.isKnown && preview.effect.isKnown);
        QCOMPARE(previews.all.first().rows.size(), preview.rows.size());
        QCOMPARE(lostNames(preview.effect.lost), "app far guest lib tool"_s);
        QCOMPARE(lostNames(preview.effect.gained), "healed waiting"_s);
        // It is the version that comes which can be installed then.
        QVERIFY(
            PreviewReport::text(preview).contains("healed 2.0 (amd64)\n    Until now: healed needs nothing"));
        QCOMPARE(lostNames(preview.effect.uninstallable), "broken"_s);
        for (const PreviewLoss &loss : preview.effect.lost)
            QVERIFY2(!loss.reasons.isEmpty(), qPrintable(loss.package->name));
        QVERIFY(preview.breaksSomething());
        QCOMPARE(before, "healed waiting"_s);

        QVERIFY(previews.isKept(preview));
        h.check(CompleteCheckBase::Public);
        QCOMPARE(h.broken(), "app broken far lib tool"_s);

        // Removing: as the search for those that need it.
        PreviewRequest removal;
        removal.kind = ChangePreview::Remove;
        removal.packages = {h.find("coming"_s)};
        ChangePreview without = previews.of(removal);
        QCOMPARE(lostNames(without.effect.lost), "waiting"_s);
        QCOMPARE(without.effect.comes, 0);
        QCOMPARE(without.effect.goes, QFileInfo(h.find("coming"_s)->filePath()).size());
        without.setOn(0, false);
        QVERIFY(!without.effect.isKnown && !without.changesSomething());
        previews.all.clear();
        h.run([&] { h.shell.updatePreview(without); });
        QVERIFY(previews.all.last().effect.isKnown && previews.all.last().effect.lost.isEmpty());
    }

    /** Fetching and upgrading: rows from apt's own records, before anything is fetched. */
    void fetchingAndUpgradingBecomeWhatIsShown()
    {
        VELT_NEED_TOOL("apt-get");
        RelatedPackages h({"lib 1.0"_s, "doc 1.0; Architecture: all"_s},
                          {"lib 2.0"_s, "extra 1.0"_s, "doc 2.0; Architecture: all"_s});
        Previews previews(h);
        PreviewRequest request;
        request.kind = ChangePreview::Fetch;
        request.findsEffect = false;
        for (const char *name : {"lib 2.0", "extra 1.0", "doc 2.0", "gone 1.0"}) {
            PackageInfo package;
            package.name = QString::fromLatin1(name).section(u' ', 0, 0);
            package.version = QString::fromLatin1(name).section(u' ', 1);
            package.architecture = "amd64"_s;
            request.wanted.append(package);
        }
        ChangePreview preview = previews.of(request);
        QCOMPARE(
            shown(preview),
            "amd64 collision newer on|amd64 change alone on|amd64 collision newer on|amd64 refused alone off"_s);
        preview.setOn(2, false);
        QVERIFY(previews.isKept(preview));
        QVERIFY(h.holds("doc 1.0 main amd64,extra 1.0 main amd64,lib 2.0 main amd64"_s));

        const QString source = "[trusted=yes] file:%1/public dogwood main"_s.arg(h.folder.path());
        h.run([&] { h.shell.prepareUpgrade({source}); });
        request = {};
        request.kind = ChangePreview::Upgrade;
        request.upgrades = h.shell.upgradablePackages();
        QCOMPARE(request.upgrades.size(), 1);
        preview = previews.of(request);
        QCOMPARE(shown(preview), "amd64 change newer on"_s);
        QCOMPARE(preview.effect.upgrades, 1);
        QVERIFY(previews.isKept(preview));
        QVERIFY(h.holds("doc 2.0 main amd64,extra 1.0 main amd64,lib 2.0 main amd64"_s));
    }

    /** Of an archive the files are unpacked once, for the preview and for the import. */
    void importsBecomeWhatIsShown()
    {
        RepoHarness source("amd64 i386"_s);
        source.add(source.debs("one two three"));
        RepoHarness h("amd64 i386"_s);
        Previews previews(h);
        const QString archive = source.at("repo.tgz");
        source.run([&] { source.shell.exportRepo(archive); });
        for (const QString &from : {archive, source.repoPath()}) {
            PreviewRequest request;
            request.kind = ChangePreview::Import;
            request.archive = from;
            request.findsEffect = false;
            ChangePreview preview = previews.of(request);
            QCOMPARE(preview.rows.size(), 3);
            preview.setOn(1, false);
            QVERIFY(previews.isKept(preview));
        }
    }

    /** Going back to each earlier state, with a description of then, and with a file of then that is gone. */
    void returnsBecomeWhatIsShown()
    {
        RepoHarness h("amd64 i386"_s);
        Previews previews(h);
        const auto all = [&](const char *version, const char *contents = "x") {
            return h.deb(
                DebBuilder("doc"_s).version(QLatin1String(version)).architecture("all"_s).contents(contents));
        };
        h.choice = PackageReplacementRules::ReplaceAll;
        h.add({all("1.0")});
        h.add({all("1.0", "y")});
        h.add(h.debs("one two") + QStringList{all("2.0")});
        h.remove({h.find("one"_s), h.find("doc"_s, "i386"_s)});
        h.info = h.shell.repoInfo();
        h.info.architectures = "amd64"_s;
        h.info.label = "Another"_s;
        h.change(h.repoPath());
        const int newest = RepositoryHistory::newestNumber(h.repoPath());
        QCOMPARE(newest, 5);
        PreviewRequest request;
        request.kind = ChangePreview::Return;
        request.findsEffect = false;
        for (const int point : {newest, newest - 2, 2, newest, 1, newest + 3}) {
            request.point = point;
            const ChangePreview preview = previews.of(request);
            QVERIFY2(preview.changesSomething(), qPrintable(h.words()));
            QVERIFY2(previews.isKept(preview), qPrintable(QString::number(point)));
        }
        // The description of then comes back with the packages, and clients must know of it.
        request.point = newest;
        const ChangePreview described = previews.of(request);
        QCOMPARE(described.effect.clients.join(u'|').contains("Label"_s),
                 h.shell.repoInfo().label == "Another"_s);

        // One package alone, of a name that another version has now.
        h.add({all("3.0")});
        PreviewRequest single;
        single.point = RepositoryHistory::newestNumber(h.repoPath());
        single.back = RepositoryHistory::read(h.repoPath()).points.first().changes;
        single.collisions.value = PackageReplacementRules::ReplaceAll;
        single.findsEffect = false;
        const ChangePreview back = previews.of(single);
        QVERIFY(back.rows.first().change.after == single.back.first().before && previews.isKept(back));

        h.add(h.debs("three"));
        h.remove({h.find("three"_s)});
        request.point = RepositoryHistory::newestNumber(h.repoPath());
        const QString kept = RepositoryHistory::pointFolder(h.repoPath(), request.point) + "/pool"_s;
        QVERIFY(QDir(kept).removeRecursively());
        const ChangePreview broken = previews.of(request);
        QCOMPARE(shown(broken), "amd64 refused alone off"_s);
        QVERIFY(!broken.changesSomething());
    }

    /** The report for programs has each row and the effect. */
    void reportsTellAll()
    {
        RepoHarness h;
        Previews previews(h);
        h.add(h.debs("one"));
        const QStringList files = h.debs("one", "2.0") + h.debs("two");
        const ChangePreview preview = previews.of(adding(files));
        const QJsonObject report = PreviewReport::object(preview);
        const QJsonArray rows = report.value("rows"_s).toArray();
        QCOMPARE(rows.size(), 2);
        const QJsonObject row = rows.first().toObject();
        QCOMPARE(row.value("action"_s).toString(), "replace"_s);
        QCOMPARE(row.value("relation"_s).toString(), "newer"_s);
        QCOMPARE(row.value("before"_s).toObject().value("version"_s).toString(), "1.0"_s);
        QCOMPARE(row.value("after"_s).toObject().value("size"_s).toInt(),
                 int(QFileInfo(files.first()).size()));
        const QString text = QString::fromUtf8(PreviewReport::text(preview));
        QVERIFY2(text.contains("one 1.0 → 2.0 (main, amd64)"_s) && text.contains("two 1.0 (main, amd64)"_s),
                 qPrintable(text));
    }
};

VELT_TEST_MAIN(TestPreview, QCoreApplication)
#include "tst_preview.moc"
