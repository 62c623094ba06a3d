// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/trustedpath.h"
#include "support/testenvironment.h"

#include <atomic>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** Two paths change places again and again in a thread of their own, as somebody could who may write there. */
class Exchange
{
public:
    Exchange(const QString &a, const QString &b)
        : m_thread([this, a = QFile::encodeName(a), b = QFile::encodeName(b)] {
            while (!m_ended)
                if (::renameat2(AT_FDCWD, a.constData(), AT_FDCWD, b.constData(), RENAME_EXCHANGE) == 0)
                    ++m_count;
        })
    { }
    ~Exchange()
    {
        m_ended = true;
        m_thread.join();
    }
    Exchange(const Exchange &) = delete;
    Exchange &operator=(const Exchange &) = delete;

    int count() const { return m_count; }

private:
    std::atomic<bool> m_ended{false};
    std::atomic<int> m_count{0};
    std::thread m_thread;
};

constexpr int Files = 20;

void fill(const QString &folder, int files = Files)
{
    QVERIFY(QDir().mkpath(folder));
    for (int i = 0; i < files; ++i)
        writeFile(folder + "/%1"_s.arg(i), "x");
}
} // namespace

/** What is deleted and what stays, and which files are opened. */
class TestDeleting : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_folder;

    QString at(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    int filesIn(const char *name) const { return QDir(at(name)).entryList(QDir::Files).size(); }

private Q_SLOTS:
    /** Whatever takes the place of a folder while it is deleted, nothing behind a link goes. */
    void exchangedLinks()
    {
        fill(at("victim/sub"));
        fill(at("victim"));
        constexpr int Deletions = 1000;
        int exchanges = 0;
        for (int i = 0; i < Deletions; ++i) {
            fill(at("tree/sub/sub"), 2);
            QVERIFY(QFile::link(at("victim"), at("link")));
            {
                // Once a folder inside, once the one that is to be deleted.
                const Exchange exchange(at(i % 2 == 0 ? "tree/sub" : "tree"), at("link"));
                while (exchange.count() == 0)
                    std::this_thread::yield();
                removeTree(at("tree"));
                exchanges += exchange.count();
            }
            QCOMPARE(filesIn("victim"), Files);
            QCOMPARE(filesIn("victim/sub"), Files);
            QVERIFY(removeTree(at("tree")) && removeTree(at("link")));
        }
        qInfo("%d exchanges", exchanges);
        QVERIFY(!QFileInfo::exists(at("tree")));
    }

    void belowAFolder()
    {
        fill(at("victim/main"));
        fill(at("below/dists/real/main"));
        QVERIFY(QFile::link(at("victim"), at("below/dists/link")));
        QVERIFY(QFile::link("dists"_s, at("below/again")));
        QVERIFY(!removeBelow(at("below"), "dists/link/main"_s));
        QVERIFY(!removeBelow(at("below"), "again/real/main"_s));
        for (const char *name : {"", ".", "..", "dists/..", "../victim", "dists/../../victim", "/victim"})
            QVERIFY2(!removeBelow(at("below"), QLatin1String(name)), name);
        QCOMPARE(filesIn("victim/main") + filesIn("below/dists/real/main"), 2 * Files);
        // Of a link the link alone goes, and where nothing is, nothing is left.
        QVERIFY(removeBelow(at("below"), "dists/link"_s) && removeBelow(at("below"), "none/at/all"_s));
        QVERIFY(!QFileInfo(at("below/dists/link")).isSymLink());
        QCOMPARE(filesIn("victim/main"), Files);
        // The way to the folder may lead through links.
        QVERIFY(QFile::link(at("below"), at("way")));
        QVERIFY(removeBelow(at("way"), "dists/real"_s) && removeTree(at("way") + "/dists/"_s));
        QCOMPARE(QDir(at("below")).entryList(QDir::Files | QDir::Dirs | QDir::System | QDir::NoDotAndDotDot),
                 {"again"_s});
    }

    void whatIsMountedStays()
    {
        VELT_NEED_TOOL("archivemount");
        if (::access("/dev/fuse", R_OK | W_OK) != 0)
            QSKIP("this machine cannot mount archives");
        fill(at("victim/main"));
        fill(at("mounted/beside"));
        QDir().mkpath(at("mounted/inside"));
        runShell("tar czf x.tgz -C victim main; archivemount x.tgz mounted/inside"_s, m_folder.path());
        const auto unmount
            = qScopeGuard([this] { runShell("fusermount -u mounted/inside"_s, m_folder.path()); });
        QVERIFY(!removeTree(at("mounted")));
        QCOMPARE(filesIn("mounted/inside/main"), Files);
        QVERIFY(!QFileInfo::exists(at("mounted/beside")));
    }

    /** Neither memory of the stack nor descriptors run out. */
    void deepTrees()
    {
        constexpr int Levels = 4000;
        int folder = ::open(QFile::encodeName(m_folder.path()).constData(), O_RDONLY | O_DIRECTORY);
        for (int i = 0; i < Levels; ++i) {
            const char *name = i == 0 ? "deep" : "d";
            QVERIFY(::mkdirat(folder, name, 0700) == 0 && ::symlinkat("..", folder, "link") == 0);
            const int next = ::openat(folder, name, O_RDONLY | O_DIRECTORY);
            ::close(folder);
            folder = next;
        }
        ::close(folder);
        rlimit files = {};
        rlimit stack = {};
        ::getrlimit(RLIMIT_NOFILE, &files);
        ::getrlimit(RLIMIT_STACK, &stack);
        const rlimit few{64, files.rlim_max};
        const rlimit small{1 << 20, stack.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &few);
        ::setrlimit(RLIMIT_STACK, &small);
        const bool isDone = removeTree(at("deep"));
        ::setrlimit(RLIMIT_NOFILE, &files);
        ::setrlimit(RLIMIT_STACK, &stack);
        QVERIFY(isDone && !QFileInfo::exists(at("deep")));
    }

    /** Somebody else's links are no way, and neither are those that lead from one owner to another. */
    void trustedLinks()
    {
        if (::geteuid() != 0)
            QSKIP("only root can give files to somebody else");
        runShell(
            "mkdir -p trusted/mine trusted/theirs; cd trusted; ln -s mine own; ln -s \"$PWD/own\" twice; "
            "ln -s mine foreign; ln -s theirs across; ln -s foreign hidden; ln -s circle circle; "
            "chown 65534 theirs; chown -h 65534 foreign"_s,
            m_folder.path());
        const Descriptor folder(::open(QFile::encodeName(at("trusted")).constData(), O_PATH));
        for (const char *name : {"own", "own/../twice", "twice/.", "mine", "theirs", "../trusted/own"})
            QVERIFY2(TrustedPath::open(folder.number(), name).isOpen(), name);
        QCOMPARE(TrustedPath::pathOf(TrustedPath::open(folder.number(), "twice")),
                 QFile::encodeName(QFileInfo(at("trusted/mine")).canonicalFilePath()));
        for (const char *name : {"foreign", "across", "hidden", "circle", "none", "own/none"})
            QVERIFY2(!TrustedPath::open(folder.number(), name).isOpen(), name);
    }

    void regularFilesAlone()
    {
        runShell(
            "mkfifo pipe; mkdir -p folder; ln -s pipe pipelink; ln -s /dev/zero device; printf ab >plain; "
            "chmod 640 plain; python3 -c 'import socket; socket.socket(socket.AF_UNIX).bind(\"socket\")'"_s,
            m_folder.path());
        for (const char *name : {"pipe", "pipelink", "device", "socket", "folder"}) {
            for (const QIODevice::OpenMode mode : {QIODevice::ReadOnly, QIODevice::Append}) {
                RegularFile file(at(name));
                QVERIFY2(!file.open(mode), name);
                if (QLatin1String(name) != "folder"_s || mode == QIODevice::ReadOnly)
                    QCOMPARE(file.errorString(), "%1 is no regular file."_s.arg(at(name)));
            }
            QVERIFY(!RegularFile(at(name)).copy(at("copy")));
            QVERIFY(!RegularFile::refusal(at(name)).isEmpty());
        }
        RegularFile more(at("plain"));
        QVERIFY(more.open(QIODevice::Append) && more.write("c") == 1);
        more.close();
        RegularFile file(at("plain"));
        QVERIFY(file.open(QIODevice::ReadOnly) && file.size() == 3);
        QCOMPARE(file.readAll(), QByteArray("abc"));
        QVERIFY(RegularFile(at("plain")).copy(at("copy")));
        QCOMPARE(readFile(at("copy")), QByteArray("abc"));
        QCOMPARE(QFileInfo(at("copy")).permissions(), QFileInfo(at("plain")).permissions());
    }
};

VELT_TEST_MAIN(TestDeleting, QCoreApplication)
#include "tst_deleting.moc"
