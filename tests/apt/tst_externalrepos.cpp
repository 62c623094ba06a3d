// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptoutput.h"
#include "apt/externalrepos.h"
#include "support/testenvironment.h"

namespace
{
/** The list as "source (alias) known added", with a dash in front of what is switched off, and "?" for neither. */
QStringList printed(const ExternalRepos &repos)
{
    QStringList lines;
    for (const ExternalRepos::Entry &entry : repos.entries())
        lines += (entry.enabled ? QString() : "-"_s) + entry.source
                 + (entry.alias.isEmpty() ? QString() : " ("_s + entry.alias + ")"_s)
                 + (entry.known ? " known"_s : QString()) + (entry.added ? " added"_s : QString())
                 + (entry.known || entry.added ? QString() : " ?"_s);
    return lines;
}

QStringList asked(const ExternalRepos &repos)
{
    QStringList sources;
    for (const ExternalRepos::Entry &entry : repos.entries()) {
        if (entry.isAsked())
            sources.append(entry.source);
    }
    return sources;
}

QStringList knownSources()
{
    return AptOutput::sourceLines(
        QString::fromUtf8(readFile(QStringLiteral(VELT_TEST_DATA "/bookworm/policy.txt"))));
}

const QString One = QStringLiteral("file:/tmp/sample/one dogwood contrib main");
const QString Two = QStringLiteral("file:/tmp/sample/two dogwood main");
} // namespace

class TestExternalRepos : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath("s.conf"_s);

    ExternalRepos stored() const
    {
        QSettings settings(m_file, QSettings::IniFormat);
        return ExternalRepos::load(settings);
    }
    bool store(const ExternalRepos &repos) const
    {
        QSettings settings(m_file, QSettings::IniFormat);
        return repos.save(settings);
    }

