// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/keylisting.h"
#include "signing/repositorykey.h"
#include "signing/signedpackages.h"
#include "signing/signingadvice.h"
#include "signing/signingcheck.h"
#include "signing/signprocess.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"
#include "support/testkeys.h"

namespace
{
const QString GoodName = "Good: \"key\" äß <good@example.org>"_s;

SigningCheck verified()
{
    QObject context;
    QEventLoop loop;
    SigningCheck check;
    SigningCheck::verifySigningKeys(&context, [&](const SigningCheck &answer) {
        check = answer;
        loop.quit();
    });
    loop.exec();
    return check;
}
} // namespace

/** Signing with the real gpg, in a key ring of the test's own. */
class TestSigning : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    QString m_good;
    QHash<QString, QString> m_keys; ///< fingerprints by what is the matter with the key

    QString file(const QString &name) const { return m_folder.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("gpg");
        VELT_NEED_TOOL("debsig-verify");
        QCOMPARE(SignProcess::keys(), QStringList());
        QVERIFY2(!verified().canSign, "an empty key ring");
        m_keys["certifies only"_s] = TestKeys::make("certifies only"_s, "cert"_s);
        const SigningCheck check = verified();
        QVERIFY(!check.canSign && check.errorText.isEmpty() && check.missingPackage.isEmpty());
        m_good = TestKeys::make(GoodName);
        QVERIFY(verified().canSign);
        m_keys["soon"_s] = TestKeys::make("soon"_s, "sign"_s, "10d"_s);
        m_keys["subkey"_s] = TestKeys::make("subkey"_s, "cert"_s);
        TestKeys::gpg(
            {"--passphrase"_s, QString(), "--quick-add-key"_s, m_keys["subkey"_s], "ed25519"_s, "sign"_s});
        m_keys["protected"_s] = TestKeys::make("protected"_s, "sign"_s, "never"_s, "secret"_s);
        m_keys["expired"_s] = TestKeys::makeExpired("expired"_s);
        m_keys["revoked"_s] = TestKeys::makeRevoked("revoked"_s);
        m_keys["disabled"_s] = TestKeys::make("disabled"_s);
        TestKeys::gpg({"--command-fd"_s, "0"_s, "--edit-key"_s, "disabled"_s}, "disable\n");
        m_keys["foreign"_s] = TestKeys::make("foreign"_s);
        TestKeys::gpg({"--yes"_s, "--delete-secret-keys"_s, m_keys["foreign"_s]});
        // Its agent has just asked for this one's passphrase, and would remember it.
        QProcess::execute("gpgconf"_s, {"--kill"_s, "gpg-agent"_s});
    }

    void cleanup() { QVERIFY(QDir(m_folder.path()).removeRecursively() && QDir().mkpath(m_folder.path())); }

    void listsKeysWithTheirObstacles()
    {
        QObject context;
        KeyListing listing;
        bool done = false;
        KeyListing::readInBackground(&context, [&](const KeyListing &read) {
            listing = read;
            done = true;
        });
        QTRY_VERIFY(done);
        const auto text = [this](const char *name) {
            return TestKeys::text(QLatin1String(name), m_keys[QLatin1String(name)]);
        };
        QCOMPARE(listing.keys.size(), 9);
        QVERIFY(listing.keys.contains(TestKeys::text(GoodName, m_good)));
        const QDate expiry(2020, 1, 2);
        const QHash<QString, QString> unusable{
            {text("certifies only"), "not meant for signing"_s},
            {text("expired"), "expired on %1"_s.arg(QLocale().toString(expiry, QLocale::ShortFormat))},
            {text("revoked"), "revoked"_s},
            {text("disabled"), "disabled"_s},
            {text("foreign"), "no secret key"_s}};
        QCOMPARE(listing.unusable, unusable);
        QCOMPARE(listing.warnings.keys(), QStringList{text("soon")});
        QCOMPARE(SignProcess::keyText(listing.keys, m_good.toLower()), TestKeys::text(GoodName, m_good));
        QCOMPARE(SignProcess::keyText(listing.keys, m_good.right(8)), TestKeys::text(GoodName, m_good));
        QCOMPARE(SignProcess::keyText(listing.keys, "12345678"_s) + SignProcess::keyText(listing.keys, {}),
                 QString());
    }

    void tellsWhoSignedARepository()
    {
        const QTemporaryDir folder;
        writeFile(folder.filePath("Release"_s), "Codename: birch\n");
        const auto signedBy = [&](const QString &key) {
            runShell(
                "mkdir -p dists/birch; gpg -q --batch --yes -u %1 -o dists/birch/InRelease --clearsign Release"_s
                    .arg(key),
                folder.path());
            return RepositoryKey::read(folder.path(), "birch"_s);
        };
        QVERIFY(RepositoryKey::read(folder.path(), "birch"_s).id.isEmpty());
        for (const QString &name : {"subkey"_s, "soon"_s}) {
            const RepositoryKey key = signedBy(m_keys[name]);
            QCOMPARE(key.id, m_keys[name]);
            QCOMPARE(key.text, TestKeys::text(name, m_keys[name]));
            QCOMPARE(key.remark.contains("expires on"_s), name == "soon"_s);
        }
        const QString gone = TestKeys::make("gone"_s);
        const QString file = folder.filePath("gone.asc"_s);
        signedBy(gone);
        QCOMPARE(RepositoryKey::savePublicKey(gone, file), QString());
        TestKeys::gpg({"--yes"_s, "--delete-secret-and-public-key"_s, gone});
        const RepositoryKey unknown = RepositoryKey::read(folder.path(), "birch"_s);
        QVERIFY(!unknown.id.isEmpty() && gone.endsWith(unknown.id) && unknown.text.isEmpty());
        // What cannot be exported leaves the file as it is.
        const QByteArray exported = readFile(file);
        QVERIFY(exported.startsWith("-----BEGIN PGP PUBLIC KEY BLOCK-----\n"));
        QVERIFY(!RepositoryKey::savePublicKey(gone, file).isEmpty());
        QCOMPARE(readFile(file), exported);
    }

    void judgesWhatNoKeyRingHereHas()
    {
        // Expiry, abilities and place of the secret key, then the fingerprint.
        const auto key = "sec:u:255:22:X:1:%1:::::%2:::%3::\nfpr:::::::::%4:\n"_s;
        const QString listing = key.arg(QString(), "scSC"_s, "#"_s, "AA11111111"_s)
                                + key.arg(QString(), "scSC"_s, "+"_s, "AA22222222"_s)
                                + key.arg(QString(), "scSC"_s, "+"_s, "BB22222222"_s)
                                + key.arg("2000000"_s, "cSC"_s, "#"_s, "CC33333333"_s)
                                + "ssb:e:255:22:Y:1:50:::::s:::+::\nssb:u:255:22:Z:1:1000000:::::s:::+::\n"_s
                                + "fpr:::::::::DD44444444:\n"_s;
        const auto keys = SigningKey::parse(listing);
        QCOMPARE(keys.size(), 4);
        QCOMPARE(SigningKey::find(keys, "11111111"_s).state, SigningKey::NoSecretKey);
        QCOMPARE(SigningKey::find(keys, "22222222"_s).state, SigningKey::Ambiguous);
        const SigningKey subkey = SigningKey::find(keys, "33333333"_s);
        QCOMPARE(subkey.state, SigningKey::Usable);
        // It ends with its subkey.
        const auto days = [&](int count) { return QDateTime::fromSecsSinceEpoch(1000000).addDays(-count); };
        QVERIFY(!subkey.warning(days(30)).isEmpty() && subkey.warning(days(31)).isEmpty());
    }

    void signs()
    {
        const QString plain = DebBuilder("foo"_s).fileName("plain.deb"_s).build(file("in"_s));
        runShell("dpkg-deb -R '%1' tree; mkdir out"_s.arg(plain), m_folder.path());
        const QStringList names{"foo.deb"_s, "foo.deb"_s, "-u foo.udeb"_s, "a\nb ü'\"$(id);*.deb"_s};
        const QStringList compressions{"xz"_s, "zstd"_s, "gzip"_s, "none"_s};
        for (int i = 0; i < names.size(); ++i) {
            const QString source = file("in/"_s + names.at(i));
            const QString target = file("out/"_s + names.at(i));
            runShell("dpkg-deb -Z%1 -b tree foo"_s.arg(compressions.at(i)), m_folder.path());
            QFile::remove(source);
            QVERIFY(QFile::rename(file("foo"_s), source));
            const QByteArray before = readFile(source);
            SignProcess process;
            QVERIFY2(process.sign(source, target, m_keys["soon"_s]), qPrintable(process.log()));
            QVERIFY(readFile(source) == before && readFile(target).startsWith(before));
            QCOMPARE(QProcess::execute("dpkg-deb"_s, {"-f"_s, target, "Package"_s}), 0);
            QVERIFY(TestKeys::verifies(target, m_keys["soon"_s]));
            // Signed again, with another key and by its short id: the older signature goes.
            const QString again = file("out/again"_s);
            QVERIFY2(process.sign(target, again, m_good.right(8)), qPrintable(process.log()));
            QVERIFY(TestKeys::verifies(again, m_good) && !TestKeys::verifies(again, m_keys["soon"_s]));
            QCOMPARE(readFile(again).count("_gpgorigin"), 1);
        }
    }

    void refuses()
    {
        const QVector<QPair<QString, QString>> refusals{
            {m_keys["expired"_s], "(expired): it expired on 2020-01-02"_s},
            {m_keys["revoked"_s].right(16), "(revoked): it has been revoked"_s},
            {m_keys["disabled"_s].right(8), "(disabled): it is disabled"_s},
            {m_keys["foreign"_s], "there is no secret key with this id"_s},
            {m_keys["certifies only"_s], "it cannot sign"_s},
            {m_keys["protected"_s], "passphrase was not given"_s},
            {"soon"_s, "'soon' is no key id"_s},
            {QString(), "'' is no key id"_s},
            {"--help"_s, "is no key id"_s}};
        const QString source = DebBuilder("foo"_s).build(file("in"_s));
        writeFile(file("out/target"_s), "old");
        for (const auto &[keyId, says] : refusals) {
            SignProcess process;
            QVERIFY(!process.sign(source, file("out/target"_s), keyId));
            QVERIFY2(process.log().contains(says) && process.log().count(u'\n') == 1,
                     qPrintable(process.log()));
            QCOMPARE(process.exitCode(), 2);
            QCOMPARE(readFile(file("out/target"_s)), QByteArray("old"));
            QCOMPARE(QDir(file("out"_s)).entryList(QDir::Files | QDir::Hidden), "target"_list);
        }
    }

    void wordsOfGpgAreExplained()
    {
        // As reprepro has printed them.
        const std::pair<const char *, const char *> cases[]{
            {"gpgme gave error Pinentry:32870:  Inappropriate ioctl for device", "Install a pinentry"},
            {"gpgme gave error Pinentry:67108963:  Operation cancelled", "was not given"},
            {"gpgme gave error GPG Agent:67108875:  Bad passphrase", "was wrong"},
            {"gpgme gave error GPGME:17:  No secret key", "no key of yours"},
            {"There have been errors!", ""}};
        for (const auto &[output, advice] : cases)
            QVERIFY2(*advice == '\0'
                         ? SigningAdvice::of(QLatin1String(output)).isEmpty()
                         : SigningAdvice::of(QLatin1String(output)).contains(QLatin1String(advice)),
                     output);
    }

    void refusesWhatIsNoPackage()
    {
        const QString whole = DebBuilder("foo"_s).build(file("in"_s));
        const QByteArray bytes = readFile(whole);
        SignProcess process;
        const QVector<QByteArray> broken{{},
                                         "text",
                                         "!<arch>\n",
                                         bytes.left(bytes.size() - 600),
                                         bytes.left(150),
                                         QByteArray(bytes).replace("data.tar", "date.tar")};
        for (const QByteArray &contents : broken) {
            writeFile(file("broken.deb"_s), contents);
            QVERIFY(!process.sign(file("broken.deb"_s), file("out.deb"_s), m_good));
            QCOMPARE(process.exitCode(), 1);
            QVERIFY(!QFile::exists(file("out.deb"_s)));
        }
        QVERIFY(!process.sign(whole, whole, m_good) && readFile(whole) == bytes);
        QVERIFY(!process.sign(file("absent.deb"_s), file("out.deb"_s), m_good));
    }

    /** No signature but the one asked for leaves the machine, whatever the user's configuration adds. */
    void noOtherKeySigns()
    {
        const QString source = DebBuilder("foo"_s).build(file("in"_s));
        const QString conf = qEnvironmentVariable("GNUPGHOME") + "/gpg.conf"_s;
        SignProcess process;
        writeFile(conf, "default-key " + m_good.toLatin1() + "\narmor\ntextmode\ndigest-algo SHA1\n");
        QVERIFY2(process.sign(source, file("out.deb"_s), m_keys["soon"_s]), qPrintable(process.log()));
        QFile::remove(conf);
        QVERIFY(TestKeys::verifies(file("out.deb"_s), m_keys["soon"_s]));
        writeFile(conf, "local-user " + m_good.toLatin1() + "\n");
        QVERIFY(!process.sign(source, file("other.deb"_s), m_keys["soon"_s]));
        QVERIFY(!QFile::exists(file("other.deb"_s)));
        QFile::remove(conf);
        QVERIFY2(process.sign(source, file("sub.deb"_s), m_keys["subkey"_s]), qPrintable(process.log()));
    }

    void survivesStrangeSurroundings()
    {
        {
            const ScopedVariable home("GNUPGHOME", "/nonexistent"_s);
            QVERIFY(SignProcess::keys().isEmpty() && KeyListing::read().keys.isEmpty());
            QVERIFY(!verified().errorText.isEmpty());
        }
        const ScopedVariable path("PATH", file("empty"_s));
        QVERIFY(SignProcess::keys().isEmpty());
    }
};

VELT_TEST_MAIN(TestSigning, QCoreApplication)
#include "tst_signing.moc"
