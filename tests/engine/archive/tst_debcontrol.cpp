// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/dpkgoutput.h"
#include "apt/dpkgutils.h"
#include "core/countof.h"
#include "engine/archive/debcontents.h"
#include "engine/archive/debcontrol.h"
#include "engine/archive/packagefile.h"
#include "support/debbuilder.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace
{
/** Everything that is taken from the control data. */
QString fieldsOf(const std::optional<PackageInfo> &package)
{
    if (!package)
        return "refused"_s;
    return QStringList{
        package->name,
        package->version,
        package->architecture,
        package->component,
        package->section,
        QString::fromUtf8(package->control.text().data(), static_cast<int>(package->control.text().size()))}
        .join(QLatin1Char('|'));
}

/** Functions and files for the scripts below. */
const QString Tools = QStringLiteral(R"sh(
member() { # NAME FILE
    printf '%-16s%-12s%-6s%-6s%-8s%-10s`\n' "$1" 0 0 0 100644 "${size:-$(stat -c %s "$2")}"
    cat "$2"
    [ $(($(stat -c %s "$2") % 2)) -eq 0 ] || echo
}
deb() { # NAME FILE: of the member with the control files
    { printf '!<arch>\n'; size='' member debian-binary version; member "$@"; size='' member data.tar data; } >x.deb
}
tars() { python3 -c "
import tarfile, io
t = tarfile.open('c', 'w', format=tarfile.GNU_FORMAT)
def f(name, text, **more):
    i = tarfile.TarInfo(name); i.size = len(text); i.mode = 0o644
    for k in more: setattr(i, k, more[k])
    t.addfile(i, io.BytesIO(text))
c = open('control', 'rb').read()
$1
t.close()";
}
echo 2.0 >version
printf '%s\n' 'Package: foo' 'Version: 1:2.0-3' 'Architecture: all' 'Section: non-free/libs' >control
printf '%s\n' 'Description: short' ' long' ' .' ' end' >>control
tar cf data -T /dev/null
tar cf c ./control
)sh");
} // namespace

/** Control files read in this process, beside what dpkg says of the same packages. */
class TestDebControl : public QObject
{
    Q_OBJECT

