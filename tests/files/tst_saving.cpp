// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/filecopy.h"
#include "files/settingsformat.h"
#include "files/wholefile.h"
#include "support/fulldisk.h"
#include "support/testenvironment.h"

namespace
{
/** What is in the file; through a copy, because Qt keeps what it has read of a file once. */
QVariantMap contents(const QString &path, QSettings::Format format = QSettings::IniFormat)
{
    static int copies = 0;
    const QString copy = path + ".copy%1"_s.arg(++copies);
    QFile::copy(path, copy);
    QVariantMap map;
    const QSettings settings(copy, format);
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        map.insert(key, settings.value(key));
    QFile::remove(copy);
    return map;
}

QVariantMap sample()
{
    return {{"plain"_s, "text"_s},
            {"Group/plain"_s, false},
            {"Group/sub/number"_s, -7},
            {"Group/ключ %, = ;#[x]"_s, "Wert; mit \"Zeichen\", = \\ \n\t и текст"_s},
            {"General/in a group of this name"_s, "@x"_s},
            {"list"_s, QStringList{"a, b"_s, QString(), "c;d"_s}},
            {"empty list"_s, QStringList()},
            {"empty"_s, QString()},
            {"nothing"_s, QVariant()},
            {"bytes"_s, QByteArray("\0\1\xff@", 4)},
            {"size"_s, QSize(3, 4)},
            {"when"_s, QDateTime::fromSecsSinceEpoch(1'700'000'000)},
            {"EndOfSettings"_s, "a key of this name"_s}};
}
} // namespace

/** Files that are never found half written. */
class TestSaving : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString filePath(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

private Q_SLOTS:
    void fileIsReplacedOrLeft()
    {
        const QString path = filePath("file");
        QCOMPARE(WholeFile::replace(path, "old"), QString());
        // In one piece with the buffer, and larger than it.
        for (const int size : {3000, 30000}) {
            {
                const FullDisk full(1000);
                QVERIFY(!WholeFile::replace(path, QByteArray(size, 'x')).isEmpty());
            }
            QCOMPARE(readFile(path), QByteArray("old"));
        }
        QVERIFY(!WholeFile::replace(filePath("none/file"), "x").isEmpty());
        QCOMPARE(WholeFile::replace(path, ""), QString());
        QCOMPARE(readFile(path), QByteArray());
        QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), "file"_list);
    }

    /** Settings of either format are read as the other one's, whatever the values are. */
    void copiesAreWhole()
    {
        const QTemporaryDir folder;
        const QString from = folder.filePath("from"_s);
        const QString to = folder.filePath("to"_s);
        const auto never = [] { return false; };
        writeFile(from, noise(3 << 20));
        writeFile(to, "before");
        // What is stopped, or has no source, leaves what is there.
        QCOMPARE(copyFile(from, to, [reads = 0]() mutable { return ++reads > 2; }), QString());
        QVERIFY(!copyFile(folder.filePath("gone"_s), to, never).isEmpty());
        QVERIFY(!copyFile("/dev/zero"_s, to, never).isEmpty());
        QCOMPARE(readFile(to), QByteArray("before"));
        QCOMPARE(copyFile(from, to, never), QString());
        QCOMPARE(readFile(to), readFile(from));
        // A file is not replaced by itself: it would lose its other names.
        const QString link = folder.filePath("link"_s);
        QVERIFY(QFile::link(from, link));
        QVERIFY(!copyFile(from, link, never).isEmpty());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    }

    void settingsAreQtsOwn()
    {
        const QString ours = filePath("ours.conf");
        const QString qts = filePath("qts.conf");
        const QVariantMap wanted = sample();
        for (auto value = wanted.cbegin(); value != wanted.cend(); ++value) {
            QSettings(ours, SettingsFormat::ini()).setValue(value.key(), value.value());
            QSettings(qts, QSettings::IniFormat).setValue(value.key(), value.value());
        }
        const QVariantMap read = contents(qts);
        QCOMPARE(read.size(), wanted.size());
        QCOMPARE(contents(ours), read);
        QCOMPARE(contents(qts, SettingsFormat::ini()), read);

        QSettings(ours, SettingsFormat::ini()).clear();
        QCOMPARE(contents(ours), QVariantMap());
        // Of a damaged file what can be read is read, and a file that cannot be read says so.
        writeFile(filePath("damaged.conf"), "[broken\na=1\n[Good]\nb=2\n");
        const QSettings damaged(filePath("damaged.conf"), SettingsFormat::ini());
        QCOMPARE(damaged.value("Good/b"_s).toInt(), 2);
        QSettings nowhere(filePath("ours.conf/x"), SettingsFormat::ini());
        nowhere.setValue("a"_s, 1);
        nowhere.sync();
        QCOMPARE(nowhere.status(), QSettings::AccessError);
    }

    /** However little room is left, the settings are the old ones or the new ones, and the next save makes it good. */
    void settingsOnAFullDisk()
    {
        const QString path = filePath("full.conf");
        const auto save = [&path](const QString &text) {
            QSettings settings(path, SettingsFormat::ini());
            settings.setValue("first"_s, text);
            settings.setValue("Group/last"_s, text);
            settings.sync();
            return settings.status() == QSettings::NoError;
        };
        const QString old(400, u'o');
        QVERIFY(save(old));
        int failures = 0;
        for (rlim_t room = 0; room < 1000; room += 7) {
            QString text(int(room % 500), u'n');
            bool saved = false;
            {
                const FullDisk full(room);
                saved = save(text);
            }
            failures += saved ? 0 : 1;
            const QVariantMap found = contents(path);
            QCOMPARE(found["first"_s], found["Group/last"_s]);
            QCOMPARE(found["first"_s].toString(), saved ? text : old);
            QVERIFY(save(old));
        }
        QVERIFY2(failures > 10, "the disk was full");
    }
};

VELT_TEST_MAIN(TestSaving, QCoreApplication)
#include "tst_saving.moc"
