// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "support/testkeys.h"
#include "ui/dialogs/newrepodialog.h"
#include "ui/dialogs/parametersdialog.h"

/** Signing packages and a repository through the window, with real keys. */
class TestSigningJob : public WindowTest
{
    Q_OBJECT

    QString m_key;
    QString m_keyText;

    QLabel *label(const char *name) const { return child<QLabel>(*m_driver->tab(), name); }
    /** What the details of this package say of its signature, and how its icon looks. */
    QString signature(const char *package) const
    {
        m_driver->select(package);
        return label("m_packageSignLabel")->text();
    }
    QImage icon(const char *package) const
    {
        const QModelIndex item = find(*tree()->model(), package);
        return item.data(Qt::DecorationRole).value<QIcon>().pixmap(32).toImage();
    }
    QString poolFile(const QString &name) const
    {
        return path("r/pool/main/%1/%2/%2_1_amd64.deb"_s.arg(name.left(1), name));
    }

    void prepare() override
    {
        VELT_NEED_TOOL("debsig-verify");
        VELT_NEED_TOOL("gpgv");
        m_key = TestKeys::make("Ann <ann@example.org>"_s, "sign"_s, "10d"_s);
        m_keyText = TestKeys::text("Ann <ann@example.org>"_s, m_key);
        TestKeys::makeExpired("Old"_s);
        QVERIFY(restart({makeRepository("r"_s, {package("plain"_s)})}));
    }

private Q_SLOTS:
    void withoutAKeyNothingIsAddedUnsigned()
    {
        tree()->clearSelection();
        QVERIFY(!action("m_signPackagesAction")->isEnabled());
        m_driver->select("plain_1");
        QVERIFY(action("m_signPackagesAction")->isEnabled());
        QSettings().setValue(SettingsKey::SignPackage, true);
        m_driver->tabs()->currentChanged(0);
        const auto declines = [](const std::function<void()> &command) {
            const Script question{answer("Package signing"_s, "No"_s)};
            command();
            return QTest::qWaitFor([&] { return question.isDone(); });
        };
        QVERIFY(declines([this] { m_driver->drop({package("added"_s)}); }));
        QCOMPARE(m_driver->message(), "Not added: "_s + package("added"_s));
        // Neither a look for newer versions nor a repository for an import comes first.
        QVERIFY(declines([this] { action("m_upgradeRepoAction")->trigger(); }));
        QVERIFY(declines([this] { Q_EMIT m_driver->tab()->repoShell()->needImportRepo(); }));
        QCOMPARE(m_driver->message(), "Not imported: "_s + path("r"_s));
        QVERIFY(m_driver->isIdle() && openDialogs<QDialog>().isEmpty());
        QCOMPARE(m_driver->packageCount(), 1);
    }

    void packages()
    {
        const auto choose = [&](ParametersDialog &dialog) {
            auto *keys = child<QComboBox>(dialog, "m_keysComboBox");
            // The expired key comes second and cannot be reached.
            if (!keys->isEnabled() || keys->count() != 2)
                return false;
            QTest::keyClick(keys, Qt::Key_End);
            return keys->currentText() == m_keyText && child<QLabel>(dialog, "m_warningLabel")->isVisible()
                   && press(dialog, "OK"_s);
        };
        const Script choosing{answer("Package signing"_s, "Yes"_s),
                              inDialog<ParametersDialog>("Parametrs"_s, choose)};
        m_driver->drop({package("added"_s)});
        WAIT_FOR(choosing.isDone() && m_driver->packageCount() == 2 && m_driver->isIdle());
        QCOMPARE(QSettings().value(SettingsKey::SignKeyId).toString(), m_key.right(8));
        QCOMPARE(signature("added_1"), m_keyText);
        QVERIFY(TestKeys::verifies(poolFile("added"_s), m_key));

        QCOMPARE(signature("plain_1"), "Unsigned"_s);
        const QImage unsignedIcon = icon("plain_1");
        QString about;
        const Script confirming{inDialog<QMessageBox>("Sign confirmation"_s, [&](QMessageBox &box) {
            about = box.informativeText();
            return box.text() == "Do you want to sign selected packages?"_s && press(box, "Yes"_s);
        })};
        action("m_signPackagesAction")->trigger();
        WAIT_FOR(confirming.isDone() && signature("plain_1") == m_keyText && m_driver->isIdle());
        QVERIFY2(about.contains("plain"_s) && about.contains(m_keyText) && about.contains("expires"_s),
                 qPrintable(about));
        QVERIFY(icon("plain_1") != unsignedIcon);
        QVERIFY(TestKeys::verifies(poolFile("plain"_s), m_key));
    }

    void keyThatHasGone()
    {
        QSettings().setValue(SettingsKey::SignKeyId, "0BADC0DE"_s);
        m_driver->tabs()->currentChanged(0);
        m_driver->select("plain_1");
        const Script declines{answer("Sign confirmation"_s, "No"_s, "0BADC0DE (not in the key ring)"_s)};
        action("m_signPackagesAction")->trigger();
        WAIT_FOR(declines.isDone());
        QVERIFY(m_driver->isIdle());
    }

    void repository()
    {
        m_driver->select("r");
        QCOMPARE(label("m_repoSignLabel")->text(), "Unsigned"_s);
        QVERIFY(!label("m_repoKeyLabel")->isVisible());
        const auto sign = [](NewRepoDialog &dialog) {
            auto *box = child<QCheckBox>(dialog, "m_signWithCheckBox");
            if (!box->isChecked())
                box->click();
            return press(dialog, "OK"_s);
        };
        const Script changing{inDialog<NewRepoDialog>("Repository change"_s, sign)};
        action("m_changeRepoAction")->trigger();
        WAIT_FOR(changing.isDone() && has("Repository is changed."_s));
        m_driver->select("r");
        QCOMPARE(label("m_repoSignLabel")->text(), "Signed"_s);
        WAIT_FOR(label("m_repoKeyLabel")->isVisible());
        const QString key = label("m_repoKeyLabel")->text();
        QVERIFY2(key.startsWith(m_keyText) && key.contains("expires"_s), qPrintable(key));
        QVERIFY(label("m_publicKeyLabel")->text().contains("signed-by=/etc/apt/keyrings/r.asc"_s));

        child<QPushButton>(*m_driver->tab(), "m_copyKeyPushButton")->click();
        WAIT_FOR(m_driver->message() == "Public key is copied to clipboard"_s);
        const Script saving{inDialog<QFileDialog>("Save public key"_s, [&](QFileDialog &dialog) {
            return dialog.directory().path() == path("r"_s)
                   && child<QLineEdit>(dialog, "fileNameEdit")->text() == "repository-key.asc"_s
                   && QMetaObject::invokeMethod(&dialog, "accept");
        })};
        child<QPushButton>(*m_driver->tab(), "m_saveKeyPushButton")->click();
        WAIT_FOR(m_driver->message()
                 == "The public key is saved in %1."_s.arg(path("r/repository-key.asc"_s)));
        QCOMPARE(QGuiApplication::clipboard()->text().toUtf8(), readFile(path("r/repository-key.asc"_s)));
        // A client that has nothing but this file accepts the repository.
        TestKeys::gpg({"-o"_s, path("r.gpg"_s), "--dearmor"_s, path("r/repository-key.asc"_s)});
        QCOMPARE(QProcess::execute(
                     "gpgv"_s, {"-q"_s, "--keyring"_s, path("r.gpg"_s), path("r/dists/birch/InRelease"_s)}),
                 0);
    }
};

VELT_TEST_MAIN(TestSigningJob, QApplication)
#include "tst_signingjob.moc"
