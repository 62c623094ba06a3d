// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <csignal>
#include <memory>

/** The program itself, started as a user does, with a repository that was open the last time. */
class TestProgram : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_repository;

    std::unique_ptr<QProcess> start(const QStringList &arguments = {}) const
    {
        auto process = std::make_unique<QProcess>();
        process->setWorkingDirectory(m_folder->path());
        process->setProcessChannelMode(QProcess::MergedChannels);
        process->start(QStringLiteral(PROGRAM), arguments);
        return process;
    }

    QString build(const char *name) const { return DebBuilder(QLatin1String(name)).build(m_folder->path()); }

    static int exitCodeOf(QProcess &process)
    {
        const bool ended = process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit;
        return ended ? process.exitCode() : -1000;
    }

    QString settingsFile() const { return m_folder->filePath("config/corvana/velt-admin-repo.conf"_s); }

    void makeRepository() const
    {
        writeFile(m_repository + "/conf/distributions"_s,
                  "Origin: repo\nLabel: repo\nCodename: dogwood\nSuite: stable\nVersion: 1\n"
                  "Architectures: amd64\nComponents: main\nUDebComponents: main\n");
        QCOMPARE(QProcess::execute("reprepro"_s, {"-b"_s, m_repository, "export"_s}), 0);
        QSettings store(settingsFile(), QSettings::NativeFormat);
        store.setValue("recentOpennedRepos"_s, QStringList{m_repository});
        store.setValue("showAddPkgSettings"_s, false);
        store.setValue("addPkgCheckDepends"_s, false);
    }

    bool lists(const char *name) const
    {
        return readFile(m_repository + "/dists/dogwood/main/binary-amd64/Packages"_s)
            .contains(QByteArray(QByteArray("Package: ") + name + '\n'));
    }

private Q_SLOTS:
    void init()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("dpkg-deb");
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", m_folder->path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_folder->filePath("config"_s).toLocal8Bit());
        m_repository = m_folder->filePath("my repo"_s);
    }

    void textNeedsNoDisplay()
    {
        QProcess process;
        const auto run = [&process](const QStringList &arguments) {
            const QStringList bare = "-u|DISPLAY|-u|WAYLAND_DISPLAY|QT_QPA_PLATFORM=xcb"_list;
            process.start("env"_s, bare + QStringList{QStringLiteral(PROGRAM)} + arguments);
            return exitCodeOf(process);
        };
        QCOMPARE(run({"-p"_s, "a.deb"_s, "--version"_s}), 0);
        QCOMPARE(process.readAllStandardOutput(), QByteArray("velt-admin-repo " PROGRAM_VERSION "\n"));
        QCOMPARE(run({"--help"_s, "--nonsense"_s}), 1);
        QVERIFY(process.readAllStandardError().contains("nonsense"));
        QCOMPARE(run({"-h"_s}), 0);
        const QByteArray text = process.readAllStandardOutput();
        for (const char *part : {"Velt admin repo tool", "-p, --packages", "-v, --version", "[files...]"})
            QVERIFY2(text.contains(part), text.constData());
    }

    void filesOfLaterStartsAreAdded()
    {
        makeRepository();
        build("early");
        DebBuilder("late"_s).fileName("late ü.deb"_s).build(m_folder->path());
        const auto first = start({"early_1.0_amd64.deb"_s});
        QTRY_VERIFY_WITH_TIMEOUT(lists("early"), 20000);
        QCOMPARE(exitCodeOf(*start({"late ü.deb"_s})), 255);
        QTRY_VERIFY_WITH_TIMEOUT(lists("late"), 20000);

        first->kill();
        QVERIFY(first->waitForFinished());
        const auto next = start({build("next")});
        QTRY_VERIFY_WITH_TIMEOUT(lists("next"), 20000);
        next->terminate();
        QCOMPARE(exitCodeOf(*next), 0);
        const QSettings store(settingsFile(), QSettings::NativeFormat);
        QCOMPARE(store.value("recentOpennedRepos"_s).toStringList(), QStringList{m_repository});
        QVERIFY(store.contains("MainWindow/geometry"_s));
    }

    void deafProgramIsTold()
    {
        const auto first = start();
        QTRY_VERIFY(QFileInfo::exists(m_folder->filePath("velt-admin-repo.socket"_s)));
        const auto pid = static_cast<pid_t>(first->processId());
        QVERIFY(::kill(pid, SIGSTOP) == 0);
        const auto second = start({"a.deb"_s});
        QCOMPARE(exitCodeOf(*second), 255);
        QVERIFY(second->readAll().contains("The program is running already and does not answer."));
        QVERIFY(::kill(pid, SIGCONT) == 0);
        // Who answers also watches for signals.
        QCOMPARE(exitCodeOf(*start()), 255);
        first->terminate();
        QCOMPARE(exitCodeOf(*first), 0);
    }

    void signalsEndInOrderWhileABoxIsOpen()
    {
        for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
            // Without a repository the files lead to a question, which nobody answers; one is called like an option.
            const auto first = start({"--"_s, build("foo"), "--help"_s});
            QTRY_VERIFY(QFileInfo::exists(m_folder->filePath("velt-admin-repo.socket"_s)));
            // Who answers also watches for signals.
            QCOMPARE(exitCodeOf(*start()), 255);
            QVERIFY(::kill(static_cast<pid_t>(first->processId()), number) == 0);
            QCOMPARE(exitCodeOf(*first), 0);
            for (const char *name : {"velt-admin-repo.socket", "velt-admin-repo.lock"})
                QVERIFY(!QFileInfo::exists(m_folder->filePath(QLatin1String(name))));
        }
    }
};

VELT_TEST_MAIN(TestProgram, QCoreApplication)
#include "tst_program.moc"
