// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/history/repositoryhistory.h"
#include "engine/preview/previewrequest.h"
#include "support/testkeys.h"

namespace
{
const QString KeyName = "Release key <r@example.org>"_s;

AddOptions into(const QString &component)
{
    AddOptions options;
    options.component = component;
    return options;
}

CopySource sourceOf(const EngineHarness &h, const QStringList &names)
{
    CopySource source{h.shell.path(), {}, h.shell.packages()};
    for (const PackageInfoPtr &package : h.shell.packages())
        if (names.contains(package->name))
            source.packages.append(package);
    return source;
}

/** What is in the pool: "name checksum" of each file. */
QSet<QString> pool(const EngineHarness &h)
{
    QSet<QString> files;
    for (const PackageInfoPtr &package : h.shell.packages()) {
        const QByteArray bytes = readFile(package->filePath());
        files.insert(
            package->fileName() + u' '
            + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex()));
    }
    return files;
}
} // namespace

/** Packages from one repository to another, and from one component to another, with the real reprepro. */
class TestCopying : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("debsig-verify");
    }

    void packagesComeAsTheyAre()
    {
        const QString key = TestKeys::make(KeyName);
        RepoHarness from("amd64 i386"_s);
        RepoHarness to("amd64 i386"_s);
        const QString app = from.deb(DebBuilder("app"_s).field("Depends"_s, "lib (>= 2), gone | virtual"_s));
        const QString provider = from.deb(DebBuilder("provider"_s).field("Provides"_s, "virtual"_s));
        from.add(QStringList{app, provider, from.deb(DebBuilder("both"_s).architecture("all"_s))}
                 + from.debs("lib other", "2.0"));
        from.add({from.deb(DebBuilder("small"_s).udeb())});
        from.add(from.debs("aside"), into("contrib"_s));
        from.add(from.debs("signed"), {QString(), true, key});
        to.add(to.debs("lib", "1.0"));
        QVERIFY2(from.settled() && to.settled(), qPrintable(from.trouble() + to.trouble()));
        const QByteArray before = treeOf(from.repoPath());

        CopySource source = sourceOf(from, "app|both|small|aside|signed"_list);
        source.withDepends = true;
        to.choice = PackageReplacementRules::ReplaceThis;
        QCOMPARE(to.run([&] { to.shell.copyPackages(source); }), RepoEnums::SUCCESS);
        QCOMPARE(to.trouble(), QString());
        QCOMPARE(to.collisions, {RepoEnums::PACKAGE_EXISTS_OLD_VERSION});
        QVERIFY(to.holds(
            "app 1.0 main amd64,aside 1.0 contrib amd64,both 1.0 main amd64,both 1.0 main i386,"
            "lib 2.0 main amd64,provider 1.0 main amd64,signed 1.0 main amd64,small 1.0 main amd64"_s));
        QVERIFY2(before == treeOf(from.repoPath()), "the source was changed");
        QCOMPARE(pool(to).size(), 7);
        QVERIFY2(pool(from).contains(pool(to)), "a file is another one");
        QVERIFY(TestKeys::verifies(to.find("signed"_s)->filePath(), key));
        const RestorePoint point = RepositoryHistory::read(to.repoPath()).points.first();
        QCOMPARE(point.summary, "Copying packages"_s);
        QCOMPARE(point.changes.size(), 8);
        QCOMPARE(point.changes.first().origin, "the repository repo"_s);
        to.open(to.repoPath());
        QCOMPARE(to.find("signed"_s)->signingKey, TestKeys::text(KeyName, key));

        // What is there already is no collision.
        QCOMPARE(to.run([&] { to.shell.copyPackages(source); }), RepoEnums::SUCCESS);
        QVERIFY(to.collisions.isEmpty() && to.events.isEmpty()
                && to.lastMessage().contains("Already there"_s));
        QCOMPARE(to.run([&] { to.shell.copyPackages(sourceOf(from, {"other"_s}), into("contrib"_s)); }),
                 RepoEnums::SUCCESS);
        QCOMPARE(to.find("other"_s)->component, "contrib"_s);
        // A place that the target does not have is told, and so is a file that somebody has changed.
        to.run([&] { to.shell.copyPackages(sourceOf(from, {"lib"_s}), into("free"_s)); });
        QVERIFY(to.complains("The package is for the component free"_s));
        const QString file = from.find("other"_s)->filePath();
        QVERIFY(QFile::remove(file) && QFile::rename(from.debs("other", "2.0", "else").first(), file));
        to.run([&] { to.shell.copyPackages(sourceOf(from, {"other"_s})); });
        QVERIFY(to.complains("It is not the file that its repository lists."_s));
        QVERIFY(to.events.isEmpty() && to.settled());
    }

    void onlyWhatHasArrivedLeaves()
    {
        RepoHarness from("amd64 i386"_s);
        RepoHarness to;
        from.add(QStringList{from.deb(DebBuilder("both"_s).architecture("all"_s))}
                 + from.debs("foo bar", "1.0", "one"));
        to.add(to.debs("foo", "1.0", "two"));
        const QStringList all{"both"_s, "foo"_s, "bar"_s};
        const CopySource source = sourceOf(from, all);
        to.choice = PackageReplacementRules::KeepThis;
        to.run([&] { to.shell.copyPackages(source); });
        QCOMPARE(to.collisions, {RepoEnums::PACKAGE_EXISTS});
        QVERIFY(to.holds("bar 1.0 main amd64,both 1.0 main amd64,foo 1.0 main amd64"_s));
        // The target has another foo, and no place for i386.
        from.run([&] { from.shell.removeMoved(source.leaving(), to.repoPath()); });
        QVERIFY(from.complains("2 package(s) stay(s) here"_s) && from.complains("both_1.0_all.deb (i386)"_s));
        QVERIFY(from.holds("both 1.0 main i386,foo 1.0 main amd64"_s));
        from.run([&] { from.shell.removeMoved(sourceOf(from, all).packages, from.at("nowhere")); });
        QVERIFY(from.holds("both 1.0 main i386,foo 1.0 main amd64"_s));
    }

    /** One job, which is shown before and undone after. */
    void betweenComponents()
    {
        RepoHarness h("amd64 i386"_s);
        h.add(QStringList{h.deb(DebBuilder("both"_s).architecture("all"_s)),
                          h.deb(DebBuilder("twin"_s)),
                          h.deb(DebBuilder("twin"_s).udeb())}
              + h.debs("foo bar", "1.0", "one"));
        h.add(h.debs("bar", "1.0", "two"), into("contrib"_s));
        const auto files = pool(h);
        const QStringList start = h.listed();
        const int points = RepositoryHistory::read(h.repoPath()).points.size();

        PreviewRequest request;
        request.copy = sourceOf(h, {"foo"_s, "both"_s});
        request.copy->moves = true;
        request.options.component = "contrib"_s;
        ChangePreview preview;
        connect(&h.shell, &RepoShell::previewReady, &h.shell, [&preview](const ChangePreview &ready) {
            preview = ready;
        });
        h.run([&] { h.shell.preview(request); });
        QStringList rows;
        for (const PreviewRow &row : preview.rows)
            rows.append("%1 %2 %3 %4"_s.arg(row.change.name, row.change.component, row.change.architecture)
                            .arg(row.change.kind == PackageChange::Removed ? "-"_s : "+"_s));
        rows.sort();
        QCOMPARE(rows,
                 "both contrib amd64 +|both contrib i386 +|both main amd64 -|both main i386 -|"
                 "foo contrib amd64 +|foo main amd64 -"_list);
        // A package that stays where it is does not come in there either.
        const auto isFoo = [](const PreviewRow &row) { return row.change.name == "foo"_s; };
        const auto foo = std::find_if(preview.rows.cbegin(), preview.rows.cend(), isFoo);
        preview.setOn(static_cast<int>(foo - preview.rows.cbegin()), false);
        QCOMPARE(h.run([&] { h.shell.apply(preview); }), RepoEnums::SUCCESS);
        QVERIFY(
            h.holds("bar 1.0 contrib amd64,bar 1.0 main amd64,both 1.0 contrib amd64,both 1.0 contrib i386,"
                    "foo 1.0 main amd64,twin 1.0 main amd64,twin 1.0 main amd64"_s));

        // The other bar keeps its place, so this one does too.
        CopySource source = sourceOf(h, {"foo"_s, "bar"_s, "both"_s, "twin"_s});
        source.moves = true;
        source.packages.erase(std::remove_if(source.packages.begin(),
                                             source.packages.end(),
                                             [](const auto &package) {
                                                 return package->indexComponent == "contrib"_s
                                                        || package->type == PackageType::Udeb;
                                             }),
                              source.packages.end());
        h.run([&] { h.shell.copyPackages(source, into("contrib"_s)); });
        QCOMPARE(h.trouble(), QString());
        QVERIFY(
            h.holds("bar 1.0 contrib amd64,bar 1.0 main amd64,both 1.0 contrib amd64,both 1.0 contrib i386,"
                    "foo 1.0 contrib amd64,twin 1.0 contrib amd64,twin 1.0 main amd64"_s));
        QCOMPARE(pool(h), files);
        const auto history = RepositoryHistory::read(h.repoPath()).points;
        QCOMPARE(history.size(), points + 2);
        QCOMPARE(history.first().summary, "Moving packages"_s);
        h.run([&] { h.shell.goBack(history.at(1).number); });
        QCOMPARE(h.listed(), start);
        QVERIFY(h.settled());
    }
};

VELT_TEST_MAIN(TestCopying, QCoreApplication)
#include "tst_copying.moc"
