// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowdriver.h"
#include "platform/desktopintegration.h"
#include "platform/ui/desktopsetup.h"
#include "publication/publicationmonitor.h"
#include "publication/publicationsettings.h"
#include "publication/veltadminrepointerface.h"
#include "server/httpserver.h"
#include "server/publicationpath.h"
#include "support/privatebus.h"
#include "support/testenvironment.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/publishedreposdialog.h"
#include "ui/tab/publicationpanel.h"

#include <QTextDocumentFragment>
#include <QtDBus>
#include <QtWidgets>

namespace
{
/** Plays the helper and the system that it changes. */
class HelperPeer : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.corvana.velt.repo.Manager")
public:
    explicit HelperPeer(const QString &bus)
        : m_bus(QDBusConnection::connectToBus(bus, "helper"_s))
    {
        m_bus.registerObject("/"_s, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(QString::fromLatin1(VeltAdminRepoInterface::Service));
    }

    QStringList calls;
    QString refusal; ///< the name of an error
    bool succeeds = true;
    bool goesOn = false; ///< what is to be unpublished
    bool holds = false; ///< the answer, until it is released
    QByteArray serverLog; ///< what the server that is started writes before it ends

    PublicationMonitor::Snapshot snapshot() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_snapshot;
    }
    void setSnapshot(const PublicationMonitor::Snapshot &snapshot)
    {
        const QMutexLocker lock(&m_mutex);
        m_snapshot = snapshot;
    }
    void release() { m_bus.send(m_held.createReply(succeeds)); }

public Q_SLOTS:
    bool PublishRepo(const QString &path, int port, int protocol)
    {
        auto now = snapshot();
        if (succeeds && refusal.isEmpty())
            now.publications
                += {{port, protocol == 0 ? "HTTP"_s : "FTP"_s, path}, protocol, "active"_s, true};
        setSnapshot(now);
        if (!serverLog.isEmpty())
            writeFile(HttpServer::logFile(port), serverLog);
        return answer("publish %1 %2 %3"_s.arg(path).arg(port).arg(protocol));
    }
    bool UnpublishRepo(int port, int protocol)
    {
        auto now = snapshot();
        const auto isIt = [=](const auto &one) { return one.repo.port == port && one.protocol == protocol; };
        auto &all = now.publications;
        if (!goesOn)
            all.erase(std::remove_if(all.begin(), all.end(), isIt), all.end());
        setSnapshot(now);
        return answer("unpublish %1 %2"_s.arg(port).arg(protocol));
    }
    bool AddLocalSource(const QString &entry) { return answer("add "_s + entry); }
    bool RemoveLocalSource(const QString &entry) { return answer("remove "_s + entry); }

private:
    bool answer(const QString &call)
    {
        // Nobody can agree to what may not ask.
        calls << (message().isInteractiveAuthorizationAllowed() ? call : "silent "_s + call);
        m_held = message();
        setDelayedReply(holds);
        if (!refusal.isEmpty())
            sendErrorReply(refusal, "x"_s);
        return succeeds;
    }

    mutable QMutex m_mutex;
    PublicationMonitor::Snapshot m_snapshot;
    QDBusConnection m_bus;
    QDBusMessage m_held;
};
} // namespace

/** What the window does with publications, against a helper that does what the test wants. */
class PublishingTest : public QObject
{
    Q_OBJECT

    // What lies in /tmp cannot be published.
    QTemporaryDir m_folder{QDir::currentPath() + "/vpXXXXXX"_s};
    QTemporaryDir m_temporary;
    std::optional<PrivateBus> m_bus{std::in_place};
    std::unique_ptr<HelperPeer> m_helper;
    std::unique_ptr<PublicationMonitor> m_monitor;
    std::unique_ptr<WindowDriver> m_driver;

    QAction *action(const char *name) const { return child<QAction>(m_driver->window(), name); }
    template <typename Widget>
    Widget *field(const char *name, int tab = 0) const
    {
        return child<Widget>(*m_driver->tab(tab), name);
    }
    QString state(int tab = 0) const { return field<QLabel>("m_publicationStateLabel", tab)->text(); }

