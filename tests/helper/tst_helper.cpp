// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/callers.h"
#include "helper/manager.h"
#include "helper/polkitpeer.h"
#include "helper/privilegedwork.h"
#include "helper/requestmessage.h"
#include "helper/requestrules.h"
#include "server/sourcekey.h"
#include "server/sourceline.h"
#include "server/vsftpdconfig.h"
#include "support/privatebus.h"
#include "support/systemdpeer.h"
#include "support/testenvironment.h"
#include "support/testkeys.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingReply>
#include <QDBusReply>

#include <csignal>
#include <utility>

#include <unistd.h>

using namespace std::chrono_literals;

namespace
{
using Reply = QDBusPendingReply<bool>;

const QString line = QStringLiteral("deb http://10.0.0.1:8000/ dog main");

QDBusConnection connectTo(const char *name)
{
    const QDBusConnection bus = QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"),
                                                              QString::fromLatin1(name));
    // The names of a new connection still arrive in Qt's own thread while the first call looks at them without a lock.
    const QString daemon = "org.freedesktop.DBus"_s;
    bus.call(QDBusMessage::createMethodCall(daemon, "/"_s, daemon, "GetId"_s));
    return bus;
}

Reply call(const QDBusConnection &bus, const char *method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        Manager::Service, "/"_s, "org.corvana.velt.repo.Manager"_s, QString::fromLatin1(method));
    message.setArguments(arguments);
    return bus.asyncCall(message);
}

/** What a call has come to: "yes", "no", or the kind of its error. */
QString resultOf(const Reply &reply)
{
    if (!QTest::qWaitFor([&] { return reply.isFinished(); }))
        return "nothing"_s;
    if (reply.isError())
        return reply.error().name().section(u'.', -1);
    return reply.value() ? "yes"_s : "no"_s;
}

/** The helper without its process, with work that is written down and waits for leave. */
struct Inside
{
    explicit Inside(Manager::Times times = {1h}, int recoveries = 1)
        : recovery(recoveries)
        , manager(bus,
                  {[this] { recovery.acquire(); },
                   [this](const HelperRequest &request) {
                       begun.release();
                       leave.acquire();
                       done += request.describe();
                       return HelperOutcome{request.port == 666 ? HelperOutcome::Failed : HelperOutcome::Done,
                                            "No."_s};
                   }},
                  times)
    {
        const QDBusConnection watching = connectTo("inside");
        manager.start();
        if (!QTest::qWaitFor(
                [&] { return watching.interface()->isServiceRegistered(Manager::Service).value(); }))
            qFatal("no helper");
        QDBusConnection::disconnectFromBus("inside"_s);
    }
    ~Inside()
    {
        recovery.release();
        leave.release(100);
    }
    Q_DISABLE_COPY(Inside)

    BusConnection bus;
    QSemaphore recovery;
    QSemaphore begun;
    QSemaphore leave{100};
    QStringList done;
    Manager manager;
};

/** The installed program. */
struct Outside : QProcess
{
    explicit Outside(const QStringList &arguments = {}) { start(QStringLiteral(VELT_HELPER), arguments); }
    bool isOnBus(const QDBusConnection &bus) const
    {
        return QTest::qWaitFor(
            [&] { return bus.interface()->isServiceRegistered(Manager::Service).value(); });
    }
    bool endedWell()
    {
        // Waiting fails for a process whose end an event loop has seen already.
        return (state() == NotRunning || waitForFinished()) && exitStatus() == NormalExit && exitCode() == 0;
    }
};
} // namespace

class HelperTest : public QObject
{
    Q_OBJECT
    std::unique_ptr<PrivateBus> m_bus;
    int m_errors = 0;
    QString m_reason;

public Q_SLOTS:
    void takeError(int /*kind*/, const QString &reason)
    {
        ++m_errors;
        m_reason = reason;
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("dbus-daemon");
        m_bus = std::make_unique<PrivateBus>();
    }

    void cleanup()
    {
        for (const char *name : {"a", "b", "c"})
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }

