// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/privateapt.h"
#include "core/processutils.h"
#include "installability/checkedindex.h"
#include "installability/dosedebcheck.h"
#include "support/testenvironment.h"

/** Verdicts on Debian's own lists. They are fetched, and take minutes, so this is no part of the suite. */
class TestPublicLists : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sameVerdicts_data()
    {
        QTest::addColumn<QString>("suite");
        QTest::addColumn<QStringList>("foreign");
        QTest::newRow("bookworm, amd64") << "bookworm"_s << QStringList();
        QTest::newRow("trixie, amd64") << "trixie"_s << QStringList();
        QTest::newRow("sid, amd64") << "sid"_s << QStringList();
        QTest::newRow("bookworm, amd64 and i386") << "bookworm"_s
                                                  << "i386"_list;
    }
    void sameVerdicts()
    {
        VELT_NEED_TOOL("dose-debcheck");
        VELT_NEED_TOOL("apt-get");
        QFETCH(QString, suite);
        QFETCH(QStringList, foreign);
        const InstallSystem system{"amd64"_s, foreign};
        const QString mirror = debianMirror();
        if (mirror.isEmpty())
            QSKIP("apt knows no mirror of Debian here");
        const QStringList architectures = QStringList{system.native} + system.foreign;
        PrivateApt apt({"[arch=%1 signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %2 %3 main"_s.arg(
                           architectures.join(u','), mirror, suite)},
                       architectures);
        const PrivateApt::Outcome outcome = apt.fetch({}, {});
        if (!outcome.usable)
            QSKIP(
                qPrintable(suite + " cannot be fetched: "_s + outcome.problems.join(u' ') + outcome.details));
        const QTemporaryDir folder;
        const QString file = folder.filePath("Packages"_s);
        runShell(
            "export %1; apt-get indextargets --format '$(FILENAME)' 'Created-By: Packages' |"
            " xargs -n 1 /usr/lib/apt/apt-helper cat-file >'%2'"_s.arg(apt.environment().constFirst(), file));

        QElapsedTimer timer;
        timer.start();
        const QSet<QString> broken = brokenHere(readFile(file), system);
        const qint64 here = timer.restart();
        const DoseDebcheck::Verdict judged = DoseDebcheck::judgeFile(file, system);
        QVERIFY2(judged.error.isEmpty(), qPrintable(judged.error));
        qInfo("%d broken, in %lld ms; dose-debcheck took %lld ms", broken.size(), here, timer.elapsed());
        // An empty list has no verdicts.
        QVERIFY(!judged.broken.isEmpty());
        QCOMPARE(QStringList((broken - judged.broken).values()).join(", "_s), QString());
        // What apt would install is not broken: it shows a fault of dose-debcheck.
        const QSet<QString> disputed = judged.broken - broken;
        for (const QString &package : disputed) {
            const QStringList parts = package.split(u' ');
            const QString architecture = parts.at(2) == "all"_s ? system.native : parts.at(2);
            const QString asked = parts.at(0) + u':' + architecture + u'=' + parts.at(1);
            const ProcessResult simulated
                = runProcess({"apt-get"_s,
                              {"install"_s, "-s"_s, "--no-install-recommends"_s, asked},
                              {},
                              apt.environment(),
                              -1});
            QVERIFY2(simulated.succeeded(), qPrintable(package + u'\n' + simulated.output));
            qInfo("apt would install %s", qPrintable(package));
        }
    }

private:
    /** The address from which this system has Debian itself; empty when there is none. */
    static QString debianMirror()
    {
        const QString format = "$(REPO_URI) $(ORIGIN) $(COMPONENT) $(RELEASE)"_s;
        const ProcessResult targets = runProcess(
            {"apt-get"_s, {"indextargets"_s, "--format"_s, format, "Created-By: Packages"_s}, {}, {}, -1});
        return QRegularExpression("^(\\S+) Debian main [a-z]+$"_s, QRegularExpression::MultilineOption)
            .match(targets.output)
            .captured(1);
    }
};

VELT_TEST_MAIN(TestPublicLists, QCoreApplication)
#include "tst_publiclists.moc"
