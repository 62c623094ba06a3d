// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cliharness.h"

namespace
{
/** Random relations among a few names, the same each time: most packages fail, for many reasons. */
class Relations
{
public:
    QString entry(bool mayChoose)
    {
        QString text = name();
        if (below(2) == 0)
            text += " (%1 %2)"_s.arg(QStringList{">="_s, "<<"_s, "="_s}.at(below(3))).arg(below(4));
        return mayChoose && below(4) == 0 ? text + " | "_s + entry(false) : text;
    }
    QString field(int most, bool mayChoose)
    {
        QStringList entries;
        for (int count = below(most + 1); count > 0; --count)
            entries.append(entry(mayChoose));
        return entries.join(", "_s);
    }
    QString name() { return "p%1"_s.arg(below(Names)); }
    int below(int limit) { return m_random.bounded(limit); }

    static constexpr int Names = 40;

private:
    QRandomGenerator m_random{7};
};

/** What dose-debcheck says of the indices: "name version", sorted. */
QStringList brokenForDose(const QString &repo, const QString &architecture)
{
    // Its exit code tells of broken packages too.
    const QString output = runShell(
        "dose-debcheck -f --deb-native-arch=%1 '%2/dists/dogwood/main/binary-%1/Packages' || [ $? -lt 64 ]"_s
            .arg(architecture, repo));
    QStringList broken;
    QString name;
    for (const QString &line : output.split(u'\n')) {
        if (line.startsWith("  package: "_s))
            name = line.section(u' ', -1);
        else if (line.startsWith("  version: "_s))
            broken.append(name + u' ' + line.section(u' ', -1) + u' ' + architecture);
    }
    broken.sort();
    return broken;
}
} // namespace

/** The complete check from the command line. */
class TestCliCheck : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    /** Another solver judges the indices that reprepro has written. */
    void sameAsDose()
    {
        VELT_NEED_TOOL("dose-debcheck");
        CliHarness h;
        h.create("--architectures|amd64,i386"_list);
        Relations relations;
        for (int i = 0; i < Relations::Names; ++i) {
            DebBuilder deb("p%1"_s.arg(i));
            deb.version(QString::number(relations.below(4)));
            deb.architecture(QStringList{"all"_s, "amd64"_s, "amd64"_s, "i386"_s}.at(relations.below(4)));
            deb.field("Depends"_s, relations.field(3, true));
            deb.field("Pre-Depends"_s, relations.field(1, true));
            deb.field("Conflicts"_s, relations.field(1, false));
            deb.field("Breaks"_s, relations.field(1, false));
            deb.field("Provides"_s, relations.below(4) == 0 ? relations.name() : QString());
            deb.build(h.at("debs"_s));
        }
        QCOMPARE(h.run({"add"_s, "--quiet"_s, h.repo(), h.at("debs"_s)}).code, 0);
        const CliResult checked = h.json("check", "--complete|--base|nothing"_list);
        QVERIFY2(checked.code == 1 && checked.errors.isEmpty(), checked.said());
        QStringList broken = listed(checked.json()["broken"_s]).split(u',');
        broken.sort();
        QStringList judged = brokenForDose(h.repo(), "amd64"_s) + brokenForDose(h.repo(), "i386"_s);
        judged.sort();
        QCOMPARE(broken, judged);
        QVERIFY(broken.size() > 10 && broken.size() < checked.json()["packages"_s].toInt());
        for (const QJsonValue &package : checked.json()["broken"_s].toArray())
            QVERIFY2(!package["reasons"_s].toArray().isEmpty(), qPrintable(package["package"_s].toString()));
    }

    void formsAndOptions()
    {
        CliHarness h;
        h.create("--architectures|amd64"_list);
        CliHarness base;
        base.create("--architectures|amd64,i386"_list);
        QCOMPARE(base.run({"add"_s, base.repo(), base.deb("lib", "2.0")}).code, 0);
        const QString app = h.deb(DebBuilder("app"_s).field("Depends"_s, "lib (>= 2)"_s));
        const QString wide = h.deb(DebBuilder("wide"_s).field("Depends"_s, "lib:i386"_s));
        const QString wish = h.deb(DebBuilder("wish"_s).field("Recommends"_s, "nowhere"_s));
        QCOMPARE(h.run({"add"_s, h.repo(), app, wide, wish, h.deb("lib", "1.5")}).code, 0);
        const QStringList nothing = "--complete|--base|nothing"_list;
        const CliResult json = h.json("check", nothing + QStringList{"app"_s, "wish"_s});
        QCOMPARE(json.code, 1);
        QCOMPARE(
            QJsonDocument(json.json()).toJson(QJsonDocument::Compact),
            QByteArray("{'broken':[{'architecture':'amd64','package':'app','reasons':[{'field':'Depends',"
                       "'kind':'lacks','package':{'architecture':'amd64','package':'app','version':'1.0'},"
                       "'relation':'lib (>= 2)','targets':[{'architecture':'amd64','package':'lib',"
                       "'version':'1.5'}],'text':'app needs lib (>= 2); the newest lib at hand is 1.5'}],"
                       "'version':'1.0'}],'packages':2,'unmetRecommends':[{'architecture':'amd64',"
                       "'package':'wish','recommends':['nowhere'],'version':'1.0'}]}")
                .replace('\'', '"'));
        const CliResult text = h.run(QStringList{"check"_s, h.repo()} + nothing);
        QVERIFY2(text.code == 1 && text.output.contains("  app needs lib (>= 2)")
                     && text.output.contains("Checked: 4, not installable: 2, undecided: 0"),
                 text.output.constData());
        // The other repository has the version, but not for the foreign architecture.
        const CliResult other = h.json(
            "check", {"--complete"_s, "--base"_s, base.repo(), "--foreign-architecture"_s, "i386"_s});
        QCOMPARE(listed(other.json()["broken"_s]), "wide 1.0 amd64"_s);
        QCOMPARE(base.run({"add"_s, base.repo(), base.deb(DebBuilder("lib"_s).architecture("i386"_s))}).code,
                 0);
        const CliResult both = h.json(
            "check", {"--complete"_s, "--base"_s, base.repo(), "--foreign-architecture"_s, "i386"_s});
        QVERIFY2(both.code == 0, both.output.constData());

        for (const QStringList &bad : {"--base|nothing"_list,
                                       "--foreign-architecture|i386"_list,
                                       "--complete|--against|local"_list,
                                       "--complete|--foreign-architecture|-x"_list,
                                       "--complete|--foreign-architecture|all"_list})
            QCOMPARE(h.json("check", bad).code, 2);
        for (const QStringList &bad : {"--complete|--base|none"_list, "--complete|x*"_list})
            QCOMPARE(h.json("check", bad).code, 3);
    }
};

VELT_TEST_MAIN(TestCliCheck, QCoreApplication)
#include "tst_clicheck.moc"