    void answers()
    {
        const Inside inside;
        QDBusConnection a = connectTo("a");
        QDBusConnection b = connectTo("b");
        const auto listen = [this](QDBusConnection &bus) {
            return bus.connect(
                {}, "/"_s, "org.corvana.velt.repo.Manager"_s, "Error"_s, this, SLOT(takeError(int, QString)));
        };
        QVERIFY(listen(a) && listen(b));
        QCOMPARE(resultOf(call(a, "AddLocalSource", {line})), "AccessDenied"_s); // there is no polkit
        PolkitPeer polkit(m_bus->address());
        for (const auto answer :
             {PolkitPeer::No, PolkitPeer::Dismissed, PolkitPeer::Broken, PolkitPeer::Nonsense}) {
            polkit.answer = answer;
            QCOMPARE(resultOf(call(a, "PublishRepo", {"/srv/r"_s, 80, 0})), "AccessDenied"_s);
        }
        QVERIFY(inside.done.isEmpty());
        polkit.answer = PolkitPeer::Yes;
        QCOMPARE(resultOf(call(a, "AddLocalSource", {line})), "yes"_s);
        QCOMPARE(resultOf(call(a, "RemoveLocalSource", {line})), "yes"_s);
        QCOMPARE(resultOf(call(a, "PublishRepo", {"/srv/r"_s, 80, 1})), "yes"_s);
        QCOMPARE(m_errors, 5);
        QCOMPARE(resultOf(call(b, "UnpublishRepo", {666, 0})), "no"_s);
        QTRY_COMPARE(m_errors, 6); // each to its caller alone
        QCOMPARE(m_reason, "No."_s);
        QCOMPARE(inside.done.join(u'\n'),
                 "AddLocalSource entry=\"%1\"\nRemoveLocalSource entry=\"%1\"\n"
                 "PublishRepo path=\"/srv/r\" port=\"80\" protocol=\"1\" server=\"FTP\"\n"
                 "UnpublishRepo port=\"666\" protocol=\"0\" server=\"HTTP\""_s.arg(line));

        QStringList asked;
        for (const PolkitPeer::Question &question : polkit.questions.mid(4)) {
            asked += question.action.section(u'.', -1);
            QCOMPARE(question.flags, 1U);
        }
        QCOMPARE(asked.join(u' '), "add-local-source remove-local-source publish unpublish"_s);
        QCOMPARE(polkit.questions.last().subject, "system-bus-name "_s + b.baseService());
        QCOMPARE(polkit.questions.at(6).details.value("path"_s), "/srv/r"_s);
        // Each of the actions is one that the installed policy knows, and what its words name is there.
        QXmlStreamReader policy(readFile(QStringLiteral(VELT_POLICY)));
        QMap<QString, QString> words;
        QString action;
        while (!policy.atEnd()) {
            if (policy.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (policy.name() == "action"_s)
                action = policy.attributes().value("id"_s).toString();
            else if (policy.name() == "message"_s)
                words[action] += policy.readElementText();
        }
        QCOMPARE(words.size(), 4);
        static const QRegularExpression variable("\\$\\((\\w+)\\)"_s);
        for (const PolkitPeer::Question &question : std::as_const(polkit.questions)) {
            auto match = variable.globalMatch(words.value(question.action));
            QVERIFY2(match.hasNext(), qPrintable(question.action));
            while (match.hasNext()) {
                const QString name = match.next().captured(1);
                QVERIFY2(question.details.contains(name), qPrintable(question.action + u' ' + name));
            }
        }
    }

    void hostileArguments()
    {
        const Inside inside;
        PolkitPeer polkit(m_bus->address());
        const QDBusConnection a = connectTo("a");
        const QVector<QPair<QString, QVariantList>> paths{
            {"PublishRepo"_s, {"/srv/r\nExecStartPre=/bin/sh"_s, 80, 0}},
            {"PublishRepo"_s, {"/srv/%h"_s, 80, 0}},
            {"PublishRepo"_s, {"/srv/\"r"_s, 80, 0}},
            {"PublishRepo"_s, {"/srv/../etc"_s, 80, 0}},
            {"PublishRepo"_s, {""_s, 80, 0}},
            {"PublishRepo"_s, {"srv/r"_s, 80, 0}},
            {"PublishRepo"_s, {"/srv/r"_s, 0, 0}},
            {"PublishRepo"_s, {"/srv/r"_s, 70000, 0}},
            {"PublishRepo"_s, {"/srv/r"_s, 80, 2}},
            {"UnpublishRepo"_s, {-1, 0}},
            {"UnpublishRepo"_s, {80, 7}},
        };
        for (const auto &[method, arguments] : paths)
            QCOMPARE(resultOf(call(a, method.toLatin1().constData(), arguments)), "InvalidArgs"_s);
        const QStringList entries{
            QString(),
            line + u'\n',
            line + "\ndeb http://evil:80/ dog main"_s,
            line + " "_s,
            "deb-src http://h:80/ dog main"_s,
            "deb [signed-by=/tmp/k] http://h:80/ dog main"_s,
            "deb [signed-by=/tmp/k] http://h..i:80/ dog main"_s,
            "deb [signed-by=%1,/tmp/k] http://h:80/ dog main"_s.arg(SourceKey::file(QString(40, u'A'))),
            "deb [signed-by=%1 trusted=yes] http://h:80/ dog main"_s.arg(SourceKey::file(QString(40, u'A'))),
            "deb [signed-by=%1/../x.asc] http://h:80/ dog main"_s.arg(SourceKey::Folder),
            "deb [allow-insecure=yes] http://h:80/ dog main"_s,
            "deb https://h:80/ dog main"_s,
            "deb http://u:p@h:80/ dog main"_s,
            "deb http://h:0/ dog main"_s,
            "deb http://h:70000/ dog main"_s,
            "deb http://h:80/ dog/ main"_s,
            "deb http://h:80/ dog"_s,
            "deb file:///srv/a b/ dog main"_s,
            "deb file:///srv/%41/ dog main"_s,
            line + QString(1000000, u'a'),
        };
        for (const QString &entry : entries) {
            QCOMPARE(resultOf(call(a, "AddLocalSource", {entry})), "InvalidArgs"_s);
            QCOMPARE(resultOf(call(a, "RemoveLocalSource", {entry})), "InvalidArgs"_s);
            QCOMPARE(resultOf(call(a, "AddSignedLocalSource", {entry, QString()})), "InvalidArgs"_s);
        }
        QCOMPARE(resultOf(call(a, "PublishRepo", {"/srv/r"_s, 80U, 0})), "InvalidArgs"_s);
        QCOMPARE(resultOf(call(a, "deleteLater", {})), "UnknownMethod"_s);
        QVERIFY(polkit.questions.isEmpty() && inside.done.isEmpty());

        for (const bool trusted : {false, true}) {
            for (const int protocol : {HttpProtocol, FtpProtocol, LocalDirectoryProtocol}) {
                SourceLine own{
                    trusted, {}, protocol, "host-1.lan"_s, 65535, "/srv/мой@1"_s, "s/u_1"_s, "m  a-b"_s};
                QCOMPARE(RequestRules::entryProblem(own.text()), QString());
                own.architectures = "i386 kfreebsd-amd64"_s;
                own.directory = SourceLine::inLine("/srv/a b"_s);
                own.copied = trusted;
                if (!trusted)
                    own.signedBy = SourceKey::file(QString(40, u'A'));
                QCOMPARE(RequestRules::entryProblem(own.text()), QString());
            }
        }
    }

    void keys()
    {
        VELT_NEED_TOOL("gpg");
        const auto armored = [](const QByteArray &packets) {
            // gpg names files otherwise.
            QString text = TestKeys::gpg({"--no-comments"_s, "--enarmor"_s}, packets);
            text.replace("PGP ARMORED FILE"_s, "PGP PUBLIC KEY BLOCK"_s);
            return text.replace(QRegularExpression("\nComment:[^\n]*\n"_s), "\n"_s).toLatin1();
        };
        const auto exported = [](const QStringList &ids) {
            return TestKeys::gpg("--armor|--export-options|export-minimal|--export"_list + ids).toLatin1();
        };
        const QString ed25519 = TestKeys::make("Ann <a@example.org>"_s);
        TestKeys::gpg(
            {"--passphrase"_s, QString(), "--quick-add-key"_s, ed25519, "ed25519"_s, "sign"_s, "1y"_s});
        TestKeys::gpg(
            {"--passphrase"_s, QString(), "--quick-gen-key"_s, "Bob"_s, "rsa3072"_s, "sign"_s, "never"_s});
        const QString rsa = TestKeys::gpg({"--with-colons"_s, "--list-keys"_s, "Bob"_s})
                                .section("fpr:::::::::"_s, 1, 1)
                                .left(40);
        const QByteArray key = exported({ed25519});
        QCOMPARE(SourceKey::fingerprint(key), ed25519);
        QCOMPARE(SourceKey::fingerprint(exported({rsa})), rsa);
        const QByteArray packets
            = QByteArray::fromBase64(key.mid(key.indexOf("\n\n") + 2).split('=').first());
        QCOMPARE(SourceKey::fingerprint(armored(packets)), ed25519);

        // Whatever more there is, apt would trust it too, or read it in another way.
        const QByteArray secret = TestKeys::gpg({"--armor"_s, "--export-secret-keys"_s, ed25519}).toLatin1();
        QByteArray commented = key;
        commented.replace("BLOCK-----\n\n", "BLOCK-----\nComment: x\n\n");
        QVector<QByteArray> bad{QByteArray(),
                                exported({ed25519, rsa}),
                                key + key,
                                key + exported({rsa}),
                                "x" + key,
                                key + "x",
                                secret,
                                commented,
                                key + QByteArray(SourceKey::MostBytes, '\n')};
        for (int size = 0; size < key.size(); ++size)
            bad += key.left(size);
        for (int at = key.indexOf("\n\n") + 2; at < key.indexOf("\n-----END"); ++at)
            bad += QByteArray(key).replace(at, 1, key.at(at) == 'A' ? "B" : "A");
        // Sound armor around packets that are not.
        const int bodySize = static_cast<quint8>(packets.at(1));
        const QByteArray body = packets.mid(2, bodySize);
        for (const QByteArray &header : {QByteArray("\x99\xFF\xFF"),
                                         QByteArray("\x9A\xFF\xFF\xFF\xFF"),
                                         QByteArray("\x9B"),
                                         QByteArray("\xC6\xFF\xFF\xFF\xFF\xFF"),
                                         QByteArray("\xC6\xE0"),
                                         QByteArray("\xC6"),
                                         QByteArray("\x18"),
                                         QByteArray("\xC6\x00", 2)})
            bad += armored(header + body);
        bad += armored(packets.left(2) + '\x03' + packets.mid(3));
        bad += armored(packets.chopped(1));
        bad += armored(packets.mid(2 + bodySize));
        for (const QByteArray &text : std::as_const(bad))
            QVERIFY2(SourceKey::fingerprint(text).isEmpty(), text.constData());

        // A key file comes and goes with the lines that name it.
        QTemporaryDir folder;
        PrivilegedWork::Places places;
        places.sources = folder.filePath("velt.list"_s);
        places.keys = folder.filePath("keyrings"_s);
        PrivilegedWork work(places);
        SourceLine source{false, {}, HttpProtocol, "h"_s, 1, {}, "dog"_s, "main"_s, SourceKey::file(ed25519)};
        const QString one = source.text();
        source.port = 2;
        const QString two = source.text();
        const QString file = folder.filePath("keyrings/velt-admin-repo-%1.asc"_s.arg(ed25519));
        const auto change
            = [&work](HelperRequest::Method method, const QString &entry, const QByteArray &its = {}) {
                  return work.run({method, entry, {}, 0, 0, QString::fromLatin1(its)}).kind;
              };
        using Request = HelperRequest;
        QCOMPARE(change(Request::AddLocalSource, one), HelperOutcome::Invalid);
        QCOMPARE(change(Request::AddSignedLocalSource, line, key), HelperOutcome::Invalid);
        QCOMPARE(change(Request::AddSignedLocalSource, one, exported({rsa})), HelperOutcome::Invalid);
        QVERIFY(!QFile::exists(places.keys) && !QFile::exists(places.sources));
        QVERIFY(QDir().mkdir(places.sources));
        QCOMPARE(change(Request::AddSignedLocalSource, one, key), HelperOutcome::Failed);
        QVERIFY(!QFile::exists(file) && QDir().rmdir(places.sources));
        QCOMPARE(change(Request::AddSignedLocalSource, one, key), HelperOutcome::Done);
        QCOMPARE(change(Request::AddSignedLocalSource, two, key), HelperOutcome::Done);
        QCOMPARE(readFile(file), key);
        QVERIFY(QFile::permissions(file) == QFile::Permissions(0x6644));
        QCOMPARE(change(Request::RemoveLocalSource, one), HelperOutcome::Done);
        QVERIFY(QFile::exists(file));
        QCOMPARE(change(Request::RemoveLocalSource, two), HelperOutcome::Done);
        QVERIFY(!QFile::exists(file) && readFile(places.sources).isEmpty());
    }

    void manyCallers()
    {
        Inside inside;
        PolkitPeer polkit(m_bus->address());
        // Who holds no connection can leave.
        const auto from = [](const char *caller, int port) {
            return call(connectTo(caller), "UnpublishRepo", {port, 0});
        };
        // A question that nobody answers holds up neither others nor, when its caller has left, itself.
        polkit.answer = PolkitPeer::Silence;
        from("c", 1);
        QTRY_COMPARE(polkit.questions.size(), 1);
        polkit.answer = PolkitPeer::Yes;
        QCOMPARE(resultOf(from("a", 2)), "yes"_s);
        // One after another; who leaves meanwhile takes along what has not begun, and only that.
        inside.leave.acquire(99);
        inside.begun.acquire();
        from("a", 3);
        QTRY_COMPARE(inside.begun.available(), 1);
        inside.begun.acquire();
        from("c", 4);
        const Reply queued = from("b", 5);
        QTRY_COMPARE(polkit.questions.size(), 5);
        QDBusConnection::disconnectFromBus("c"_s);
        QTRY_COMPARE(polkit.takenBack, QStringList(polkit.questions.first().id));
        QDBusConnection::disconnectFromBus("a"_s);
        QVERIFY(!inside.begun.tryAcquire(1, 20));
        inside.leave.release(99);
        QCOMPARE(resultOf(queued), "yes"_s);
        QCOMPARE(inside.done.size(), 3);
        QVERIFY(inside.done.at(1).contains("\"3\""_s) && inside.done.at(2).contains("\"5\""_s));

        // Nobody can fill the helper, and stopping it answers everybody.
        polkit.answer = PolkitPeer::Silence;
        QVector<Reply> many;
        for (int i = 0; i < 9; ++i)
            many += from("b", 6);
        QCOMPARE(resultOf(many.last()), "LimitsExceeded"_s);
        QTRY_COMPARE(polkit.questions.size(), 13);
        QSignalSpy finished(&inside.manager, &Manager::finished);
        inside.manager.stop();
        for (int i = 0; i < 8; ++i)
            QCOMPARE(resultOf(many.at(i)), "NoReply"_s);
        QTRY_VERIFY(!finished.isEmpty());
        QTRY_COMPARE(polkit.takenBack.size(), 9);
        QCOMPARE(inside.done.size(), 3);
    }

    void beginsNothingLate()
    {
        Inside inside({1h, 300ms}, 0); // recovery has not ended
        PolkitPeer polkit(m_bus->address());
        const QDBusConnection a = connectTo("a");
        polkit.answer = PolkitPeer::Silence;
        QCOMPARE(resultOf(call(a, "UnpublishRepo", {1, 0})), "Timeout"_s);
        QTRY_COMPARE(polkit.takenBack, QStringList(polkit.questions.first().id));
        polkit.answer = PolkitPeer::Yes;
        QCOMPARE(resultOf(call(a, "UnpublishRepo", {2, 0})), "Timeout"_s);
        QCOMPARE(polkit.questions.size(), 2);
        inside.recovery.release();
        QCOMPARE(resultOf(call(a, "UnpublishRepo", {3, 0})), "yes"_s);
        QCOMPARE(inside.done.size(), 1);
    }

    void keepsPlaces()
    {
        // As many connections as a bus allows one user fill what they can, before anybody knows who it is.
        Callers callers;
        const auto name = [](int i) { return QByteArray::number(i); };
        const std::size_t large = RequestMessage::sizeOf({HelperRequest::AddSignedLocalSource,
                                                          QString(RequestRules::LongestEntry, u'a'),
                                                          {},
                                                          0,
                                                          0,
                                                          QString(SourceKey::MostBytes, u'a')});
        const std::size_t small = 3000;
        QVector<QPair<int, std::size_t>> taken;
        for (int i = 0; i < 256; ++i) {
            for (const std::size_t size : {large, small, small, small, small, small, small, small, small}) {
                if (callers.takePlace(name(i), size))
                    taken.append({i, size});
            }
        }
        QCOMPARE(taken.size(), 256 * 8);
        QVERIFY(callers.takePlace("root", large));
        // Now the bus has told that each is another user.
        for (int i = 0; i < 256; ++i)
            callers.identified(name(i), uid_t(i + 1));
        callers.identified("root", 0);
        int places = 0;
        for (const auto &[i, size] : std::as_const(taken))
            places += callers.takePlace(name(i), size) ? 1 : 0;
        QCOMPARE(places, 256);
        QVERIFY(callers.takePlace("root", large));
        // Who has left gives the places back when the work is done, and not before.
        callers.left(name(0));
        callers.identified("late", 1000);
        QVERIFY(!callers.takePlace("late", 1));
        callers.givePlaceBack(name(0), large);
        QVERIFY(callers.takePlace("late", 1));
    }

    void wantsToBeAnswered()
    {
        const Inside inside;
        PolkitPeer polkit(m_bus->address());
        const QDBusConnection a = connectTo("a");
        QDBusMessage message = QDBusMessage::createMethodCall(
            Manager::Service, "/"_s, "org.corvana.velt.repo.Manager"_s, "UnpublishRepo"_s);
        message.setArguments({1, 0});
        a.call(message, QDBus::NoBlock);
        QCOMPARE(resultOf(call(a, "UnpublishRepo", {2, 0})), "yes"_s);
        QCOMPARE(polkit.questions.size(), 1);
        QCOMPARE(inside.done.size(), 1);
    }

    void callBeforeTheEnd()
    {
        Inside inside;
        PolkitPeer polkit(m_bus->address());
        const QDBusConnection a = connectTo("a");
        const Reply late = call(a, "UnpublishRepo", {1, 0});
        a.interface()->serviceOwner(Manager::Service); // by now the bus has handed on the call
        QSignalSpy finished(&inside.manager, &Manager::finished);
        inside.manager.stop();
        QTRY_VERIFY(!a.interface()->isServiceRegistered(Manager::Service));
        QCOMPARE(resultOf(late), "yes"_s);
        QTRY_VERIFY(!finished.isEmpty());
    }

    void process()
    {
        const QDBusConnection a = connectTo("a");
        PolkitPeer polkit(m_bus->address());
        QTemporaryDir folder;
        writeFile(folder.filePath("r/conf/distributions"_s), "x");
        QVERIFY(QFile::link(folder.filePath("r"_s), folder.filePath("link"_s)));
        {
            Outside helper;
            QVERIFY(helper.isOnBus(a));
            // What may be done, and yet changes nothing here.
            QCOMPARE(resultOf(call(a, "RemoveLocalSource", {"deb ftp://nowhere:1/ dog main"_s})), "yes"_s);
            QCOMPARE(resultOf(call(a, "PublishRepo", {folder.filePath("link"_s), 80, 0})), "InvalidArgs"_s);
            QCOMPARE(resultOf(call(a, "PublishRepo", {folder.filePath("r\n<0>"_s), 80, 0})), "InvalidArgs"_s);
            polkit.answer = PolkitPeer::Silence;
            const Reply unanswered = call(a, "UnpublishRepo", {1, 0});
            QTRY_COMPARE(polkit.questions.size(), 3);
            helper.kill();
            QCOMPARE(resultOf(unanswered), "NoReply"_s);
            helper.waitForFinished();
            const QString journal = QString::fromUtf8(helper.readAllStandardError());
            QVERIFY(journal.contains("r\\u000a<0>\" port=\"80\""_s));
            QVERIFY(journal.startsWith("<6>request 1 of %1, user %2: RemoveLocalSource"_s.arg(
                a.baseService(), QString::number(::getuid()))));
        }
        Outside stopped;
        QVERIFY(stopped.isOnBus(a));
        const Reply waiting = call(a, "UnpublishRepo", {1, 0});
        QTRY_COMPARE(polkit.questions.size(), 4);
        Outside second;
        QVERIFY(second.waitForFinished() && second.exitCode() == 1); // there is one already
        stopped.terminate();
        QCOMPARE(resultOf(waiting), "NoReply"_s);
        QVERIFY(stopped.endedWell());
        Outside idle({"--idle-time"_s, "1"_s});
        QVERIFY(idle.endedWell());
        Outside wrong({"--idle-time"_s, "-5"_s});
        QVERIFY(wrong.waitForFinished() && wrong.exitCode() == 1);
    }

    void recovers()
    {
        const QTemporaryDir folder;
        const SystemdPeer systemd(m_bus->address(), folder.path());
        PrivilegedWork::Places places;
        places.http.unitDir = folder.path();
        places.ftpConfig = folder.filePath("vsftpd.conf"_s);
        places.stateFolder = folder.filePath("state"_s);
        PrivilegedWork work(places);
        const QString file = folder.filePath("state/intent"_s);
        const QString kept = places.ftpConfig + FtpServer::KeptSuffix;
        const QByteArray text = PublicationIntent{PublicationIntent::Publish,
                                                  FtpProtocol,
                                                  2121,
                                                  "/srv/мой r"_s,
                                                  {{{true, "by hand\n", 0640}, {}, {}}, false, false}}
                                    .text();
        writeFile(places.ftpConfig, VsftpdConfig::text("/srv/мой r"_s, 2121).toUtf8());
        writeFile(kept, "by hand\n");
        writeFile(file, text);
        QVERIFY(work.recover());
        QCOMPARE(readFile(places.ftpConfig), QByteArray("by hand\n"));
        QVERIFY(!QFile::exists(kept) && !QFile::exists(file));

        // The same with lines that the administrator had added before, which publishing has taken over.
        const QByteArray before
            = VsftpdConfig::text("/srv/a"_s, 21).toUtf8() + "hide_ids=NO\n# \xe9\npasv_max_port=9\n";
        writeFile(places.ftpConfig,
                  VsftpdConfig::text("/srv/b"_s, 2121).toUtf8() + "# \xe9\npasv_max_port=9\n");
        writeFile(file,
                  PublicationIntent{PublicationIntent::Publish,
                                    FtpProtocol,
                                    2121,
                                    "/srv/b"_s,
                                    {{{true, before, 0644}, {}, {}}, false, false}}
                      .text());
        QVERIFY(work.recover());
        QCOMPARE(readFile(places.ftpConfig), before);

        // What the administrator has written in the meantime stays.
        writeFile(places.ftpConfig, "later\n");
        writeFile(file, text);
        QVERIFY(work.recover() && !QFile::exists(file));
        QCOMPARE(readFile(places.ftpConfig), QByteArray("later\n"));

        // Nothing is done by what is damaged, and it is in nobody's way.
        QVERIFY(PublicationIntent::read(text));
        for (int size = 0; size < text.size(); ++size)
            QVERIFY2(!PublicationIntent::read(text.left(size)), text.left(size).constData());
        QVERIFY(!PublicationIntent::read(QByteArray(text).replace("2121", "0")));
        QVERIFY(!PublicationIntent::read(QByteArray(text).replace("/srv", "srv")));
        writeFile(places.ftpConfig, VsftpdConfig::text("/srv/r"_s, 2121).toUtf8());
        for (const QByteArray &damaged : {text.left(60), QByteArray(text).replace("file absent\n", "")}) {
            writeFile(file, damaged);
            QVERIFY(work.recover() && !QFile::exists(file));
            QVERIFY(readFile(places.ftpConfig).startsWith("listen=yes"));
        }
    }

    void sourcesFile()
    {
        QTemporaryDir folder;
        PrivilegedWork::Places places;
        places.sources = folder.filePath("d/velt.list"_s);
        places.ftpConfig = folder.filePath("vsftpd.conf"_s);
        places.stateFolder = folder.filePath("state"_s);
        PrivilegedWork work(places);
        const HelperRequest add{HelperRequest::AddLocalSource, line, {}, 0, 0};
        const HelperRequest remove{HelperRequest::RemoveLocalSource, line, {}, 0, 0};
        const HelperOutcome nowhere = work.run(add);
        QVERIFY(nowhere.kind == HelperOutcome::Failed && !nowhere.reason.isEmpty());
        QVERIFY(QDir(folder.path()).mkdir("d"_s));
        QCOMPARE(work.run(remove).kind, HelperOutcome::Done);
        QVERIFY(!QFile::exists(places.sources));
        QCOMPARE(work.run(add).kind, HelperOutcome::Done);
        QCOMPARE(readFile(places.sources), line.toUtf8() + '\n');
        QVERIFY(QFile::permissions(places.sources) & QFile::ReadOther);
        const QByteArray byHand = "# \xe9\x80 not of any encoding\r\n\ndeb http://h:1/ x y";
        writeFile(places.sources, byHand);
        QCOMPARE(work.run(add).kind, HelperOutcome::Done);
        QCOMPARE(readFile(places.sources), byHand + '\n' + line.toUtf8() + '\n');
        QVERIFY(
            QFile::setPermissions(places.sources, QFile::ReadOwner | QFile::WriteOwner)); // and its rights
        QCOMPARE(work.run(remove).kind, HelperOutcome::Done);
        QCOMPARE(readFile(places.sources), byHand + '\n');
        QVERIFY(!(QFile::permissions(places.sources) & QFile::ReadOther));

        const QString victim = folder.filePath("victim"_s);
        writeFile(victim, "v");
        QVERIFY(QFile::remove(places.sources) && QFile::link(victim, places.sources));
        QCOMPARE(work.run(add).kind, HelperOutcome::Failed);
        QCOMPARE(readFile(victim), QByteArray("v"));
        // The FTP server of somebody else goes on.
        writeFile(places.ftpConfig, "listen=yes\nlisten_port=21\nanon_root=/srv\n");
        QCOMPARE(work.run({HelperRequest::UnpublishRepo, {}, {}, 21, 1}).kind, HelperOutcome::Failed);
        // What the text could not tell, the file system does.
        QCOMPARE(work.run({HelperRequest::PublishRepo, {}, folder.path(), 80, 0}).kind,
                 HelperOutcome::Invalid);
        QCOMPARE(work.run({HelperRequest::UnpublishRepo, {}, {}, 0, 0}).kind, HelperOutcome::Invalid);
    }
};

VELT_TEST_MAIN(HelperTest, QCoreApplication)
#include "tst_helper.moc"
