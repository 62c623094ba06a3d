// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/singleinstance.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QLockFile>
#include <QProcess>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

/** Ends a start that still runs when its test is over, also when that has failed. */
struct EndProcess
{
    void operator()(QProcess *process) const
    {
        process->kill();
        process->waitForFinished();
        delete process;
    }
};
using Start = std::unique_ptr<QProcess, EndProcess>;

class TestSingleInstance : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void secondStartHandsOverAndEnds();
    void killedFirstDoesNotBlockTheNext();
    void unreadableLockIsReplaced_data();
    void unreadableLockIsReplaced();
    void deafFirstIsNotOusted();
    void startsDuringASlowStartLoseNothing();
    void nextStartTakesOverFromAnEndingFirst();
    void hostilePeers();
    void signalsEndInOrder();
    void privateFolder();

private:
    Start start(const QStringList &files = {}, int startTime = 0, int timeout = 5000);
    Start startFirst(int startTime = 0);
    QStringList record() const;
    static int exitCodeOf(QProcess &process);
    QString runtimePath(const char *name) const;
    QByteArray talk(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

static QByteArray frame(const QByteArray &body)
{
    QByteArray header(4, '\0');
    qToBigEndian(static_cast<quint32>(body.size()), header.data());
    return header + body;
}

void TestSingleInstance::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir(m_folder->path()).mkpath(QStringLiteral("some folder"));
    QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("run"))));
    QVERIFY(::chmod(QFile::encodeName(m_folder->filePath(QStringLiteral("run"))).constData(), 0700) == 0);
}

void TestSingleInstance::cleanup()
{
    m_folder.reset();
}

Start TestSingleInstance::start(const QStringList &files, int startTime, int timeout)
{
    Start process(new QProcess);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder->filePath(QStringLiteral("run")));
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->setWorkingDirectory(m_folder->filePath(QStringLiteral("some folder")));
    process->start(QStringLiteral(INSTANCE_PROBE),
                   QStringList{m_folder->filePath(QStringLiteral("record")),
                               QString::number(startTime),
                               QString::number(timeout)}
                       + files);
    return process;
}

/** A first instance that holds the lock; with a start time it is still starting. */
Start TestSingleInstance::startFirst(int startTime)
{
    Start first = start({}, startTime);
    [this] { QTRY_VERIFY(!record().isEmpty()); }();
    return first;
}

QStringList TestSingleInstance::record() const
{
    QStringList lines = QString::fromUtf8(readFile(m_folder->filePath(QStringLiteral("record"))))
                            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines;
}

int TestSingleInstance::exitCodeOf(QProcess &process)
{
    return process.waitForFinished(20000) && process.exitStatus() == QProcess::NormalExit ? process.exitCode()
                                                                                          : -1000;
}

QString TestSingleInstance::runtimePath(const char *name) const
{
    return m_folder->filePath(QStringLiteral("run/velt-admin-repo.") + QLatin1String(name));
}

/** What the first instance answers to `bytes` until it has been silent for a while or hangs up. */
QByteArray TestSingleInstance::talk(const QByteArray &bytes) const
{
    QLocalSocket socket;
    socket.connectToServer(runtimePath("socket"));
    if (!socket.waitForConnected(5000))
        return "not connected";
    socket.write(bytes);
    QByteArray answer;
    while (socket.waitForReadyRead(300))
        answer += socket.readAll();
    return socket.state() == QLocalSocket::ConnectedState ? answer : answer + "hung up";
}

void TestSingleInstance::secondStartHandsOverAndEnds()
{
    const Start first = startFirst();
    QCOMPARE(exitCodeOf(*start()), 255);
    QTRY_COMPARE(record().size(), 2);
    QCOMPARE(record().constLast(), QStringLiteral("raise"));

    const QString here = m_folder->filePath(QStringLiteral("some folder"));
    QCOMPARE(exitCodeOf(*start({QStringLiteral("-p"), QString()})), 255);
    QTRY_COMPARE(record().size(), 3);
    QCOMPARE(record().constLast(), QStringLiteral("raise"));

    // Relative paths must still name the sender's files, and an ampersand is the receiver's affair.
    QCOMPARE(exitCodeOf(*start({QStringLiteral("a b.deb"),
                                QStringLiteral("../x & y.deb"),
                                QStringLiteral("/абв/ü%1\".udeb"),
                                QStringLiteral("-p")})),
             255);
    QTRY_COMPARE(record().size(), 4);
    QCOMPARE(record().constLast(),
             here + QStringLiteral("/a b.deb&") + m_folder->filePath(QStringLiteral("x & y.deb"))
                 + QStringLiteral("&/абв/ü%1\".udeb"));

    QStringList many;
    for (int i = 0; i < 3000; ++i)
        many.append(QStringLiteral("/a folder with a rather long name/package-%1_1.0-1_amd64.deb").arg(i));
    QCOMPARE(exitCodeOf(*start(many)), 255);
    QTRY_COMPARE(record().size(), 5);
    QCOMPARE(record().constLast(), many.join(QLatin1Char('&')));

    struct stat status = {};
    QVERIFY(::stat(QFile::encodeName(runtimePath("socket")).constData(), &status) == 0);
    QCOMPARE(status.st_mode & 0077u, 0u);
}

