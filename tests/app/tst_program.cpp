// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/** The program itself, started as a user does, with a repository that was open the last time. */
class TestProgram : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void versionNeedsNoDisplay();
    void filesOfASecondStartAreAdded();
    void terminationWhileABoxIsOpen();
    void killedProgramStartsAgain();

private:
    std::unique_ptr<QProcess> start(const QStringList &arguments = {}) const;
    void makeRepository() const;
    QVariant setting(const char *key) const;
    QString settingsFile() const;
    QByteArray index() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_repository;
};

void TestProgram::init()
{
    VELT_NEED_TOOL("reprepro");
    VELT_NEED_TOOL("dpkg-deb");
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char *name : {"config", "run"}) {
        const QString folder = m_folder->filePath(QLatin1String(name));
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::setPermissions(
            folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner));
    }
    m_repository = m_folder->filePath(QStringLiteral("my repo"));
}

std::unique_ptr<QProcess> TestProgram::start(const QStringList &arguments) const
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder->filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder->filePath(QStringLiteral("run")));
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(m_folder->path());
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->start(QStringLiteral(PROGRAM), arguments);
    return process;
}

void TestProgram::makeRepository() const
{
    writeFile(
        m_repository + QStringLiteral("/conf/distributions"),
        "Origin: repo\nLabel: repo\nCodename: dogwood\nSuite: stable\nVersion: 1\nArchitectures: amd64\n"
        "Components: main\nUDebComponents: main\n");
    QCOMPARE(QProcess::execute(QStringLiteral("reprepro"),
                               {QStringLiteral("-b"), m_repository, QStringLiteral("export")}),
             0);
    QSettings store(settingsFile(), QSettings::NativeFormat);
    store.setValue(QStringLiteral("recentOpennedRepos"), QStringList{m_repository});
    store.setValue(QStringLiteral("showAddPkgSettings"), false);
    store.setValue(QStringLiteral("addPkgCheckDepends"), false);
}

QString TestProgram::settingsFile() const
{
    return m_folder->filePath(QStringLiteral("config/corvana/velt-admin-repo.conf"));
}

QVariant TestProgram::setting(const char *key) const
{
    return QSettings(settingsFile(), QSettings::NativeFormat).value(QLatin1String(key));
}

QByteArray TestProgram::index() const
{
    return readFile(m_repository + QStringLiteral("/dists/dogwood/main/binary-amd64/Packages"));
}

void TestProgram::versionNeedsNoDisplay()
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(PROGRAM), {QStringLiteral("--version")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), QByteArray("velt-admin-repo 1.1.0+ci112\n"));
}

void TestProgram::filesOfASecondStartAreAdded()
{
    makeRepository();
    const QString packages = m_folder->path();
    DebBuilder(QStringLiteral("early")).build(packages);
    DebBuilder(QStringLiteral("late")).fileName(QStringLiteral("late ü.deb")).build(packages);
    const auto first = start({QStringLiteral("early_1.0_amd64.deb")});
    QTRY_VERIFY_WITH_TIMEOUT(index().contains("Package: early\n"), 20000);

    const auto second = start({QStringLiteral("late ü.deb")});
    QVERIFY(second->waitForFinished(10000));
    QCOMPARE(second->exitCode(), 255);
    QTRY_VERIFY_WITH_TIMEOUT(index().contains("Package: late\n"), 20000);
    QCOMPARE(first->state(), QProcess::Running);

    first->terminate();
    QVERIFY(first->waitForFinished(10000));
    QCOMPARE(first->exitStatus(), QProcess::NormalExit);
    QCOMPARE(first->exitCode(), 0);
    QCOMPARE(setting("recentOpennedRepos").toStringList(), QStringList{m_repository});
    QVERIFY(setting("MainWindow/geometry").isValid());
}

void TestProgram::terminationWhileABoxIsOpen()
{
    // Without a repository the file leads to a question, which nobody answers.
    const auto first = start({DebBuilder(QStringLiteral("foo")).build(m_folder->path())});
    QTRY_VERIFY(QFileInfo::exists(m_folder->filePath(QStringLiteral("run/velt-admin-repo.socket"))));
    const auto second = start();
    QVERIFY(second->waitForFinished(10000));
    QCOMPARE(second->exitCode(), 255);
    first->terminate();
    QVERIFY(first->waitForFinished(10000));
    QCOMPARE(first->exitStatus(), QProcess::NormalExit);
    QCOMPARE(first->exitCode(), 0);
}

void TestProgram::killedProgramStartsAgain()
{
    makeRepository();
    const auto first = start({DebBuilder(QStringLiteral("foo")).build(m_folder->path())});
    QTRY_VERIFY_WITH_TIMEOUT(index().contains("Package: foo\n"), 20000);
    first->kill();
    QVERIFY(first->waitForFinished());

    const auto next = start({DebBuilder(QStringLiteral("bar")).build(m_folder->path())});
    QTRY_VERIFY_WITH_TIMEOUT(index().contains("Package: bar\n"), 20000);
    next->terminate();
    QVERIFY(next->waitForFinished(10000));
    QCOMPARE(next->exitCode(), 0);
}

VELT_TEST_MAIN(TestProgram, QCoreApplication)
#include "tst_program.moc"