private Q_SLOTS:
    void init() { QFile::remove(m_file); }

    void sources()
    {
        struct Row
        {
            const char *typed;
            const char *kept; ///< as it is listed then; empty: refused
            const char *reason;
        };
        const Row rows[]
            = {{"  deb\t[ arch=amd64  trusted=yes ]  HTTP://h:80/r   s  main\tcontrib \n",
                "[arch=amd64 trusted=yes] http://h:80/r s main contrib",
                ""},
               {"[]https://u:p@h s/updates main", "https://u:p@h s/updates main", ""},
               {"[arch+=i386]http://[::1]:8080/r s main", "[arch+=i386] http://[::1]:8080/r s main", ""},
               {"file:///srv/r ./", "file:///srv/r ./", ""},
               {"file:/srv/хранилище /", "file:/srv/хранилище /", ""},
               {"mirror+file:/etc/apt/mirrors s main", "mirror+file:/etc/apt/mirrors s main", ""},
               {"tor+https://h/r s main", "tor+https://h/r s main", ""},
               {"ftp://h:2121/r s main", "ftp://h:2121/r s main", ""},
               {"", "", "Enter the address"},
               {" deb ", "", "not the address"},
               {"http://h s main\ndeb http://evil s main", "", "line break"},
               {"http://h\xe2\x80\x8b s main", "", "invisible"},
               {"deb-src http://h s main", "", "source packages"},
               {"http://h s main # comment", "", "character #"},
               {"http://h/\"x s main", "", "character \""},
               {"[arch] http://h s main", "", "options"},
               {"[arch=amd64 http://h s main", "", "options"},
               {"/srv/r s main", "", "not the address"},
               {"cdrom:[Disc]/ s main", "", "Mount it"},
               {"gopher://h/r s main", "", "\"gopher:\""},
               {"file:srv/r s main", "", "begins with a slash"},
               {"http:/h s main", "", "no host"},
               {"http://h:port/r s main", "", "no host"},
               {"[arch=i386] http://h", "", "suite is missing"},
               {"http://h s", "", "components are missing"},
               {"http://h s/ main", "", "no components"},
               {"http://h s [main", "", "Square brackets"}};
        for (const Row &row : rows) {
            const QString typed = QString::fromUtf8(row.typed);
            const bool isKept = *row.reason == '\0';
            ExternalRepos repos;
            const QString refusal = ExternalRepos::refusal(typed);
            QVERIFY2(refusal.isEmpty() == isKept && refusal.contains(QLatin1String(row.reason)), row.typed);
            QVERIFY2(repos.setSource(typed) == isKept, row.typed);
            const QString kept = repos.entries().value(0).source;
            QCOMPARE(kept, QString::fromUtf8(row.kept));
            // What is kept is accepted again, and is the same source.
            QVERIFY(!isKept || (ExternalRepos::refusal(kept).isEmpty() && !repos.setSource(kept)));
        }
    }

    void theSameSourceInOtherWords()
    {
        ExternalRepos repos;
        repos.merge(knownSources());
        QCOMPARE(printed(repos), (QStringList{Two + " known"_s, One + " known"_s}));
        QVERIFY(!repos.setSource("deb file:///tmp/sample/one/ dogwood main contrib main"_s));
        QVERIFY(!repos.setSource("http://h s main"_s, 0) && !repos.remove(0));
        QVERIFY(repos.setSource("[arch=i386] file:/tmp/sample/one dogwood main contrib"_s));
        QVERIFY(repos.setSource("http://user:secret@h/ s main"_s));
        QVERIFY(!repos.setSource("http://h s main"_s));
        QVERIFY(repos.setSource("http://h s contrib"_s, 3));
        QCOMPARE(repos.entries().size(), 4);
        // Places in the list move, and a source that was replaced or removed can be added again.
        QVERIFY(repos.remove(2) && !repos.setSource("http://h/ s contrib"_s));
        QVERIFY(repos.setSource("http://h s main"_s) && repos.setSource("http://h/ s main"_s, 3));
        QVERIFY(!repos.setSource("http://h s main"_s, 2) && repos.entries().size() == 4);
    }

    void survivesBetweenRuns()
    {
        ExternalRepos repos = stored();
        repos.merge(knownSources());
        const QString own = "http://h/a%20b s/ü main"_s;
        QVERIFY(repos.setSource(own) && repos.setSource("http://off s main"_s));
        repos.setEnabled(0, false);
        repos.setEnabled(3, false);
        repos.setAlias(1, " One,\n=@ 50% / \xd0\xb4 "_s);
        repos.setAlias(2, "@own"_s);
        const QStringList all{"-"_s + Two + " known"_s,
                              One + " (One, =@ 50% / д) known"_s,
                              own + " (@own) added"_s,
                              "-http://off s main added"_s};
        QCOMPARE(printed(repos), all);
        QVERIFY(store(repos));
        QCOMPARE(asked(repos), (QStringList{One, own}));

        // While apt knows nothing, nothing is lost by storing.
        ExternalRepos unasked = stored();
        QCOMPARE(asked(unasked), QStringList{own});
        QVERIFY(store(unasked));
        unasked.merge({});
        QVERIFY(store(unasked));
        ExternalRepos again = stored();
        again.merge(knownSources());
        QCOMPARE(printed(again), all);
        again.setEnabled(3, true);
        QCOMPARE(asked(again), (QStringList{One, own, "http://off s main"_s}));

        // What is removed is gone, with its name.
        QVERIFY(again.remove(2));
        QVERIFY(store(again));
        QVERIFY(!readFile(m_file).contains("own"));
        QVERIFY(!printed(stored()).join(u'|').contains(own));
    }

    void switchedOffStaysSoWithAnotherComponent()
    {
        ExternalRepos repos;
        repos.merge({"http://h s main"_s});
        repos.setEnabled(0, false);
        repos.setAlias(0, "H"_s);
        QVERIFY(store(repos));
        repos = stored();
        repos.merge({"http://h s contrib main"_s, "http://h t main"_s});
        QCOMPARE(printed(repos), "-http://h s contrib main (H) known|http://h t main known"_list);
        // A component of the user's own is another matter.
        repos = ExternalRepos();
        QVERIFY(repos.setSource("http://h s contrib"_s));
        repos.setEnabled(0, false);
        repos.merge({"http://h s main"_s});
        QCOMPARE(printed(repos), "http://h s main known|-http://h s contrib added"_list);
    }

    void garbageGivesNothing()
    {
        writeFile(
            m_file,
            "Aliases=7\nDisabledRepos=x\n[DisabledRepos]\nrepo1=1, 2\nrepo2=@Invalid()\nrepo3=http://h s\n"
            "repo4=@ByteArray(http://h s main)\nrepo5=http://h s main\\nx\ndeep\\repo1=http://d s main\n"
            "[EnabledRepos]\nx=@Variant(\\0\\0\\0\\x7f)\nrepo1=true\nrepo9=deb  http://ok   s main\n"
            "[Aliases]\n%=a\nhttp%253A%252F%252Fh%2520s%2520main=\nhttp%253A%252F%252Fb%2520s%2520m=a, b\n"
            "http%253A%252F%252Fc%2520s%2520m=\\x202ez\n");
        QCOMPARE(printed(stored()), "http://c s m (z) ?|-http://h s main ?|http://ok s main added"_list);
        const QString folder = m_folder.filePath("file/below"_s);
        writeFile(m_folder.filePath("file"_s), "x");
        QSettings nowhere(folder, QSettings::IniFormat);
        QVERIFY(!stored().save(nowhere));
    }

    void aliases()
    {
        ExternalRepos repos;
        repos.merge({"http://h/r s main"_s, "http://h/r s/updates main"_s, "file:///srv/q t main"_s});
        QVERIFY(repos.setSource("[arch=i386,arm64] http://u:p@h/r/ s main"_s));
        QVERIFY(repos.setSource("http://nameless s main"_s));
        for (int row = 0; row < 4; ++row)
            repos.setAlias(row, "alias %1"_s.arg(row));
        const QMap<QString, QString> expected{{"http://h/r s amd64"_s, "alias 0"_s},
                                              {"http://h/r s/main amd64"_s, "alias 0"_s},
                                              {"http://h/r s/updates amd64"_s, "alias 1"_s},
                                              {"http://h/r s/updates/main amd64"_s, "alias 1"_s},
                                              {"file:/srv/q t amd64"_s, "alias 2"_s},
                                              {"http://h/r s i386"_s, "alias 3"_s}};
        for (auto origin = expected.cbegin(); origin != expected.cend(); ++origin)
            QCOMPARE(repos.aliasOf(origin.key()), origin.value());
        for (const char *other :
             {"http://nameless s amd64", "http://h/r s/contrib amd64", "http://h s amd64", "", " "})
            QCOMPARE(repos.aliasOf(QLatin1String(other)), QLatin1String(other));
    }

    void switchedOffOrigins()
    {
        ExternalRepos repos;
        repos.merge({"http://h/r s main"_s, "http://h/r t main"_s, "http://h/r t contrib"_s});
        repos.setEnabled(0, false);
        repos.setEnabled(1, false);
        QVERIFY(!repos.isOriginAsked("http://h/r s amd64"_s));
        QVERIFY(repos.isOriginAsked("http://h/r t amd64"_s));
        QVERIFY(!repos.isOriginAsked("http://h/r t/main amd64"_s));
        QVERIFY(repos.isOriginAsked("http://other s amd64"_s));
        repos.setEnabled(0, true);
        QVERIFY(repos.isOriginAsked("http://h/r s amd64"_s));
    }
};

VELT_TEST_MAIN(TestExternalRepos, QCoreApplication)
#include "tst_externalrepos.moc"
