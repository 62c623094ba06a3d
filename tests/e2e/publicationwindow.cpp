// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "server/localsources.h"

/** The part of an ordinary user in the test of publication, who has the window open inside the throw-away system. */
class PublicationWindow : public WindowTest
{
    Q_OBJECT

    QTimer m_watch;

    bool says(const QString &message) const { return m_driver->message() == message; }
    static QStringList listedSources()
    {
        const QString text = QString::fromUtf8(readFile(LocalSources::Path));
        return text.split(u'\n', Qt::SkipEmptyParts);
    }

protected:
    /** Tells what a dialog says that nobody has answered, and dismisses it, so that the test fails and ends. */
    void prepare() override
    {
        m_watch.callOnTimeout([] {
            for (QMessageBox *box : openDialogs<QMessageBox>()) {
                qWarning("%s", qPrintable(wordsOf(*box)));
                box->reject();
            }
        });
        m_watch.start(5000);
    }

private Q_SLOTS:
    void publishes_data()
    {
        QTest::addColumn<QString>("repository");
        QTest::addColumn<int>("protocol");
        QTest::newRow("HTTP") << "/home/tester/Мой repo"_s << 0;
        QTest::newRow("FTP") << "/home/tester/open repo"_s << 1;
    }

    void publishes()
    {
        QFETCH(QString, repository);
        QFETCH(int, protocol);
        QVERIFY(restart({repository}));
        child<QComboBox>(*m_driver->tab(), "m_srvTypeComboBox")->setCurrentIndex(protocol);
        child<QSpinBox>(*m_driver->tab(), "m_httpPortSpinBox")->setValue(8090 + protocol);
        const Script consent{answer("Rewrite confirmation"_s, "Yes"_s)};
        WAIT_FOR(action("m_publishRepoAction")->isEnabled());
        action("m_publishRepoAction")->trigger();
        WAIT_FOR(has("Repository is published."_s));
        const QString url = "%1://127.0.0.1:%2/dists/birch/Release"_s.arg(protocol == 1 ? "ftp"_s : "http"_s)
                                .arg(8090 + protocol);
        QVERIFY(outputOf("curl"_s, {"-sf"_s, url}).contains("Codename: birch"));

        // The next start knows it, too.
        QVERIFY(restart({repository}));
        WAIT_FOR(action("m_unpublishRepoAction")->isEnabled());
        QVERIFY(!action("m_publishRepoAction")->isEnabled());
        action("m_unpublishRepoAction")->trigger();
        WAIT_FOR(has("Repository is unpublished."_s));
        WAIT_FOR(action("m_publishRepoAction")->isEnabled());
    }

    /** What apt makes of the lines is seen from outside. */
    void addsSources()
    {
        qputenv("GNUPGHOME", "/home/tester/.gnupg");
        const QStringList repositories{"/home/tester/Мой repo"_s, "/home/tester/signed"_s};
        QVERIFY(restart(repositories));
        for (const QString &repository : repositories) {
            m_driver->tabs()->setCurrentIndex(repositories.indexOf(repository));
            WAIT_FOR(action("m_addSrcListAction")->isEnabled());
            action("m_addSrcListAction")->trigger();
            WAIT_FOR(says("Repository is added to local sources list."_s));
            WAIT_FOR(action("m_removeSrcListAction")->isEnabled());
            QVERIFY(!action("m_addSrcListAction")->isEnabled());
        }
        const QString own = "deb [arch=amd64 trusted=yes] copy:///home/tester/Мой%20repo/ birch main"_s;
        QCOMPARE(listedSources().first(), own);
        static const QRegularExpression signedLine(
            "^deb \\[arch=amd64 signed-by=/etc/apt/keyrings/velt-admin-repo-[0-9A-F]{40}.asc\\] "
            "copy:///home/tester/signed/ birch main$"_s);
        QVERIFY2(signedLine.match(listedSources().last()).hasMatch(), qPrintable(listedSources().last()));
    }

    void removesSources()
    {
        QVERIFY(restart({"/home/tester/signed"_s, "/home/tester/Мой repo"_s}));
        m_driver->tabs()->setCurrentIndex(0);
        WAIT_FOR(action("m_removeSrcListAction")->isEnabled());
        action("m_removeSrcListAction")->trigger();
        WAIT_FOR(says("Repository is removed from local sources list."_s));
        WAIT_FOR(action("m_addSrcListAction")->isEnabled());

        // A line that leads to the publication goes with it when the user wants that, and is shown when not.
        m_driver->tabs()->setCurrentIndex(1);
        const QStringList before = listedSources();
        for (const QString &word : {"No"_s, "Yes"_s}) {
            child<QComboBox>(*m_driver->tab(1), "m_srvTypeComboBox")->setCurrentIndex(0);
            child<QSpinBox>(*m_driver->tab(1), "m_httpPortSpinBox")->setValue(8080);
            WAIT_FOR(action("m_publishRepoAction")->isEnabled());
            action("m_publishRepoAction")->trigger();
            WAIT_FOR(says("Repository is published."_s));
            const Script decision{answer("Local sources list"_s, word)};
            action("m_unpublishRepoAction")->trigger();
            WAIT_FOR(decision.isDone() && says("Repository is unpublished."_s));
            WAIT_FOR(action("m_publishRepoAction")->isEnabled());
            if (word == "No"_s) {
                QCOMPARE(listedSources(), before);
                QVERIFY(child<QLabel>(*m_driver->tab(1), "m_publicationStateLabel")
                            ->text()
                            .contains("nothing is published"_s));
                action("m_showPublishedReposAction")->trigger();
                WAIT_FOR(child<QListWidget>(m_driver->window(), "m_orphanedLinesList")->count() == 1);
            }
        }
        QCOMPARE(listedSources(), before.mid(0, 1));
        WAIT_FOR(child<QListWidget>(m_driver->window(), "m_orphanedLinesList")->count() == 0);
    }
};

VELT_TEST_MAIN(PublicationWindow, QApplication)
#include "publicationwindow.moc"
