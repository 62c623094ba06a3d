// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cliharness.h"
#include "core/historylimits.h"
#include "files/settingsformat.h"

#include <QCryptographicHash>
#include <QSettings>

namespace
{
/** "number kind +name version ~name old>new -name version", without the architectures, newest first. */
QString shown(const QJsonObject &history)
{
    QStringList points;
    for (const QJsonValue &point : history["points"_s].toArray()) {
        QStringList words{QString::number(point["point"_s].toInt()), point["kind"_s].toString()};
        for (const QJsonValue &change : point["changes"_s].toArray()) {
            const QString before = change["before"_s]["version"_s].toString();
            const QString after = change["after"_s]["version"_s].toString();
            words.append(change["change"_s].toString() + u' ' + change["package"_s].toString() + u' ' + before
                         + (before.isEmpty() || after.isEmpty() ? ""_s : ">"_s) + after);
        }
        points.append(words.join(u' '));
    }
    return points.join(u'|');
}
} // namespace

/** The commands about restore points, on real repositories. */
class TestCliHistory : public QObject
{
    Q_OBJECT
private:
    static QByteArray index(const CliHarness &h)
    {
        return readFile(h.repo() + "/dists/dogwood/main/binary-amd64/Packages"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        // The program's own settings, in the private home of this test.
        SettingsFormat::useForOwnSettings();
    }
    void cleanup() { QSettings("corvana"_s, "velt-admin-repo"_s).clear(); }

    void thereAndBack()
    {
        CliHarness h;
        h.create();
        CliResult result = h.json("undo", {"--yes"_s});
        QVERIFY2(result.code == 3 && result.errorCodes() == "nothing"_s, result.said());
        const QString one = h.deb("foo", "1");
        QCOMPARE(h.json("add", {one}).code, 0);
        const QByteArray first = index(h);
        QCOMPARE(h.json("add", {"--on-collision"_s, "newer"_s, h.deb("foo", "2"), h.deb("bar")}).code, 0);
        const QByteArray second = index(h);
        QCOMPARE(h.json("remove", {"foo"_s}).code, 0);
        QVERIFY(h.holds("bar 1.0 amd64"_s));
        // Another program takes part.
        QVERIFY(h.reprepro({"includedeb"_s, "dogwood"_s, h.deb("baz")}).startsWith("Exporting"_s));
        QCOMPARE(h.json("change", {"origin=Them"_s}).code, 0);

        result = h.json("history", {});
        QCOMPARE(shown(result.json()),
                 "5 job|4 outside added baz 1.0|3 job removed foo 2|2 job replaced foo 1>2 added bar 1.0|"
                 "1 job added foo 1"_s);
        const QJsonArray points = result.json()["points"_s].toArray();
        QVERIFY(points[0]["description"_s].toBool() && points[0]["kept"_s].toBool()
                && !points[1]["kept"_s].toBool() && !points[0]["user"_s].toString().isEmpty());
        const QJsonValue added = points[4]["changes"_s][0];
        QCOMPARE(added["origin"_s].toString(), one);
        const QByteArray digest = QCryptographicHash::hash(readFile(one), QCryptographicHash::Sha256).toHex();
        QCOMPARE(added["after"_s]["sha256"_s].toString(), QString::fromLatin1(digest));
        // The file of the package that was replaced is in the history, and told by the same digest.
        QCOMPARE(points[3]["changes"_s][0]["before"_s], added["after"_s]);
        QCOMPARE(shown(h.json("history", "bar"_list).json()), "2 job added bar 1.0"_s);
        QCOMPARE(shown(h.json("history", "foo|--limit|1"_list).json()), "3 job removed foo 2"_s);
        const QByteArray text = h.run({"history"_s, h.repo(), "foo"_s}).output;
        QVERIFY2(text.contains("foo 1 -> 2 amd64 main") && text.contains(QByteArray("from " + one.toUtf8())),
                 text.constData());

        QCOMPARE(h.json("diff", "2"_list).json()["changes"_s].toArray().size(), 3);
        QCOMPARE(h.json("diff", "3|1"_list).json()["changes"_s].toArray().size(), 2);
        QVERIFY(h.run({"diff"_s, h.repo(), "3"_s, "1"_s}).output.contains("Removed: foo 2 amd64 main"));
        QVERIFY(h.json("diff", "3|3"_list).json()["changes"_s].toArray().isEmpty());
        QVERIFY(h.run({"diff"_s, h.repo(), "3"_s, "3"_s}).errors.contains("No packages differ"));

        // Nobody is there who could agree.
        result = h.json("restore", "2"_list);
        QVERIFY2(result.code == 3 && result.errorCodes() == "question refused"_s, result.said());
        QVERIFY(h.holds("bar 1.0 amd64,baz 1.0 amd64"_s));
        QVERIFY(h.run({"undo"_s, h.repo()}).errors.contains("The description of the repository changes too"));
        const QJsonObject shownFirst = h.json("undo", {"--dry-run"_s}).json();
        QVERIFY(readFile(h.repo() + "/conf/distributions"_s).contains("Them") && !shownFirst.isEmpty());
        result = h.json("undo", {"--yes"_s});
        QVERIFY2(result.code == 0 && result.json()["point"_s].toInt() == 5, result.said());
        QVERIFY(!readFile(h.repo() + "/conf/distributions"_s).contains("Them"));
        result = h.json("restore", "3|--yes"_list);
        QVERIFY2(result.code == 0 && listed(result.json()["added"_s]) == "foo 2 amd64"_s, result.said());
        QVERIFY(index(h) == second && h.holds("bar 1.0 amd64,foo 2 amd64"_s));
        result = h.json("restore", "2|--yes"_list);
        QVERIFY2(result.code == 0 && listed(result.json()["replaced"_s]) == "foo 1 amd64"_s, result.said());
        QVERIFY(index(h) == first && h.holds("foo 1 amd64"_s));
        // And forth.
        QCOMPARE(h.json("undo", {"--yes"_s}).code, 0);
        QVERIFY(index(h) == second);
        QVERIFY(shown(h.json("history", "--limit|1"_list).json()).startsWith("9 return "_s));

        // One package alone.
        result = h.json("restore", "2|--dry-run|--package|foo"_list);
        // It says that clients would keep the newer version.
        QVERIFY2(result.code == 1 && h.holds("bar 1.0 amd64,foo 2 amd64"_s), result.said());
        QCOMPARE(h.json("restore", "2|--yes|--package|foo"_list).code, 0);
        QVERIFY(h.holds("bar 1.0 amd64,foo 1 amd64"_s));
        const QJsonArray newest = h.json("history", "--limit|1"_list).json()["points"_s].toArray();
        QCOMPARE(newest[0]["changes"_s][0]["origin"_s].toString(), one);
        result = h.json("restore", "2|--yes|--package|foo"_list);
        QVERIFY2(result.code == 3 && result.errorCodes() == "nothing"_s, result.said());
    }

    void refused()
    {
        CliHarness h;
        h.create();
        QCOMPARE(h.json("add", {h.deb("foo")}).code, 0);
        for (const char *command : {"diff", "restore"})
            for (const char *point : {"2", "0", "-1", "x", "99999999999"}) {
                const CliResult none = h.json(command, {"--yes"_s, "--"_s, QLatin1String(point)});
                QVERIFY2(none.code == 3 && none.errorCodes() == "unknown"_s, none.said());
            }
        for (const char *limit : {"0", "-1", "x", ""})
            QCOMPARE(h.json("history", {"--limit="_s + QLatin1String(limit)}).code, 2);
        QCOMPARE(h.run({"history"_s, h.at("none"_s)}).code, 3);
        // A file that somebody has deleted is named before anything happens.
        QCOMPARE(h.json("remove", {"foo"_s}).code, 0);
        const QString kept
            = h.repo() + "/db/velt-admin-repo.history/000002/pool/main/f/foo/foo_1.0_amd64.deb"_s;
        QVERIFY(QFile::remove(kept));
        for (const QStringList &words : {"2|--yes"_list, "2|--yes|--package|foo"_list}) {
            const CliResult missing = h.json("restore", words);
            QVERIFY2(missing.code == 3 && missing.errors.contains("foo_1.0_amd64.deb"), missing.said());
        }
        QVERIFY(h.holds({}));
        // A record that is damaged does not hide the others.
        writeFile(h.repo() + "/db/velt-admin-repo.history/000001/job.json"_s, "{}");
        QVERIFY(h.run({"history"_s, h.repo()}).output.contains("Removed: foo 1.0 amd64 main"));
        QCOMPARE(h.json("diff", "1"_list).errorCodes(), "damaged"_s);
    }

    /** The settings of the window hold here too. */
    void limits()
    {
        CliHarness h;
        h.create();
        for (const char *name : {"a", "b", "c", "d"})
            QCOMPARE(h.json("add", {h.deb(name)}).code, 0);
        const auto set = [](const HistoryLimits &limits) {
            QSettings settings("corvana"_s, "velt-admin-repo"_s);
            limits.save(settings);
        };
        HistoryLimits few;
        few.points = 2;
        set(few);
        const qint64 before = h.json("history", {}).json()["size"_s].toInt();
        const QJsonObject pruned = h.json("history", {"--prune"_s}).json();
        QCOMPARE(shown(pruned), "4 job added d 1.0|3 job added c 1.0"_s);
        QVERIFY(pruned["freed"_s].toInt() > 0);
        QCOMPARE(pruned["size"_s].toInt() + pruned["freed"_s].toInt(), before);
        QCOMPARE(h.json("remove", {"a"_s}).code, 0);
        QCOMPARE(shown(h.json("history", {}).json()), "5 job removed a 1.0|4 job added d 1.0"_s);
        few.isOn = false;
        set(few);
        QCOMPARE(h.json("remove", {"b"_s}).code, 0);
        const QJsonValue newest = h.json("history", {}).json()["points"_s].toArray().first();
        QVERIFY(!newest["kept"_s].toBool() && !newest["reason"_s].toString().isEmpty());
        QCOMPARE(h.json("restore", "6|--yes"_list).code, 3);
        QVERIFY(h.holds("c 1.0 amd64,d 1.0 amd64"_s));
    }
};

VELT_TEST_MAIN(TestCliHistory, QCoreApplication)
#include "tst_clihistory.moc"
