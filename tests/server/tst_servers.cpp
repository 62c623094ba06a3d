// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/systemdservice.h"
#include "server/ftpserver.h"
#include "server/httpserver.h"
#include "server/publicationpath.h"
#include "server/publicationunit.h"
#include "server/systemfile.h"
#include "server/vsftpdconfig.h"
#include "support/literals.h"
#include "support/privatebus.h"
#include "support/systemdpeer.h"
#include "support/testenvironment.h"

#include <QElapsedTimer>
#include <QtTest>

#include <climits>

#include <sys/stat.h>

using VeltAdmin::SystemdService;
using namespace std::chrono_literals;

namespace
{
const QByteArray unitTemplate = "[Unit]\nDescription=%2 100%% of %1\n[Service]\nWorkingDirectory=%1\n"
                                "ExecStart=/usr/bin/served --log=:%21 %2\n[Install]\nWorkingDirectory=/no\n";
const QByteArray handWritten = "# ours\nlisten_port=21\nanon_root=/srv/ftp\n";
const QString unitName = "public-repo-8080.service"_s;

/** The folders of one test's system, with the manager that runs it. */
struct System
{
    System()
    {
        for (const char *repo : {"r o", "второй"})
            writeFile(repoDir(repo) + "/conf/distributions"_s, "Codename: dog\n");
        writeFile(places.templateFile, unitTemplate);
        QDir(folder.path()).mkdir("tmp"_s);
        QDir(folder.path()).mkdir("etc"_s);
    }

    QString repoDir(const char *name) const { return folder.filePath(QString::fromUtf8(name)); }
    QByteArray installed() const { return readFileOrNothing(folder.filePath("etc/"_s + unitName)); }
    QByteArray config() const { return readFileOrNothing(vsftpd); }
    QByteArray kept() const { return readFileOrNothing(vsftpd + FtpServer::KeptSuffix); }
    static QByteArray readFileOrNothing(const QString &path)
    {
        return QFile::exists(path) ? readFile(path) : "none";
    }

    QTemporaryDir folder;
    HttpServer::Places places{folder.filePath("etc"_s),
                              folder.filePath("tmp"_s),
                              folder.filePath("tmp/http"_s),
                              folder.filePath("t"_s)};
    QString vsftpd = folder.filePath("etc/vsftpd.conf"_s);
    PrivateBus bus;
    SystemdPeer systemd{bus.address(), places.unitDir};
};

SystemdPeer::Unit failing()
{
    SystemdPeer::Unit unit;
    unit.startResult = "failed"_s;
    return unit;
}

SystemdPeer::Unit shortLived(bool comesBack = false)
{
    SystemdPeer::Unit unit;
    unit.lifeTime = 200;
    unit.comesBack = comesBack;
    return unit;
}
} // namespace

class ServersTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void paths()
    {
        using namespace PublicationPath;
        for (const char *path : {"/srv/a b", "/home/ü/мой репо", "/a/._+~@:-9", "/\U00020000", "/i\u0308"})
            QVERIFY2(isWellFormed(QString::fromUtf8(path)), path);
        for (const char *path : {"",      "/",     "srv",  "/srv/", "/srv/../a", "/srv//a",  "/a%i",
                                 "/a\nb", "/a\tb", "/a\"", "/a'",   "/a\\",      "/a,b",     "/a;b",
                                 "/a$b",  "/a ",   "/ a",  "/a /b", "/a\u2028b", "/a\u00a0b"})
            QVERIFY2(!isWellFormed(QString::fromUtf8(path)), path);
        const QTemporaryDir folder;
        const QString repo = folder.filePath("repo"_s);
        writeFile(repo + "/conf/distributions"_s, "");
        QVERIFY(QFile::link(repo, folder.filePath("link"_s)));
        QVERIFY(!isWellFormed(u'/' + QString(PATH_MAX, u'a')));
        QVERIFY(isPublishable(repo));
        QVERIFY(!isPublishable(folder.filePath("link"_s)) && !isPublishable(folder.path())
                && !isPublishable(repo + "/conf/distributions"_s)
                && !isPublishable(folder.filePath("none"_s)));
    }

    void texts()
    {
        for (const char *path : {"/srv/%2 a", "/home/ü/мой репо", "/a,b;c\\d\"e", "/a=b"}) {
            const QString directory = QString::fromUtf8(path);
            const QString unit = PublicationUnit::text(QString::fromUtf8(unitTemplate), directory, 8080);
            QVERIFY(unit.contains("100%% of "_s + directory) && unit.contains("--log=:80801 8080\n"_s));
            QCOMPARE(PublicationUnit::read(unit).path, directory);
            QCOMPARE(PublicationUnit::read(unit).port, 8080);
            const QString config = VsftpdConfig::text(directory, 8080);
            QCOMPARE(VsftpdConfig::read(config).path, directory);
            QCOMPARE(VsftpdConfig::read(config).port, 8080);
            QVERIFY(VsftpdConfig::isOurs(config) && !VsftpdConfig::isOurs(config + "#\n"_s));
            QVERIFY(VsftpdConfig::mentionsPort(config, 80) && !VsftpdConfig::mentionsPort(config, 81));
        }
        const auto port
            = [](const char *unit) { return PublicationUnit::read(QString::fromUtf8(unit)).port; };
        QCOMPARE(port(""), 0);
        QCOMPARE(port("[Service]\nExecStart=/bin/x 80 y\n"), 0);
        QCOMPARE(
            port("[Service]\r\n ExecStart = /bin/x 80\r\n#ExecStart=/bin/x 81\r\n[X]\r\nExecStart=82\r\n"),
            80);
        QCOMPARE(port("[Service]\nExecStart=\nExecStart=/bin/x 80\nExecStart=/bin/x  81 \n"), 81);
    }

    void files()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("file"_s);
        const QString link = folder.filePath("link"_s);
        // A writer that was killed has left the first of these; the other one is the administrator's.
        const QStringList hidden{folder.filePath(".file.0123456789abcdef.new"_s),
                                 folder.filePath(".file.my.new"_s)};
        for (const QString &name : hidden)
            writeFile(name, "x");
        QVERIFY(SystemFile::write(file, "one", 0600));
        QVERIFY(!QFile::exists(hidden.first()) && QFile::remove(hidden.last()));
        QVERIFY(SystemFile::write(file, "two", 0644, SystemFile::Existing::Kept));
        auto state = SystemFile::read(file);
        QVERIFY(state && state->exists && state->contents == "one" && state->mode == 0600);
        QVERIFY(QFile::link(file, link));
        QString errorText;
        QVERIFY(!SystemFile::write(link, "x", 0644, SystemFile::Existing::Replaced, &errorText));
        QVERIFY2(errorText.startsWith(link + ": "_s), qPrintable(errorText));
        QVERIFY(!SystemFile::read(link) && !SystemFile::remove(link));
        // Below a file, or through a folder that is a link, there is no place for another file.
        QVERIFY(QFile::link(folder.path(), folder.filePath("dir"_s)));
        for (const QString &bad :
             {folder.filePath("file/x"_s), folder.filePath("dir/x"_s), folder.filePath("none/x"_s)})
            QVERIFY(!SystemFile::write(bad, "x") && !SystemFile::writeStaging(bad, "x"));
        QVERIFY(SystemFile::restore(folder.filePath("none/x"_s), {}) && !SystemFile::read(file + "/x"_s));
        const QString pipe = folder.filePath("pipe"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(!SystemFile::read(pipe) && !SystemFile::writeStaging(pipe, "x"));
        QVERIFY(SystemFile::write(pipe + "2"_s, QByteArray(2000000, 'x')) && !SystemFile::read(pipe + "2"_s));

        // A staging copy that was planted beforehand is replaced, and what it points to is not touched.
        QVERIFY(SystemFile::writeStaging(link, "new"));
        QVERIFY(!QFileInfo(link).isSymLink());
        QCOMPARE(readFile(file) + readFile(link), QByteArray("onenew"));
        QVERIFY(SystemFile::remove(file) && SystemFile::remove(file) && !QFile::exists(file));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{"link"_s, "pipe2"_s}));
    }

    void services()
    {
        System system;
        const auto errorOf = [&](const SystemdPeer::Unit &unit) {
            system.systemd.setUnit("u.service"_s, unit);
            SystemdService service("u"_s);
            return service.start() ? "none"_s : service.errorText();
        };
        QCOMPARE(errorOf({}), "none"_s);
        SystemdPeer::Unit unit;
        QStringList errors;
        for (const char *result : {"failed", "timeout", "dependency", "canceled", "skipped", "odd"}) {
            unit.startResult = QString::fromLatin1(result);
            errors << errorOf(unit);
        }
        unit = {};
        unit.lifeTime = 0;
        errors << errorOf(unit);
        for (const char *refusal : {"org.freedesktop.DBus.Error.AccessDenied",
                                    "org.freedesktop.systemd1.UnitMasked",
                                    "org.freedesktop.systemd1.LoadFailed"}) {
            unit.refusal = QString::fromLatin1(refusal);
            errors << errorOf(unit);
        }
        QVERIFY(errors.removeDuplicates() == 0 && !errors.contains("none"_s) && !errors.contains(QString()));

        SystemdService missing("missing.service"_s);
        QVERIFY(!missing.start() && missing.errorText().contains("missing.service"_s));
        QCOMPARE(missing.activeState(), "inactive"_s);
        QVERIFY(missing.errorText().isEmpty() && !missing.isEnabled() && !missing.staysActive(10ms));
    }

    void watching()
    {
        System system;
        SystemdService service("u"_s);
        QElapsedTimer time;
        const auto stays = [&](const SystemdPeer::Unit &unit, std::chrono::milliseconds limit) {
            system.systemd.setUnit("u.service"_s, unit);
            const bool isStarted = service.start();
            time.start();
            return isStarted && service.staysActive(limit);
        };
        SystemdPeer::Unit slow;
        slow.jobTime = 300;
        time.start();
        QVERIFY(stays(slow, 50ms));
        QVERIFY(time.elapsed() >= 50);
        for (const bool comesBack : {false, true}) {
            QVERIFY(!stays(shortLived(comesBack), 20s));
            QVERIFY2(time.elapsed() < 10000, "was not told at once");
            QVERIFY(!service.errorText().isEmpty());
        }
        QVERIFY(service.enable() && service.isEnabled() && service.disable() && !service.isEnabled());
        QCOMPARE(system.systemd.takeCalls().mid(3),
                 (QStringList{
                     "EnableUnitFiles u.service"_s, "Reload"_s, "DisableUnitFiles u.service"_s, "Reload"_s}));
    }

    void withoutManager()
    {
        SystemdService service("u"_s);
        QStringList errors;
        {
            const PrivateBus empty;
            QVERIFY(!service.start());
            errors << service.errorText();
            QVERIFY(service.activeState().isEmpty() && !service.staysActive(1s) && !SystemdService::reload());
        }
        const ScopedVariable noBus("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent"_s);
        QVERIFY(!service.isActive() && !service.errorText().isEmpty() && !service.enable()
                && !service.stop());
        errors << service.errorText();
        QVERIFY(!errors.contains(QString()) && errors.removeDuplicates() == 0);
        HttpServer http;
        QVERIFY(http.log().isEmpty() && !http.isPublished(8080));
    }

    void http()
    {
        System system;
        HttpServer server(system.places);
        const QString first = system.repoDir("r o");
        const QString second = system.repoDir("второй");
        QVERIFY(server.publish(first, 8080) && server.isPublished(8080));
        QCOMPARE(system.systemd.takeCalls(),
                 (QStringList{
                     "Reload"_s, "StartUnit "_s + unitName, "EnableUnitFiles "_s + unitName, "Reload"_s}));
        QCOMPARE(system.systemd.unit(unitName).text, system.installed());
        QCOMPARE(readFile(system.folder.filePath("tmp/"_s + unitName)), system.installed());
        writeFile(system.folder.filePath("tmp/http8080.log"_s), "журнал");
        QCOMPARE(server.log(), "журнал"_s);

        // On a port that is served already the new directory waits for the next start.
        QVERIFY(server.publish(second, 8080));
        QCOMPARE(system.systemd.takeCalls(), (QStringList{"Reload"_s, "StartUnit "_s + unitName}));
        QCOMPARE(system.systemd.unit(unitName).startNumber, 1U);
        writeFile(system.folder.filePath("etc/public-repo-x.service"_s), "");
        const QList<PublishedRepo> repos = server.publishedRepos();
        QCOMPARE(repos.size(), 2);
        QCOMPARE(repos[0].path + repos[0].type + repos[1].type, second + "HTTPHTTP"_s);
        QCOMPARE(repos[0].port + repos[1].port, 8080);

        QVERIFY(server.unpublish(8080) && server.unpublish(8080));
        QVERIFY(!server.isPublished(8080) && system.installed() == "none");
        QCOMPARE(system.systemd.unit(unitName).fileState, SystemdPeer::Unit().fileState);
    }

    void httpFailures()
    {
        System system;
        const auto fails = [&](const QString &path, int port, const HttpServer::Places &places) {
            const bool isPublished = HttpServer(places).publish(path, port);
            return !isPublished && system.installed() == "none"
                   && system.systemd.unit(unitName).activeState == "inactive"_s;
        };
        const QString repo = system.repoDir("r o");
        for (const int port : {0, -1, 65536, 70000})
            QVERIFY(fails(repo, port, system.places));
        QVERIFY(fails(system.folder.path(), 8080, system.places));
        HttpServer::Places places = system.places;
        places.templateFile = system.folder.filePath("none"_s);
        QVERIFY(fails(repo, 8080, places));
        places = system.places;
        places.unitDir = repo + "/conf/distributions"_s; // a folder that nothing can be written into
        QVERIFY(fails(repo, 8080, places));
        for (const auto &unit : {failing(), shortLived(), shortLived(true)}) {
            system.systemd.setNewUnits(unit);
            QVERIFY(fails(repo, 8080, system.places));
        }
        // What was there before comes back: the unit of a port that another program has taken meanwhile.
        const QString file = system.folder.filePath("etc/"_s + unitName);
        writeFile(file, "[Service]\n");
        QVERIFY(!HttpServer(system.places).publish(repo, 8080));
        QCOMPARE(system.installed(), QByteArray("[Service]\n"));
        QCOMPARE(system.systemd.unit(unitName).text, QByteArray("[Service]\n"));
        // A unit that the administrator has masked stays so.
        QVERIFY(QFile::remove(file) && QFile::link("/dev/null"_s, file));
        system.systemd.setNewUnits({});
        QVERIFY(!HttpServer(system.places).publish(repo, 8080) && HttpServer(system.places).unpublish(8080));
        QCOMPARE(QFileInfo(file).symLinkTarget(), "/dev/null"_s);
    }

    void ftp()
    {
        System system;
        FtpServer server(system.vsftpd);
        const QString repo = system.repoDir("r o");
        // Not installed: there is no such service, and nothing stays behind.
        QVERIFY(!server.publish(repo, 2121) && system.config() == "none");
        QVERIFY(server.publishedRepos().isEmpty() && !server.isConfiguredByUs());

        SystemdPeer::Unit unit = failing();
        system.systemd.setUnit("vsftpd.service"_s, unit);
        writeFile(system.vsftpd, handWritten);
        QVERIFY(!server.publish(repo, 2121));
        QCOMPARE(system.config() + system.kept(), handWritten + "none");
        QCOMPARE(system.systemd.unit("vsftpd.service"_s).activeState, "inactive"_s);

        // One that runs and does not take the new configuration runs with its own again.
        unit = shortLived();
        unit.activeState = "active"_s;
        system.systemd.setUnit("vsftpd.service"_s, unit);
        QVERIFY(!server.publish(repo, 2121));
        QCOMPARE(system.config() + system.kept(), handWritten + "none");
        QCOMPARE(system.systemd.takeCalls().filter("RestartUnit"_s).size(), 2);

        system.systemd.setUnit("vsftpd.service"_s, {});
        QVERIFY(server.publish(repo, 2121) && server.isPublished(2121) && server.isConfiguredByUs());
        QCOMPARE(system.config(), VsftpdConfig::text(repo, 2121).toUtf8());
        QCOMPARE(system.systemd.unit("vsftpd.service"_s).fileState, "enabled"_s);
        const QString second = system.repoDir("второй");
        QVERIFY(server.publish(second, 2122) && !server.isPublished(2121));
        QCOMPARE(server.publishedRepos().size(), 1);
        QCOMPARE(server.publishedRepos().first().path, second);
        // The first that was not ours is the one that is kept.
        writeFile(system.vsftpd, "# another\n");
        QVERIFY(!server.isConfiguredByUs() && server.publish(second, 2122));
        QCOMPARE(system.kept(), handWritten);
        QVERIFY(server.unpublish(1) && !server.isPublished(2122) && server.publishedRepos().isEmpty());
        QCOMPARE(system.config(), VsftpdConfig::text(second, 2122).toUtf8());
    }
};

VELT_TEST_MAIN(ServersTest, QCoreApplication)
#include "tst_servers.moc"