void TestSingleInstance::killedFirstDoesNotBlockTheNext()
{
    const Start first = startFirst();
    first->kill();
    QVERIFY(first->waitForFinished());
    QVERIFY(QFileInfo::exists(runtimePath("lock")));

    const Start next = start();
    QTRY_COMPARE_WITH_TIMEOUT(record().size(), 2, 2000);
    QCOMPARE(record().constLast(), QStringLiteral("first"));
    QCOMPARE(exitCodeOf(*start({QStringLiteral("/a.deb")})), 255);
    QTRY_COMPARE(record().size(), 3);
    QCOMPARE(record().constLast(), QStringLiteral("/a.deb"));
}

void TestSingleInstance::unreadableLockIsReplaced_data()
{
    QTest::addColumn<QByteArray>("lock");
    QTest::newRow("killed while writing it") << QByteArray();
    QTest::newRow("machine was renamed") << QByteArray("4194303\nprogram\nanother-machine\n");
    QTest::newRow("process id used again")
        << QByteArray("1\nanother program\n") + QSysInfo::machineHostName().toLocal8Bit() + '\n';
}

void TestSingleInstance::unreadableLockIsReplaced()
{
    QFETCH(QByteArray, lock);
    writeFile(runtimePath("lock"), lock);
    const Start next = start({}, 0, 300);
    QTRY_COMPARE_WITH_TIMEOUT(record(), QStringList{QStringLiteral("first")}, 3000);
}

void TestSingleInstance::deafFirstIsNotOusted()
{
    const Start first = startFirst(3000);
    QCOMPARE(exitCodeOf(*start({QStringLiteral("/late.deb")}, 0, 400)), 255);
    QCOMPARE(record(), QStringList{QStringLiteral("first")});
    // The sender gave up waiting, yet what it sent is there when the first instance comes to it.
    QTRY_COMPARE_WITH_TIMEOUT(record().size(), 2, 10000);
    QCOMPARE(record().constLast(), QStringLiteral("/late.deb"));
}

void TestSingleInstance::startsDuringASlowStartLoseNothing()
{
    QStringList expected{QStringLiteral("first")};
    std::vector<Start> starts;
    // All at once, so that any of them may win the lock: the others' files must all arrive.
    for (int i = 0; i < 21; ++i) {
        const QString file = QStringLiteral("/%1.deb").arg(i);
        expected.append(file);
        starts.push_back(start({file}, 1500));
    }
    QTRY_COMPARE_WITH_TIMEOUT(record().size(), 21, 20000);
    const auto running = [&starts] {
        return std::count_if(starts.begin(), starts.end(), [](const Start &one) {
            return one->state() != QProcess::NotRunning;
        });
    };
    QTRY_COMPARE_WITH_TIMEOUT(running(), 1, 6000);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        if (starts[i]->state() == QProcess::NotRunning)
            QCOMPARE(starts[i]->exitCode(), 255);
        else
            QVERIFY(expected.removeOne(QStringLiteral("/%1.deb").arg(i)));
    }
    QStringList received = record();
    received.sort();
    expected.sort();
    QCOMPARE(received, expected);
}

void TestSingleInstance::nextStartTakesOverFromAnEndingFirst()
{
    // An instance that is ending holds the lock and no longer listens.
    auto ending = std::make_unique<QLockFile>(runtimePath("lock"));
    QVERIFY(ending->lock());
    const Start next = start({QStringLiteral("/a.deb")});
    QVERIFY(!next->waitForFinished(400));
    QVERIFY(record().isEmpty());
    ending.reset();
    QTRY_COMPARE_WITH_TIMEOUT(record(), QStringList{QStringLiteral("first")}, 4000);
}