    QString makeRepository(const QString &name, bool empty = false) const
    {
        return makeRepositoryAt(m_folder.filePath(name), empty);
    }
    static QString makeRepositoryAt(const QString &path, bool empty = false)
    {
        writeFile(path + "/conf/distributions"_s,
                  "Codename: birch\nSuite: stable\nVersion: 1\nArchitectures: source amd64 # "
                  "built\nComponents: main\n");
        writeFile(path + "/dists/birch/main/binary-amd64/Packages"_s,
                  empty ? QByteArray()
                        : "Package: a\nVersion: 1\nArchitecture: amd64\nFilename: pool/a.deb\n\n");
        return path;
    }

    void start(const QStringList &repositories)
    {
        m_driver.reset();
        QSettings().setValue("recentOpennedRepos"_s, repositories);
        HelperPeer *helper = m_helper.get();
        m_monitor = std::make_unique<PublicationMonitor>(
            [helper] { return helper->snapshot(); }, QStringList(), nullptr);
        m_driver = std::make_unique<WindowDriver>(m_monitor.get());
        QVERIFY(
            QTest::qWaitFor([&] { return m_driver->isIdle(repositories.size()) && m_monitor->isKnown(); }));
    }

    void choose(int tab, int protocol, int port) const
    {
        field<QComboBox>("m_srvTypeComboBox", tab)->setCurrentIndex(protocol);
        field<QSpinBox>("m_httpPortSpinBox", tab)->setValue(port);
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (PublicationPath::isTemporary(m_folder.path()))
            QSKIP("Run it elsewhere than below /tmp.");
        veltInit("0"_s, "Velt admin repo"_s);
        veltSetUpDesktop();
        QApplication::setQuitOnLastWindowClosed(false);
        writeScript(
            m_temporary.filePath("dpkg"_s),
            "#!/bin/sh\n[ \"$2\" = \"$(cat $0.missing 2>/dev/null)\" ] || echo \"ii  $2  1  all  x\"\n");
        qputenv("PATH", QByteArray(m_temporary.path().toLocal8Bit() + ":" + qgetenv("PATH")));
    }

    void init()
    {
        QSettings().clear();
        m_helper = std::make_unique<HelperPeer>(m_bus->address());
    }

    void cleanup()
    {
        m_driver.reset();
        m_monitor.reset();
        // A reading may still be under way.
        QThreadPool::globalInstance()->waitForDone();
        m_helper.reset();
        QDBusConnection::disconnectFromBus("helper"_s);
        QFile::remove(m_temporary.filePath("dpkg.missing"_s));
    }