    /** Whether both read the same, or dpkg tells why not. */
    static void agrees(const QString &path)
    {
        const auto control = debControl(path);
        DpkgUtils dpkg;
        const bool succeeded = dpkg.packageInformation(path);
        if (control) {
            QVERIFY2(succeeded, qPrintable(dpkg.errorText()));
            QCOMPARE(fieldsOf(DpkgOutput::packageInfo(DpkgOutput::printed(*control))),
                     fieldsOf(DpkgOutput::packageInfo(dpkg.output())));
        } else if (!succeeded) {
            const QRegularExpression scratch("'/[^']*'"_s); // another one each time
            QCOMPARE(PackageFile::read(path).reason.remove(scratch), dpkg.errorText().remove(scratch));
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("dpkg-deb");
        VELT_NEED_TOOL("python3");
        VELT_NEED_TOOL("zstd");
    }

    void agreesWithDpkg_data()
    {
        QTest::addColumn<QString>("script"); // makes x.deb in its folder
        QTest::addColumn<bool>(
            "isRead"); // in this process: what is plain must be, what is not is left to dpkg
        constexpr bool Read = true;
        constexpr bool Left = false;
        const auto row = [](const char *name, bool isRead, const char *script) {
            QTest::newRow(name) << QString::fromUtf8(script) << isRead;
        };
        for (const char *kind : {"gzip", "xz", "zstd", "none"})
            QTest::addRow("built, %s", kind)
                << "mkdir -p t/DEBIAN; mv control t/DEBIAN; printf '#!/bin/sh\\n' >t/DEBIAN/postinst; "
                   "echo 'Maintainer: B <b@example.org>' >>t/DEBIAN/control; chmod 755 t/DEBIAN/postinst; "
                   "dpkg-deb --uniform-compression -Z%1 --root-owner-group -b t x.deb"_s.arg(
                       QLatin1String(kind))
                << Read;
        row("without a folder", Read, "tar cf c control; deb control.tar c");
        row("name with a slash", Read, "deb control.tar/ c");
        row("Latin 1",
            Read,
            "printf 'Maintainer: J\\xf6rg\\n' >>control; tar cf c control; deb control.tar c");
        row("no last newline", Read, "printf 'Homepage: x' >>control; tar cf c control; deb control.tar c");
        row("carriage returns", Read, "sed -i 's/$/\\r/' control; tar cf c control; deb control.tar c");
        row("twice the name", Read, "echo 'Package: bar' >>control; tar cf c control; deb control.tar c");
        row("like a line of dpkg",
            Read,
            "{ printf ' 12 bytes,  3 lines  x\\n\\n new Debian package, version 2.0.\\n'; cat control; } >d\n"
            "mv d control; tar cf c control; deb control.tar c");
        row("empty", Read, ": >control; tar cf c control; deb control.tar c");
        row("one end block", Read, "head -c 1536 c >d; deb control.tar d");

        row("byte order mark",
            Read,
            "{ printf '\\xef\\xbb\\xbf'; cat control; } >d; mv d control; tar cf c control; deb control.tar "
            "c");

        row("NUL", Left, "printf 'Homepage: \\0x\\n' >>control; tar cf c control; deb control.tar c");
        row("large control",
            Left,
            "head -c 2M /dev/zero | tr '\\0' x >>control; tar cf c control; deb control.tar c");
        row("bomb in the control file",
            Left,
            "head -c 300M /dev/zero >>control; tar cf - control | xz -1 >d; deb control.tar.xz d");
        row("bomb beside it", Left, "truncate -s 300M a; tar cf - control a | gzip >d; deb control.tar.gz d");
        row("endless zstd", Left, "{ cat c; head -c 2G /dev/zero; } | zstd -q -1 >d; deb control.tar.zst d");
        row("window of 256 MB",
            Left,
            "head -c 20M /dev/zero | cat c - | zstd -q --long=28 >d; deb control.tar.zst d");
        row("many files",
            Left,
            "tars \"f('control', c)\nfor i in range(200): f(str(i), b'')\"; deb control.tar c");
        row("two control files",
            Left,
            "tars \"f('control', c); f('./control', b'Package: bar\\n')\"; deb control.tar c");
        row("link", Left, "tars \"f('control', b'', type=b'2', linkname='/etc/passwd')\"; deb control.tar c");
        row("hard link",
            Left,
            "tars \"f('a', c); f('control', b'', type=b'1', linkname='a')\"; deb control.tar c");
        row("folder", Left, "tars \"f('control', b'', type=b'5')\"; deb control.tar c");
        row("pipe", Left, "tars \"f('control', c); f('a', b'', type=b'6')\"; deb control.tar c");
        row("out of the folder", Left, "tars \"f('../control', c)\"; deb control.tar c");
        row("name of two lines",
            Left,
            "tars \"f('control', c); f('a\\nPackage: evil', b'')\"; deb control.tar c");
        row("long name", Left, "tars \"f('control', c); f('n' * 200, b'')\"; deb control.tar c");
        row("extended header", Left, "tar cf c --format=posix control; deb control.tar c");
        row("unreadable", Left, "tars \"f('control', c, mode=0)\"; deb control.tar c");
        row("no control file", Left, "tars \"f('a', c)\"; deb control.tar c");
        row("longer than the archive", Left, "tars \"f('control', c)\"; head -c 600 c >d; deb control.tar d");
        row("no end block", Left, "head -c 1024 c >d; deb control.tar d");
        row("more behind the end", Left, "{ cat c; echo more; } >d; deb control.tar d");
        row("wrong sum", Left, "sed -i '1s/control/contrOl/' c; deb control.tar c");
        row("packed in another way", Left, "xz c; deb control.tar.gz c.xz");
        row("not packed", Left, "deb control.tar.gz c");
        row("packed, and not said", Left, "gzip c; deb control.tar c.gz");
        row("truncated gzip", Left, "gzip c; truncate -s -9 c.gz; deb control.tar.gz c.gz");
        row("truncated xz", Left, "xz c; truncate -s -20 c.xz; deb control.tar.xz c.xz");
        row("truncated zstd", Left, "zstd -q c; truncate -s -5 c.zst; deb control.tar.zst c.zst");
        row("bits changed",
            Left,
            "gzip -n c; printf x | dd of=c.gz bs=1 seek=60 conv=notrunc status=none; deb control.tar.gz "
            "c.gz");
        row("unknown member", Left, "bzip2 c; deb control.tar.bz2 c.bz2");
        row("member of none", Left, ": >c; deb control.tar c");
        row("no number", Left, "size=1e3 deb control.tar c");
        row("negative", Left, "size=-1 deb control.tar c");
        row("longer than the file", Left, "size=999999 deb control.tar c");
        row("other version", Left, "echo 3.0 >version; deb control.tar c");
        row("data first",
            Left,
            "{ printf '!<arch>\\n'; member debian-binary version; member data.tar data; member control.tar "
            "c; } >x.deb");
        row("a member before it",
            Left,
            "{ printf '!<arch>\\n'; member debian-binary version; member _x version; member control.tar c;\n"
            "  member data.tar data; } >x.deb");
        row("no package", Left, "head -c 5000 /dev/urandom >x.deb");
    }
    void agreesWithDpkg()
    {
        QFETCH(QString, script);
        QFETCH(bool, isRead);
        const QTemporaryDir folder;
        runShell(Tools + script, folder.path());
        const QString path = folder.filePath("x.deb"_s);
        QCOMPARE(debControl(path).has_value(), isRead);
        agrees(path);
    }

    /** Libraries do not agree about several streams and about bytes after the last one. */
    void streamsInARow_data()
    {
        QTest::addColumn<QString>("script");
        for (const auto &[program, suffix] :
             {std::pair("gzip", "gz"), std::pair("xz", "xz"), std::pair("zstd -q", "zst")}) {
            const auto row = [program = program, suffix = suffix](const char *name, const QString &script) {
                QTest::addRow("%s, %s", program, name)
                    << script.arg(QLatin1String(program), QLatin1String(suffix));
            };
            row("two", "head -c 1000 c | %1 >d; tail -c +1001 c | %1 >>d; deb control.tar.%2 d"_s);
            row("whole and more", "%1 <c >d; echo more | %1 >>d; deb control.tar.%2 d"_s);
            row("bytes behind", "%1 <c >d; echo more >>d; deb control.tar.%2 d"_s);
            row("zeros behind", "%1 <c >d; head -c 8 /dev/zero >>d; deb control.tar.%2 d"_s);
        }
    }
    void streamsInARow()
    {
        QFETCH(QString, script);
        const QTemporaryDir folder;
        runShell(Tools + script, folder.path());
        agrees(folder.filePath("x.deb"_s));
    }

    /** A reader that stops early must not end a program that has started no other program yet. */
    void earlyEnd()
    {
        const QTemporaryDir folder;
        const QString file = DebBuilder("big"_s).contents(noise(4 << 20)).build(folder.path());
        DebMember data;
        QCOMPARE(debArchiveState(file, &data), DebArchiveState::Whole);
        // The first process that Qt starts has the signal ignored.
        const auto before = std::signal(SIGPIPE, SIG_DFL);
        const auto state = debContentsState(file, data, [] { return true; });
        std::signal(SIGPIPE, before);
        QCOMPARE(state, DebContentsState::Unknown);
    }

    /** Packages in the cache of apt, or in the folder VELT_TEST_PACKAGES. */
    void packagesOfThisMachine()
    {
        const QString named = qEnvironmentVariable("VELT_TEST_PACKAGES");
        const QDir folder(named.isEmpty() ? "/var/cache/apt/archives"_s : named);
        const QStringList files = folder.entryList({"*.deb"_s, "*.udeb"_s}, QDir::Files);
        const int step = named.isEmpty() ? files.size() / 20 + 1 : 1;
        int read = 0;
        for (int i = 0; i < files.size(); i += step) {
            agrees(folder.filePath(files.at(i)));
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(files.at(i)));
            read += debControl(folder.filePath(files.at(i))) ? 1 : 0;
        }
        qInfo("%d of %d read in this process", read, (countOf(files) + step - 1) / step);
    }

    /** The order of the files is kept, also when the reading ends early. */
    void manyAtOnce()
    {
        const QTemporaryDir folder;
        runShell(Tools + "deb control.tar c; for i in {10..99}; do cp x.deb $i.deb; done; echo >15.deb"_s,
                 folder.path());
        QStringList files;
        for (int i = 10; i < 100; ++i)
            files.append(folder.filePath("%1.deb"_s.arg(i)));
        PackageFileReader reader(files, 20, [] { return false; });
        const auto read = reader.next(80);
        QCOMPARE(read.size(), 20);
        for (int i = 0; i < read.size(); ++i) {
            QCOMPARE(read.at(i).path, files.at(i));
            QCOMPARE(read.at(i).package.isNull(), i == 5);
        }
    }
};

VELT_TEST_MAIN(TestDebControl, QCoreApplication)
#include "tst_debcontrol.moc"