void TestSingleInstance::hostilePeers()
{
    const Start first = startFirst();
    QCOMPARE(talk(QByteArray("\xff\xff\xff\xff garbage")), QByteArray("hung up"));
    QCOMPARE(talk(QByteArray("GET / HTTP/1.0\r\n\r\n")), QByteArray("hung up"));
    QCOMPARE(talk(frame("bad \xc3\x28 text")), QByteArray("hung up"));
    QCOMPARE(talk(frame(QByteArray("nul\0l", 5))), QByteArray("hung up"));
    QCOMPARE(talk(frame("cut").chopped(1)), QByteArray());
    QCOMPARE(talk(frame("/one.deb") + frame("/two.deb")), QByteArray("\x06\x06"));

    // Peers that connect and say nothing, or only half of it, keep nobody else out.
    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 40; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(runtimePath("socket"));
        QVERIFY(silent.back()->waitForConnected(5000));
        silent.back()->write(frame("unfinished").left(i % 8));
        silent.back()->flush();
    }
    QLocalSocket slow;
    slow.connectToServer(runtimePath("socket"));
    QVERIFY(slow.waitForConnected(5000));
    const QByteArray bytes = frame("/slow.deb");
    for (const char byte : bytes) {
        slow.write(&byte, 1);
        slow.waitForBytesWritten(100);
    }
    QVERIFY(slow.bytesAvailable() > 0 || slow.waitForReadyRead(5000));
    QCOMPARE(exitCodeOf(*start({QStringLiteral("/good.deb")})), 255);
    QTRY_COMPARE(record().size(), 5);
    QCOMPARE(record(),
             (QStringList{QStringLiteral("first"),
                          QStringLiteral("/one.deb"),
                          QStringLiteral("/two.deb"),
                          QStringLiteral("/slow.deb"),
                          QStringLiteral("/good.deb")}));
    QCOMPARE(first->state(), QProcess::Running);
}

void TestSingleInstance::signalsEndInOrder()
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        QFile::remove(m_folder->filePath(QStringLiteral("record")));
        const Start first = startFirst();
        // Only a message that was taken shows that the event loop runs and the signals are watched.
        QCOMPARE(exitCodeOf(*start()), 255);
        QTRY_COMPARE(record().size(), 2);
        QVERIFY(::kill(static_cast<pid_t>(first->processId()), number) == 0);
        QCOMPARE(exitCodeOf(*first), 0);
        QCOMPARE(record().constLast(), QStringLiteral("terminated"));
        QVERIFY(!QFileInfo::exists(runtimePath("socket")));
        QVERIFY(!QFileInfo::exists(runtimePath("lock")));
    }
}

void TestSingleInstance::privateFolder()
{
    const QString run = m_folder->filePath(QStringLiteral("run"));
    const QString own = m_folder->path() + QStringLiteral("/velt-admin-repo-") + QString::number(::geteuid());
    QCOMPARE(SingleInstance::privateFolder(run, m_folder->path()), run);
    QVERIFY(!QFileInfo::exists(own));

    // Without a usable runtime folder: one of our own, that is found again.
    const QStringList unusable{
        QString(), QStringLiteral("/nonexistent"), m_folder->path() + QLatin1String("/x")};
    QVERIFY(QFile::link(run, unusable.constLast()));
    for (const QString &runtime : unusable) {
        QCOMPARE(SingleInstance::privateFolder(runtime, m_folder->path()), own);
        struct stat status = {};
        QVERIFY(::lstat(QFile::encodeName(own).constData(), &status) == 0);
        QCOMPARE(status.st_mode & 07777u, 0700u);
    }
    // Somebody else may have put something there first: what others can enter, or a link, is not used.
    QVERIFY(::chmod(QFile::encodeName(own).constData(), 0755) == 0);
    QVERIFY(SingleInstance::privateFolder(QString(), m_folder->path()).isEmpty());
    QVERIFY(QDir().rmdir(own));
    QVERIFY(QFile::link(run, own));
    QVERIFY(SingleInstance::privateFolder(QString(), m_folder->path()).isEmpty());
    QVERIFY(SingleInstance(QString()).isFirst());
}

VELT_TEST_MAIN(TestSingleInstance, QCoreApplication)
#include "tst_singleinstance.moc"