    void publishesAndUnpublishes()
    {
        const QString one = makeRepository("one"_s);
        start({one, makeRepository("two"_s)});
        m_driver->tabs()->setCurrentIndex(0);
        QCOMPARE(state(), "Not published"_s);
        QVERIFY(!action("m_unpublishRepoAction")->isEnabled());
        action("m_publishRepoAction")->trigger();
        QVERIFY(m_driver->message().startsWith("Choose a server type"_s) && m_helper->calls.isEmpty());
        auto *type = field<QComboBox>("m_srvTypeComboBox");
        QVERIFY(type->view()->isVisible());
        type->hidePopup();
        const auto proposed = [&](Qt::Key key) {
            QTest::keyClick(type, key);
            return field<QSpinBox>("m_httpPortSpinBox")->value();
        };
        QCOMPARE(proposed(Qt::Key_Down), 8000);
        QCOMPARE(proposed(Qt::Key_Down), 21);
        // Chosen again, the type leaves the port that was chosen meanwhile.
        field<QSpinBox>("m_httpPortSpinBox")->setValue(8000);
        Q_EMIT type->activated(type->currentIndex());
        QCOMPARE(field<QSpinBox>("m_httpPortSpinBox")->value(), 8000);
        field<QSpinBox>("m_httpPortSpinBox")->setValue(21);
        QCOMPARE(proposed(Qt::Key_Up), 8000);

        choose(0, HttpProtocol, 8000);
        choose(1, HttpProtocol, 8000);
        m_helper->holds = true;
        field<QPushButton>("m_publishPushButton")->click();
        QTRY_COMPARE(m_helper->calls.join("|"_s), "publish %1 8000 0"_s.arg(one));
        // The system takes its time; meanwhile nothing else is done to this repository, and everything to others.
        auto *bar = child<QProgressBar>(m_driver->window(), "m_progressBar");
        QVERIFY(bar->isVisible() && bar->maximum() == 0);
        QVERIFY(m_driver->message().startsWith("Waiting for the system to publish"_s));
        for (const char *command : {"m_publishRepoAction", "m_changeRepoAction", "m_addSrcListAction"})
            QVERIFY(!action(command)->isEnabled());
        m_driver->tabs()->setCurrentIndex(1);
        QVERIFY(action("m_changeRepoAction")->isEnabled() && !bar->isVisible());
        m_driver->tabs()->setCurrentIndex(0);
        m_helper->release();
        QTRY_COMPARE(m_driver->message(), "Repository is published."_s);
        QVERIFY(state().startsWith("Published at http://"_s) && state().endsWith(":8000/"_s));
        QVERIFY(!action("m_publishRepoAction")->isEnabled() && action("m_unpublishRepoAction")->isEnabled());
        QCOMPARE(QSettings().value("busyHttpPorts"_s).toStringList(), "8000"_list);
        QCOMPARE(QSettings().value("Published8000/repoPath"_s).toString(), one);
        QVERIFY(!m_driver->tabs()->tabIcon(0).isNull() && m_driver->tabs()->tabIcon(1).isNull());
        m_driver->tabs()->setCurrentIndex(1);
        QCOMPARE(action("m_publishRepoAction")->toolTip(), "Another repo already published"_s);
        QCOMPARE(state(1), "Not published. Another repo already published"_s);
        QVERIFY(!action("m_publishRepoAction")->isEnabled());

        m_driver->tabs()->setCurrentIndex(0);
        m_helper->holds = false;
        m_helper->goesOn = true;
        const Script told{answer("Error"_s, "OK"_s)};
        action("m_unpublishRepoAction")->trigger();
        QTRY_VERIFY(told.isDone() && action("m_unpublishRepoAction")->isEnabled());
        QVERIFY(m_driver->log().contains("The repository is not unpublished!"_s)
                && m_driver->log().contains("The service public-repo-8000 could not be stopped."_s));
        m_helper->goesOn = false;
        action("m_unpublishRepoAction")->trigger();
        QTRY_COMPARE(m_driver->message(), "Repository is unpublished."_s);
        QCOMPARE(state(), "Not published"_s);
        QCOMPARE(action("m_publishRepoAction")->toolTip(), "Publish repository"_s);
        QVERIFY(action("m_publishRepoAction")->isEnabled());
    }

    void publishesOnceMore_data()
    {
        QTest::addColumn<int>("protocol");
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("afterwards");
        QTest::newRow("beside one that runs") << int(HttpProtocol) << "active"_s << 8000;
        QTest::newRow("over FTP too") << int(FtpProtocol) << "active"_s << 8000;
        QTest::newRow("instead of one that has failed") << int(HttpProtocol) << "failed"_s << 8001;
    }

