// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"

/** The part of an ordinary user in the test of publication, who has the window open inside the throw-away system. */
class PublicationWindow : public WindowTest
{
    Q_OBJECT

    QTimer m_watch;

protected:
    /** Tells what a dialog says that nobody has answered, and dismisses it, so that the test fails and ends. */
    void prepare() override
    {
        m_watch.callOnTimeout([] {
            for (QMessageBox *box : openDialogs<QMessageBox>()) {
                qWarning("%s %s",
                         qPrintable(box->text()),
                         qPrintable(box->informativeText() + box->detailedText()));
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
};

VELT_TEST_MAIN(PublicationWindow, QApplication)
#include "publicationwindow.moc"
