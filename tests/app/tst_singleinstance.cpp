// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/singleinstance.h"
#include "support/testenvironment.h"

#include <QtNetwork>

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
using Start = std::shared_ptr<QProcess>;

QByteArray frame(const QByteArray &body)
{
    QByteArray header(4, '\0');
    qToBigEndian(static_cast<quint32>(body.size()), header.data());
    return header + body;
}

/** The permissions of what lies at `path`, which may be a link; all of them when there is nothing. */
mode_t modeOf(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 07777U;
}

int exitCodeOf(const Start &process)
{
    const bool ended = process->waitForFinished(20000) && process->exitStatus() == QProcess::NormalExit;
    return ended ? process->exitCode() : -1000;
}
} // namespace

class TestSingleInstance : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString lock() const { return path("velt-admin-repo.lock"_s); }
    QString socket() const { return path("velt-admin-repo.socket"_s); }

    Start start(const QStringList &files = {}, int startTime = 0, int timeout = 5000) const
    {
        Start process(new QProcess, [](QProcess *one) {
            one->kill();
            one->waitForFinished();
            delete one;
        });
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->setWorkingDirectory(path("some folder"_s));
        const QStringList times{QString::number(startTime), QString::number(timeout)};
        process->start(QStringLiteral(INSTANCE_PROBE), QStringList{path("record"_s)} + times + files);
        return process;
    }

    /** A first instance that holds the lock; with a start time it is still starting. */
    Start startFirst(int startTime = 0) const
    {
        Start first = start({}, startTime);
        [this] { QTRY_COMPARE(record(), "first"_list); }();
        return first;
    }

    QStringList record() const
    {
        return QString::fromUtf8(readFile(path("record"_s))).split(u'\n', Qt::SkipEmptyParts);
    }

    std::unique_ptr<QLocalSocket> connected(const QByteArray &bytes) const
    {
        auto peer = std::make_unique<QLocalSocket>();
        peer->connectToServer(socket());
        if (!peer->waitForConnected(5000))
            qFatal("nobody listens");
        peer->write(bytes);
        peer->flush();
        return peer;
    }

    /** What the first instance answers to `bytes` until it has been silent for a while or hangs up. */
    QByteArray talk(const QByteArray &bytes) const
    {
        const auto peer = connected(bytes);
        QByteArray answer;
        while (peer->waitForReadyRead(300))
            answer += peer->readAll();
        return peer->state() == QLocalSocket::ConnectedState ? answer : answer + "hung up";
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", m_folder->path().toLocal8Bit());
        QVERIFY(QDir(m_folder->path()).mkdir("some folder"_s));
    }

    void secondStartHandsOverAndEnds()
    {
        const Start first = startFirst();
        QStringList many;
        for (int i = 0; i < 3000; ++i)
            many.append("/a folder with a rather long name/package-%1_1.0-1_amd64.deb"_s.arg(i));
        // Relative paths must still name the sender's files, and an ampersand is the receiver's affair.
        const QVector<QPair<QStringList, QString>> starts{
            {{}, "raise"_s},
            {{"-p"_s, QString()}, "raise"_s},
            {{"a b.deb"_s, "../x & y.deb"_s, "/абв/ü%1\".udeb"_s, "-p"_s},
             path("some folder/a b.deb&"_s) + path("x & y.deb"_s) + "&/абв/ü%1\".udeb"_s},
            {many, many.join(u'&')}};
        QStringList expected = record();
        for (const auto &[arguments, message] : starts) {
            QCOMPARE(exitCodeOf(start(arguments)), 255);
            expected.append(message);
            QTRY_COMPARE(record(), expected);
        }
        QCOMPARE(modeOf(socket()) & 0077U, 0U);
    }

    void unreadableLockIsReplaced()
    {
        // Killed while writing it; the machine was renamed; the process id is in use again.
        const QByteArray host = QSysInfo::machineHostName().toLocal8Bit();
        for (const QByteArray &text : {QByteArray(),
                                       QByteArray("4194303\nprogram\nanother-machine\n"),
                                       QByteArray("1\nanother program\n" + host + '\n')}) {
            init();
            writeFile(lock(), text);
            const Start next = start({}, 0, 300);
            QTRY_COMPARE_WITH_TIMEOUT(record(), "first"_list, 20000);
        }
    }

    void deafFirstIsNotOusted()
    {
        const Start first = startFirst(3000);
        QCOMPARE(exitCodeOf(start({"/late.deb"_s}, 0, 400)), 255);
        QCOMPARE(record(), "first"_list);
        // The sender gave up waiting, yet what it sent is there when the first instance comes to it.
        QTRY_COMPARE_WITH_TIMEOUT(record(), "first|/late.deb"_list, 20000);
    }

    void startsDuringASlowStartLoseNothing()
    {
        QStringList expected{"first"_s};
        QVector<Start> starts;
        // All at once, so that any of them may win the lock: the others' files must all arrive.
        for (int i = 0; i < 21; ++i)
            starts.append(start({"/%1.deb"_s.arg(i)}, 1500));
        QTRY_COMPARE_WITH_TIMEOUT(record().size(), 21, 20000);
        const auto runs = [](const Start &one) { return one->state() != QProcess::NotRunning; };
        QTRY_COMPARE_WITH_TIMEOUT(std::count_if(starts.begin(), starts.end(), runs), 1, 20000);
        for (int i = 0; i < 21; ++i) {
            const Start &one = starts.at(i);
            QVERIFY(runs(one) || one->exitCode() == 255);
            if (!runs(one))
                expected.append("/%1.deb"_s.arg(i));
        }
        QStringList received = record();
        received.sort();
        expected.sort();
        QCOMPARE(received, expected);
    }

    void nextStartTakesOverFromAnEndingFirst()
    {
        // An instance that is ending holds the lock and no longer listens.
        QLockFile ending(lock());
        QVERIFY(ending.lock());
        // It may take longer than one that only answers late.
        const Start next = start({"/a.deb"_s}, 0, 300);
        QVERIFY(!next->waitForFinished(1500));
        QVERIFY(record().isEmpty());
        ending.unlock();
        QTRY_COMPARE_WITH_TIMEOUT(record(), "first"_list, 20000);
    }

    void hostilePeers()
    {
        const Start first = startFirst();
        for (const char *bytes : {"\xff\xff\xff\xff garbage", "GET / HTTP/1.0\r\n\r\n"})
            QCOMPARE(talk(bytes), QByteArray("hung up"));
        QCOMPARE(talk(frame("bad \xc3\x28 text")), QByteArray("hung up"));
        QCOMPARE(talk(frame(QByteArray("nul\0l", 5))), QByteArray("hung up"));
        QCOMPARE(talk(frame("cut").chopped(1)), QByteArray());
        QCOMPARE(talk(frame("/one.deb") + frame("/two.deb")), QByteArray("\x06\x06"));

        // Peers that connect and say nothing, or only half of it, keep nobody else out.
        std::vector<std::unique_ptr<QLocalSocket>> silent(40);
        int sent = 0;
        for (auto &peer : silent)
            peer = connected(frame("unfinished").left(sent++ % 8));
        const auto slow = connected({});
        const QByteArray bytes = frame("/slow.deb");
        for (const char byte : bytes) {
            slow->write(&byte, 1);
            slow->waitForBytesWritten(100);
        }
        QVERIFY(slow->bytesAvailable() > 0 || slow->waitForReadyRead(5000));
        QCOMPARE(exitCodeOf(start({"/good.deb"_s})), 255);
        QTRY_COMPARE(record().join(u' '), "first /one.deb /two.deb /slow.deb /good.deb"_s);
        QCOMPARE(first->state(), QProcess::Running);
    }

    void privateFolder()
    {
        const QString run = path("run"_s);
        QVERIFY(::mkdir(QFile::encodeName(run).constData(), 0700) == 0);
        const auto folder = [this](const QString &runtime) {
            return SingleInstance::privateFolder(runtime, m_folder->path());
        };
        QCOMPARE(folder(run), run);

        // Without a usable runtime folder: one of our own, that is found again.
        const QString own = path("velt-admin-repo-%1"_s.arg(::geteuid()));
        QVERIFY(!QFileInfo::exists(own));
        QVERIFY(QFile::link(run, path("link"_s)));
        for (const QString &unusable : {QString(), "/nonexistent"_s, path("link"_s)}) {
            QCOMPARE(folder(unusable), own);
            QCOMPARE(modeOf(own), 0700U);
        }
        // Somebody else may have put something there first: what others can enter, or a link, is not used.
        QVERIFY(::chmod(QFile::encodeName(own).constData(), 0755) == 0);
        QVERIFY(folder({}).isEmpty());
        QVERIFY(QDir().rmdir(own) && QFile::link(run, own));
        QVERIFY(folder({}).isEmpty());
        QVERIFY(SingleInstance(QString()).isFirst());
    }
};

VELT_TEST_MAIN(TestSingleInstance, QCoreApplication)
#include "tst_singleinstance.moc"