    void publishesOnceMore()
    {
        QFETCH(int, protocol);
        QFETCH(QString, before);
        const QString repo = makeRepository("one"_s);
        QSettings store;
        PublicationSettings{8000, repo, false, "amd64"_s, HttpProtocol, "10.1.1.1"_s}.claim(store);
        m_helper->setSnapshot({{{{8000, "HTTP"_s, repo}, HttpProtocol, before, true}}, {}});
        start({repo});
        QTRY_COMPARE(field<QSpinBox>("m_httpPortSpinBox")->value(), 8000);
        choose(0, protocol, 8001);
        field<QCheckBox>("m_trustedCheckBox")->setChecked(true);
        const Script agreed{answer("Rewrite confirmation"_s, "Yes"_s)};
        action("m_publishRepoAction")->trigger();
        QTRY_COMPARE(m_driver->message(), "Repository is published."_s);
        QCOMPARE(agreed.isDone(), protocol == FtpProtocol);
        QCOMPARE(field<QSpinBox>("m_httpPortSpinBox")->value(), 8001);
        QCOMPARE(field<QComboBox>("m_srvTypeComboBox")->currentData().toInt(), protocol);
        m_driver.reset();
        QCOMPARE(PublicationSettings::busyPorts(store), (QList<int>{8000, 8001}));
        const auto first = PublicationSettings::load(store, 8000);
        const auto second = PublicationSettings::load(store, 8001);
        QVERIFY(!first.trusted && first.protocol == HttpProtocol && first.repoPath == repo);
        QVERIFY(second.trusted && second.protocol == protocol && second.repoPath == repo);

        start({repo});
        QTEST(field<QSpinBox>("m_httpPortSpinBox")->value(), "afterwards");
        QCOMPARE(field<QCheckBox>("m_trustedCheckBox")->isChecked(),
                 field<QSpinBox>("m_httpPortSpinBox")->value() == 8001);
    }

    void publishesAtAPortOfEarlier()
    {
        const QString repo = makeRepository("one"_s);
        QSettings store;
        for (const int port : {8000, 8001})
            PublicationSettings{port, repo, false, "amd64"_s, HttpProtocol, "10.1.1.1"_s}.claim(store);
        start({repo});
        const int other = field<QSpinBox>("m_httpPortSpinBox")->value() == 8000 ? 8001 : 8000;
        choose(0, HttpProtocol, other);
        field<QCheckBox>("m_trustedCheckBox")->setChecked(true);
        action("m_publishRepoAction")->trigger();
        QTRY_COMPARE(m_driver->message(), "Repository is published."_s);
        QVERIFY(field<QCheckBox>("m_trustedCheckBox")->isChecked());
        QVERIFY(PublicationSettings::load(store, other).trusted);
    }

    void leavesWhatOthersHaveSetUp()
    {
        const QString repo = makeRepository("one"_s);
        m_helper->setSnapshot({{{{21, "FTP"_s, repo}, FtpProtocol, "active"_s, true, true}}, {}});
        start({repo});
        QTRY_VERIFY(action("m_unpublishRepoAction")->isEnabled());
        const auto told = answer("Warning"_s, "OK"_s, "/etc/vsftpd.conf was written by somebody else"_s);
        const Script refused{told};
        action("m_unpublishRepoAction")->trigger();
        QTRY_VERIFY(refused.isDone());
        const Script kept{
            answer("Remove confirmation"_s, "Yes"_s), answer("Remove confirmation"_s, "Yes"_s), told};
        action("m_removeRepoAction")->trigger();
        QTRY_VERIFY(kept.isDone());
        QVERIFY(m_helper->calls.isEmpty() && QFileInfo::exists(repo + "/conf"_s));

        // What is ours and cannot be stopped has a reason, too.
        m_helper->setSnapshot({{{{21, "FTP"_s, repo}, FtpProtocol, "active"_s, true}}, {}});
        m_helper->goesOn = true;
        m_helper->succeeds = false;
        m_monitor->refresh();
        QTRY_VERIFY(!m_monitor->publications().constFirst().isForeign);
        const Script failed{answer("Error"_s, "OK"_s)};
        action("m_unpublishRepoAction")->trigger();
        QTRY_VERIFY(failed.isDone());
        QVERIFY(m_driver->log().contains("journalctl -u velt-admin-repo-helper"_s));
    }

    /** A tool tip takes what looks like markup for markup. */
    void namesAreNoMarkup()
    {
        const QString repo = makeRepository("<b>r<i>"_s);
        start({repo});
        choose(0, HttpProtocol, 8000);
        const QString shown
            = QTextDocumentFragment::fromHtml(action("m_publishRepoAction")->toolTip()).toPlainText();
        QVERIFY2(shown.contains(repo), qPrintable(shown));
    }

