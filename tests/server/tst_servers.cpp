// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/httpserver.h"
#include "server/publicationpath.h"
#include "server/publicationunit.h"
#include "server/systemfile.h"
#include "service/systemdservice.h"
#include "support/fulldisk.h"
#include "support/privatebus.h"
#include "support/testenvironment.h"

#include <climits>

#include <sys/stat.h>

using VeltAdmin::SystemdService;

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

    /** That what is written is read back is a rule of the fuzzer's. */
    void unitsOfOthers()
    {
        const auto port
            = [](const char *unit) { return PublicationUnit::read(QString::fromUtf8(unit)).port; };
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
        {
            const FullDisk full(100);
            QVERIFY(!SystemFile::write(file, QByteArray(200, 'x')));
        }
        const auto state = SystemFile::read(file);
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
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), "link|pipe2"_list);
    }

    void withoutManager()
    {
        SystemdService service("u"_s);
        QStringList errors;
        {
            const PrivateBus empty;
            QVERIFY(!service.start());
            errors << service.errorText();
            QVERIFY(service.activeState().isEmpty() && !service.staysActive(std::chrono::seconds(1))
                    && !SystemdService::reload());
        }
        const ScopedVariable noBus("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent"_s);
        QVERIFY(!service.isActive() && !service.errorText().isEmpty() && !service.enable()
                && !service.stop());
        errors << service.errorText();
        QVERIFY(!errors.contains(QString()) && errors.removeDuplicates() == 0);
        QVERIFY(!HttpServer().isPublished(8080));
    }
};

VELT_TEST_MAIN(ServersTest, QCoreApplication)
#include "tst_servers.moc"
