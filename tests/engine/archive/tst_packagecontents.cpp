// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/packagecontents.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QElapsedTimer>
#include <QtTest>

namespace
{
const auto never = [] { return false; };

/** Builds a package from what the script puts into the folder "p". */
QString build(const QTemporaryDir &folder, const QString &script)
{
    runShell(QStringLiteral(R"sh(rm -rf p; mkdir -p p/DEBIAN p/usr/share/doc/foo p/usr/bin
printf '%s\n' 'Package: foo' 'Version: 1.0' 'Architecture: all' 'Maintainer: M <m@example.org>' \
    'Description: x' >p/DEBIAN/control
)sh") + script + "\ndpkg-deb --root-owner-group -b p foo.deb"_s,
             folder.path());
    return folder.filePath("foo.deb"_s);
}
} // namespace

/** What a reader sees of a package file, beside what the packaging tools say of it. */
class TestPackageContents : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void agreesWithDpkg()
    {
        VELT_NEED_TOOL("dpkg-deb");
        const QTemporaryDir folder;
        const QString file = build(folder, QStringLiteral(R"sh(
echo '#!/bin/sh' >p/DEBIAN/postinst; chmod 755 p/DEBIAN/postinst
mkdir p/etc; echo a=1 >p/etc/foo.conf; echo /etc/foo.conf >p/DEBIAN/conffiles
printf 'foo (1.0) unstable; \303\251\n' | gzip -n9 >p/usr/share/doc/foo/changelog.Debian.gz
echo upstream | gzip -n9 >p/usr/share/doc/foo/changelog.gz
printf 'Copyright \351\n' >p/usr/share/doc/foo/copyright
mkdir -p p/usr/share/doc/a; echo other >p/usr/share/doc/a/copyright
ln -s foo.conf p/etc/link; echo x >"p/usr/bin/$(printf 'n%.0s' $(seq 150))")sh"));
        const PackageContents contents = PackageContents::of(file, "foo"_s, never);
        QVERIFY(contents.isRead && !contents.isCut);
        QStringList paths;
        for (const DebFile &found : contents.files)
            paths << "./"_s + QString::fromUtf8(found.path);
        const QString listed = runShell("dpkg-deb --fsys-tarfile foo.deb | tar -t"_s, folder.path());
        QCOMPARE(paths, listed.split(QLatin1Char('\n'), Qt::SkipEmptyParts));
        QCOMPARE(contents.changelog.text, QString::fromUtf8("foo (1.0) unstable; é\n"));
        QCOMPARE(contents.copyright.text, QString::fromUtf8("Copyright é\n"));
        QStringList control;
        for (const PackageContents::Text &text : contents.control) {
            control << text.path;
            QCOMPARE(text.text, runShell("dpkg-deb -I foo.deb "_s + text.path, folder.path()));
        }
        control.sort();
        QCOMPARE(control, (QStringList{"conffiles"_s, "control"_s, "postinst"_s}));
        QVERIFY(!PackageContents::of(file, "foo"_s, [] { return true; }).isRead);
        runShell("head -c 700 foo.deb >cut.deb"_s, folder.path());
        QVERIFY(!PackageContents::of(folder.filePath("cut.deb"_s), "foo"_s, never).isRead);
    }

    void documentationElsewhere()
    {
        VELT_NEED_TOOL("dpkg-deb");
        const QTemporaryDir folder;
        const QString file = build(folder, "rmdir p/usr/share/doc/foo; ln -s libfoo1 p/usr/share/doc/foo"_s);
        const PackageContents contents = PackageContents::of(file, "foo"_s, never);
        QCOMPARE(contents.otherPackage, "libfoo1"_s);
        QVERIFY(contents.changelog.path.isEmpty());
    }

    void hostileTexts()
    {
        VELT_NEED_TOOL("dpkg-deb");
        // Half a gigabyte that is packed into half a megabyte.
        const QTemporaryDir folder;
        const QString file = build(folder, QStringLiteral(R"sh(
head -c 512M /dev/zero | tr '\0' a | gzip -1 >p/usr/share/doc/foo/changelog.gz
printf '\177ELF\0\0' >p/DEBIAN/preinst; chmod 755 p/DEBIAN/preinst
printf '#!/bin/sh\n\033[2Jrm \342\200\256x\r\n' >p/DEBIAN/postrm; chmod 755 p/DEBIAN/postrm)sh"));
        const PackageContents contents = PackageContents::of(file, "foo"_s, never);
        QVERIFY(contents.isRead);
        QVERIFY(contents.changelog.isCut);
        QVERIFY(contents.changelog.text.size() < 2 << 20);
        for (const QString &line : contents.changelog.text.split(QLatin1Char('\n')))
            QVERIFY(line.size() <= 2000);
        for (const PackageContents::Text &text : contents.control) {
            QCOMPARE(text.isBinary, text.path == "preinst"_s);
            if (text.path == "postrm"_s)
                QCOMPARE(text.text, QString::fromUtf8("#!/bin/sh\n\uFFFD[2Jrm \uFFFDx\n"));
        }
    }

    void tooManyPaths()
    {
        // A tar archive can give each member a name of a megabyte.
        const QTemporaryDir folder;
        runShell(QStringLiteral(R"sh(python3 - <<'EOF'
import tarfile, io, gzip
def tar(name, count, length):
    with tarfile.open(name, 'w:gz', compresslevel=1, format=tarfile.GNU_FORMAT) as t:
        for i in range(count):
            n = '%06d' % i + 'n' * length if length else 'control'
            info = tarfile.TarInfo('./' + n)
            t.addfile(info, io.BytesIO(b''))
tar('control.tar.gz', 1, 0)
tar('data.tar.gz', 200, 900000)
EOF
echo 2.0 >debian-binary; ar rc big.deb debian-binary control.tar.gz data.tar.gz)sh"),
                 folder.path());
        const PackageContents contents = PackageContents::of(folder.filePath("big.deb"_s), "x"_s, never);
        QVERIFY(contents.isRead && contents.isCut);
        QVERIFY(contents.files.size() > 50 && contents.files.size() < 100);
    }
};

VELT_TEST_MAIN(TestPackageContents, QCoreApplication)
#include "tst_packagecontents.moc"