    void whatStandsInTheWay_data()
    {
        // Title of the box, its answer, a part of what it says; the calls that come all the same.
        QTest::addColumn<int>("protocol");
        QTest::addColumn<QStringList>("box");
        QTest::addColumn<QString>("calls");
        QTest::newRow("package") << 0 << "Error|No|lighttpd is not installed"_list << QString();
        QTest::newRow("port") << 0 << "Warning|OK|uses the port 8000"_list << QString();
        QTest::newRow("rights") << 1 << "Access rights|No|/r"_list << QString();
        QTest::newRow("empty") << 0 << "Publication confirmation|No|empty"_list << QString();
        QTest::newRow("rewrite") << 1 << "Rewrite confirmation|No|/old"_list << QString();
        QTest::newRow("refused")
            << 0 << "Error|OK|Authorization error.\n\nThis takes the rights of an administrator."_list
            << "publish"_s;
        QTest::newRow("dies") << 0 << "Error|OK|Timeout reply."_list
                              << "publish"_s;
        QTest::newRow("fails") << 0 << "Error|OK|did not start"_list
                               << "publish"_s;
        QTest::newRow("ends") << 0 << "Error|OK|the port is taken"_list
                              << "publish"_s;
    }

    void whatStandsInTheWay()
    {
        QFETCH(int, protocol);
        QFETCH(QStringList, box);
        QFETCH(QString, calls);
        const auto is = [](const char *row) { return qstrcmp(QTest::currentDataTag(), row) == 0; };
        const QString repo = makeRepository("r"_s, is("empty"));
        QFile::setPermissions(repo, QFile::Permissions(is("rights") ? 0x7700 : 0x7755));
        if (is("package"))
            writeFile(m_temporary.filePath("dpkg.missing"_s), "lighttpd");
        if (is("refused"))
            m_helper->refusal = "org.freedesktop.DBus.Error.AccessDenied"_s;
        if (is("dies"))
            m_helper->refusal = "org.freedesktop.DBus.Error.NoReply"_s;
        m_helper->succeeds = !is("fails") && !is("ends");
        const int port = m_helper->succeeds ? 8000 : 64999;
        const QString log = HttpServer::logFile(port);
        const auto tidied = qScopeGuard([&log] { QFile::remove(log); });
        if (!m_helper->succeeds) {
            writeFile(log, "an earlier reason\n");
            QFile file(log);
            QVERIFY(file.open(QIODevice::ReadWrite)
                    && file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-60),
                                        QFileDevice::FileModificationTime));
        }
        if (is("ends"))
            m_helper->serverLog = "the port is taken\n";
        if (is("rewrite"))
            m_helper->setSnapshot({{{{8021, "FTP"_s, "/old"_s}, 1, "active"_s, true}}, {}});
        start({repo});
        choose(0, protocol, port);
        if (is("port"))
            m_helper->setSnapshot({{}, {8000}});
        QString said;
        const Script script{inDialog<QMessageBox>(box.at(0), [&](QMessageBox &dialog) {
            said = wordsOf(dialog);
            return press(dialog, box.at(1));
        })};
        action("m_publishRepoAction")->trigger();
        QTRY_VERIFY(script.isDone());
        QVERIFY2(said.contains(box.at(2)) && !said.contains("an earlier reason"_s), qPrintable(said));
        QTRY_VERIFY(action("m_publishRepoAction")->isEnabled());
        QCOMPARE(m_helper->calls.join("|"_s).section(" "_s, 0, 0), calls);
        QVERIFY(QSettings().value("busyHttpPorts"_s).toStringList().isEmpty());
        QVERIFY(openDialogs<QMessageBox>().isEmpty());
        if (!calls.isEmpty())
            QVERIFY(m_driver->log().contains("Repository is unpublished."_s));
        QVERIFY((QFileInfo(repo).permissions() & QFile::ExeOther) || is("rights"));
    }

    void table()
    {
        const QString open = makeRepository("one"_s);
        const QString closed = makeRepository("two"_s);
        m_helper->setSnapshot(
            {{{{80, "HTTP"_s, open}, 0, "active"_s, true}, {{8080, "HTTP"_s, closed}, 0, "failed"_s, true}},
             {}});
        start({open});
        // What the system says goes before what the panel has.
        QCOMPARE(field<QSpinBox>("m_httpPortSpinBox")->value(), 80);
        action("m_showPublishedReposAction")->trigger();
        auto *dialog = m_driver->window().findChild<PublishedReposDialog *>();
        auto *view = child<QTreeView>(*dialog, "m_publishedReposView");
        const auto texts = [view](int column) {
            QStringList rows;
            for (int row = 0; row < view->model()->rowCount(); ++row)
                rows << view->model()->index(row, column).data().toString();
            return rows.join(" "_s);
        };
        QTRY_COMPARE(texts(4), "Published Failed"_s);
        view->sortByColumn(3, Qt::DescendingOrder);
        QCOMPARE(texts(3), "8080 80"_s);
        view->setCurrentIndex(view->model()->index(0, 0));
        const auto *prompts = m_driver->window().findChild<Prompts *>();
        const QSignalSpy help(prompts, &Prompts::helpRequested);
        // There are no pages to show.
        QVERIFY(disconnect(prompts, &Prompts::helpRequested, &m_driver->window(), nullptr));
        auto *key = dialog->findChild<QShortcut *>();
        QVERIFY(key != nullptr && key->key() == QKeySequence(QKeySequence::HelpContents));
        QVERIFY(QMetaObject::invokeMethod(key, "activated"));
        QCOMPARE(help.value(0).value(1).toString(), "publishing.html#list"_s);
        child<QAction>(*dialog, "m_copyAddressAction")->trigger();
        QVERIFY(QGuiApplication::clipboard()->text().endsWith(":8080/"_s));
        // Of a repository without a tab.
        m_helper->goesOn = true;
        const Script vain{answer("Unpublish confirmation"_s, "Yes"_s), answer("Error"_s, "OK"_s)};
        child<QAction>(*dialog, "m_unpublishThisAction")->trigger();
        QTRY_VERIFY(vain.isDone());
        QCOMPARE(texts(3), "8080 80"_s);
        m_helper->goesOn = false;
        const Script confirm{answer("Unpublish confirmation"_s, "Yes"_s)};
        child<QAction>(*dialog, "m_unpublishThisAction")->trigger();
        QTRY_COMPARE(texts(3), "80"_s);
        QCOMPARE(m_driver->message(), "Repository is unpublished."_s);
        const Script removal{answer("Remove confirmation"_s, "Yes"_s),
                             answer("Remove confirmation"_s, "Yes"_s)};
        action("m_removeRepoAction")->trigger();
        QTRY_COMPARE(m_driver->message(), "Repository is deleted."_s);
        QCOMPARE(m_helper->calls.join("|"_s), "unpublish 8080 0|unpublish 8080 0|unpublish 80 0"_s);
        QTRY_VERIFY(child<QLabel>(*dialog, "m_emptyLabel")->isVisible());
    }

    void localSources()
    {
        const QString repo = makeRepositoryAt(m_temporary.filePath("one"_s));
        start({repo});
        // No server is needed for what apt reads itself; and what could be another's in /tmp tomorrow takes a yes.
        const Script careful{answer("Local sources list"_s, "No"_s)};
        action("m_addSrcListAction")->trigger();
        QTRY_VERIFY(careful.isDone() && action("m_addSrcListAction")->isEnabled());
        QVERIFY(m_helper->calls.isEmpty() && openDialogs<QMessageBox>().isEmpty());
        const Script agreed{answer("Local sources list"_s, "Yes"_s)};
        action("m_addSrcListAction")->trigger();
        QTRY_COMPARE(m_driver->message(), "Repository is added to local sources list."_s);
        // What clients of the network get stays what it was.
        const QString line = "deb [arch=amd64 trusted=yes] copy://%1/ birch main"_s.arg(repo);
        choose(0, HttpProtocol, 8000);
        QVERIFY(field<QLineEdit>("m_srcLineEdit")->text().contains(" trusted=yes] http://"_s));

        m_helper->succeeds = false;
        bool isAnswered = false;
        const Script told{answer("Error"_s, "OK"_s)};
        m_driver->tab()->repoShell()->removeLocalSource(line, [&](bool done) { isAnswered = !done; });
        QTRY_VERIFY(told.isDone() && isAnswered);
        QCOMPARE(m_helper->calls.join("|"_s), "add %1|remove %1"_s.arg(line));
        QVERIFY(m_driver->log().contains("Failed to remove repository from local sources list!"_s));
    }

    void orphanedLines()
    {
        start({makeRepository("one"_s)});
        action("m_showPublishedReposAction")->trigger();
        auto *dialog = m_driver->window().findChild<PublishedReposDialog *>();
        auto *list = child<QListWidget>(*dialog, "m_orphanedLinesList");
        auto *button = child<QPushButton>(*dialog, "m_removeLineButton");
        QVERIFY(!list->isVisible());
        const QString ours = "deb [trusted=yes] http://127.0.0.1:9/ birch main"_s;
        dialog->showOrphanedLines({"deb http://localhost/ x main"_s, ours});
        QVERIFY(list->isVisible());
        // What somebody has written is theirs to remove.
        const Script told{answer("Warning"_s, "OK"_s)};
        button->click();
        QTRY_VERIFY(told.isDone());
        QVERIFY(m_helper->calls.isEmpty() && m_driver->log().contains("deb http://localhost/ x main"_s));
        list->setCurrentRow(1);
        m_helper->refusal = "org.freedesktop.DBus.Error.AccessDenied"_s;
        const Script failed{answer("Error"_s, "OK"_s)};
        button->click();
        QTRY_VERIFY(failed.isDone());
        m_helper->refusal.clear();
        button->click();
        QTRY_COMPARE(m_driver->message(), "Repository is removed from local sources list."_s);
        QCOMPARE(m_helper->calls.join("|"_s), "remove %1|remove %1"_s.arg(ours));
        dialog->showOrphanedLines({});
        QVERIFY(!list->isVisible());
    }

    void closingDoesNotWait()
    {
        const QString real = makeRepository("one"_s);
        QVERIFY(QFile::link(real, real + "-link"_s));
        m_helper->setSnapshot({{{{80, "HTTP"_s, real}, 0, "active"_s, true}}, {}});
        start({real + "-link"_s});
        QVERIFY(state().startsWith("Published at"_s));
        // What the link names was looked up once.
        QVERIFY(QFile::rename(real + "-link"_s, real + "-gone"_s));
        m_helper->setSnapshot({{{{80, "HTTP"_s, real}, 0, "failed"_s, true}}, {}});
        m_monitor->refresh();
        QTRY_VERIFY(state().startsWith("To be published at"_s));
        QVERIFY(QFile::rename(real + "-gone"_s, real + "-link"_s));
        m_helper->setSnapshot({});
        m_monitor->refresh();
        QTRY_COMPARE(state(), "Not published"_s);
        choose(0, HttpProtocol, 8000);
        m_helper->holds = true;
        action("m_publishRepoAction")->trigger();
        QTRY_COMPARE(m_helper->calls.join("|"_s), "publish %1 8000 0"_s.arg(real));
        QVERIFY(m_driver->window().close());
        m_driver.reset();
        m_helper->release();
        QTest::qWait(50);
    }

    /** The last one: this program gets no other bus. */
    void withoutABus()
    {
        start({makeRepository("one"_s)});
        choose(0, HttpProtocol, 8000);
        m_bus.reset();
        QTRY_VERIFY(!QDBusConnection::systemBus().isConnected());
        const Script told{answer("Error"_s, "OK"_s, "The system bus cannot be reached."_s)};
        action("m_publishRepoAction")->trigger();
        QTRY_VERIFY(told.isDone());
        QTRY_VERIFY(action("m_publishRepoAction")->isEnabled());
        QVERIFY(!m_driver->log().contains("Repository is unpublished."_s));
    }
};

VELT_TEST_MAIN(PublishingTest, QApplication)
#include "tst_publishing.moc"
