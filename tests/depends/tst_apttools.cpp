// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/aptutils.h"
#include "depends/dpkgutils.h"
#include "support/debbuilder.h"
#include "support/literals.h"
#include "support/localapt.h"
#include "support/scopedvariable.h"
#include "support/testenvironment.h"

#include <QtTest>

#include <memory>

namespace
{
/** apt's own order depends on where the index files lie. */
QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}
} // namespace

/** Real apt over local sources, with configuration, state and cache of its own. */
class TestAptTools : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_root;
    std::unique_ptr<LocalApt> m_apt;
    const QString m_two = "file:%1 dogwood"_s.arg(path("two"_s));
    QStringList m_errors;

    QString path(const QString &name) const { return m_root.filePath(name); }

    void
    addPackage(const char *name, const char *version, const QString &source, const QString &field = {}) const
    {
        DebBuilder(QLatin1String(name))
            .version(QLatin1String(version))
            .architecture(qstrcmp(name, "food") == 0 ? "all"_s : "amd64"_s)
            .field(field.section(QLatin1Char(' '), 0, 0), field.section(QLatin1Char(' '), 1))
            .build(path(source + "/pool"_s));
    }

    void listenTo(AptUtils &apt)
    {
        m_errors.clear();
        connect(&apt, &ProcessUtils::error, this, [this](const QString &text, const QString &detail) {
            m_errors.append(text + ": "_s + detail);
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("apt");
        VELT_NEED_TOOL("dpkg-scanpackages");
        addPackage("foo", "1.0-1", "one"_s);
        addPackage("food", "1:3-1", "one"_s, "Provides meal"_s);
        addPackage("foo", "1.5", "two"_s);
        addPackage("g++-x.y", "1", "two"_s, "Provides meal"_s);
        addPackage("g++-x.y", "2", "two"_s, "Provides meal"_s);
        addPackage("g++-x-y", "1", "two"_s);
        m_apt = std::make_unique<LocalApt>(m_root.path(), QStringList{"one"_s, "two"_s});
        writeFile(path("status"_s),
                  "Package: foo\nStatus: install ok installed\nVersion: 0.9\nArchitecture: amd64\n"
                  "Maintainer: T <t@example.org>\nDescription: installed\n");
    }

    void namesAreFound()
    {
        AptUtils apt;
        listenTo(apt);
        QCOMPARE(sorted(apt.providers("meal"_s)), (QStringList{"food"_s, "g++-x.y"_s}));
        QCOMPARE(apt.searchByPrefix("foo"_s), (QStringList{"foo"_s, "food"_s}));
        // A dot is a dot, and plus signs are no repetition.
        QCOMPARE(apt.searchByPrefix("g++-x."_s), QStringList{"g++-x.y"_s});
        QCOMPARE(apt.searchByPrefix("ood"_s), QStringList());
        // That there is nothing is an answer here, and a failure where versions were asked for.
        QVERIFY(apt.providers("nosuch"_s).isEmpty());
        QVERIFY(apt.packageRecords("meal"_s).isEmpty());
        QCOMPARE(m_errors, QStringList());
        QVERIFY(apt.packageVersions("nosuch"_s, "amd64"_s).isEmpty());
        QVERIFY(apt.packageRecords("nosuch"_s).isEmpty());
        QCOMPARE(m_errors.size(), 2);
        QVERIFY2(m_errors.first().contains("No packages found"_s), qPrintable(m_errors.first()));
    }

    void privateList()
    {
        QString file;
        {
            AptUtils first;
            QVERIFY(first.setPrivateSources({}));
            file = first.privateSourcesFile();
            QVERIFY(QFile::exists(file));
        }
        QVERIFY(!QFile::exists(file));
        AptUtils apt;
        listenTo(apt);
        QVERIFY(apt.setPrivateSources({m_two + " main"_s}));
        QCOMPARE(apt.packageVersions("foo"_s, "amd64"_s).keys(), (QStringList{"0.9"_s, "1.5"_s}));
        QCOMPARE(apt.providers("meal"_s), QStringList{"g++-x.y"_s});
        QCOMPARE(apt.sourcesFromPolicy(), QStringList{m_two + " main"_s});
        QCOMPARE(m_errors, QStringList());
        QVERIFY(apt.setPrivateSources({"no source at all"_s}));
        QVERIFY(apt.packageRecords("foo"_s).isEmpty());
        QCOMPARE(m_errors.size(), 1);
        QVERIFY2(m_errors.first().contains("Malformed entry 1"_s), qPrintable(m_errors.first()));
    }

    void dpkgFailuresAreToldApart()
    {
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
        QVERIFY(!dpkg.packageInformation(path("nosuch.deb"_s)));
        QVERIFY2(dpkg.errorText().contains("No such file"_s), qPrintable(dpkg.errorText()));

        writeScript(path("bin/dpkg"_s), "#!/bin/sh\necho half a word >&2\nkill -SEGV $$\n");
        {
            const ScopedVariable crashing("PATH", path("bin"_s));
            QVERIFY(!holds("<<"));
            QCOMPARE(dpkg.errorText(), "The process dpkg crashed!"_s);
            const ScopedVariable missing("PATH", path("lists"_s));
            QVERIFY(!holds("<<"));
            QVERIFY2(dpkg.errorText().startsWith("dpkg: "_s), qPrintable(dpkg.errorText()));
        }
        // An error does not outlive the next success.
        QVERIFY(holds("<<"));
        QCOMPARE(dpkg.errorText(), QString());
    }
};

VELT_TEST_MAIN(TestAptTools, QCoreApplication)
#include "tst_apttools.moc"
