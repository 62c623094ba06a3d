// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsdata.h"
#include "depends/localcandidates.h"
#include "support/fulldisk.h"
#include "support/testenvironment.h"

#include <memory>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace
{
/** A record with everything that the file can say: `mark` tells one from another. */
PackageInfoPtr package(const QString &name, const QString &mark, DependStatus status = DependSuccess)
{
    const auto provider = [&](const QString &provides) {
        return Dependency{
            provides, {}, ">="_s, "1.0"_s, {}, {}, DependSuccess, {{"Local"_s, {mark, DependSuccess}}}, {}};
    };
    const QMap<QString, FoundVersion> found{{"http://deb stable amd64"_s, {"0.9"_s, DependError}}};
    const QMap<QString, Dependency> providers{{"a"_s, provider("a"_s)}, {"b"_s, provider("b"_s)}};
    const QString virtualName = "mail \"agent\" é"_s;
    Dependency other;
    other.name = "other"_s;
    DependsInfo info;
    info.status = status;
    info.selection = 2;
    DependencyGroup group;
    group.key = virtualName;
    group.status = DependSuccess;
    group.alternatives
        << Dependency{virtualName, {}, ">="_s, "1.0"_s, "<<"_s, "2.0"_s, DependError, found, providers}
        << other;
    info.groups = {group, {DependUndefined, {}, true, "none"_s}};

    PackageInfo record;
    record.name = name;
    record.version = "1:2-3"_s;
    record.architecture = "amd64"_s;
    record.dependsInfo = QSharedPointer<DependsInfo>::create(info);
    return QSharedPointer<PackageInfo>::create(record);
}

PackageInfoPtr unchecked(const QString &name, const QString &version = "1"_s)
{
    PackageInfo record;
    record.name = name;
    record.version = version;
    return QSharedPointer<PackageInfo>::create(record);
}

/** The same package for another architecture, which its dependencies are looked up for, or in another index. */
PackageInfoPtr elsewhere(const PackageInfoPtr &package,
                         const QString &architecture,
                         const QString &component = {},
                         PackageType type = PackageType::Deb)
{
    PackageInfo record = *package;
    record.architecture = architecture;
    record.indexComponent = component;
    record.type = type;
    return QSharedPointer<PackageInfo>::create(record);
}

/** The names that the results are about with the architectures they are looked up for, the providers' in brackets. */
QString lookedUp(const PackageInfoPtr &package)
{
    const auto text = [](const Dependency &dependency) {
        return "%1:%2"_s.arg(dependency.name, dependency.architecture);
    };
    QStringList names;
    for (const DependencyGroup &group : package->dependsInfo->groups) {
        for (const Dependency &dependency : group.alternatives) {
            QStringList providers;
            for (const Dependency &provider : dependency.providers)
                providers << text(provider);
            names << text(dependency) + u'[' + providers.join(u' ') + u']';
        }
    }
    return names.join(u' ');
}

/** JSON with single quotes, which can be read here. */
QByteArray json(const char *text)
{
    return QByteArray(text).replace('\'', '"');
}

/** The member of a repository that holds package("foo", mark). */
QByteArray member(const char *mark)
{
    return readFile(QStringLiteral(VELT_TEST_DATA "/results/foo.json")).replace("MARK", mark);
}

/** What can be compared of a record: the text that would be stored of it. */
QByteArray text(const PackageInfoPtr &record)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    DependsJson::rewrite(nullptr, &buffer, {"/r"_s, QString(), {record}});
    return buffer.data();
}

/** One cache on one file, with what it says. */
struct Cache
{
    explicit Cache(const QString &file, const QString &repository = {})
        : data(file)
    {
        QObject::connect(&data, &DependsData::packagesMerged, [this](const auto &list) { merged = list; });
        QObject::connect(&data, &DependsData::fileBroken, [this](const QString &kept) { broken << kept; });
        data.loadData(repository);
    }
    QList<PackageInfoPtr> merge(const QList<PackageInfoPtr> &packages)
    {
        merged = packages;
        data.mergeStoredPackages(packages);
        return merged;
    }
    DependsData data;
    QList<PackageInfoPtr> merged;
    QStringList broken;
};

QList<PackageInfoPtr> many(const QString &mark, int count)
{
    QList<PackageInfoPtr> packages;
    for (int i = 0; i < count; ++i)
        packages << package("p%1"_s.arg(i), mark);
    return packages;
}
} // namespace

/** The file of stored results: its form, and what must never happen to what is in it. */
class TestDependsData : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;

    QJsonObject document() const
    {
        QJsonParseError error{};
        const QJsonDocument json = QJsonDocument::fromJson(readFile(m_file), &error);
        if (error.error != QJsonParseError::NoError)
            qWarning() << error.errorString() << error.offset;
        return json.object();
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath("new/results.json"_s);
    }

    void writesTheFormAndReadsItBack()
    {
        Cache cache(m_file, "/r/é \"x\""_s);
        const PackageInfoPtr again = elsewhere(unchecked("foo"_s), "amd64"_s);
        // Of several records of one name the last that was checked counts.
        cache.data.savePackages(
            {package("foo"_s, "old"_s), package("foo"_s, "1.5"_s), again, unchecked("bar"_s)});
        QCOMPARE(readFile(m_file).count("\"foo\""), 1);
        QJsonObject wanted = QJsonDocument::fromJson(member("1.5")).object();
        wanted["bar"_s] = QJsonObject{{"version"_s, "1"_s},
                                      {"architecture"_s, QString()},
                                      {"dependMap"_s, QJsonObject()},
                                      {"dependsStatus"_s, -1}};
        QCOMPARE(document(), (QJsonObject{{"/r/é \"x\""_s, wanted}}));
        QVERIFY2(readFile(m_file).startsWith("{\n    \"/r/"), "indented");

        PackageInfo plain = *package("foo"_s, "1.5"_s);
        plain.dependsInfo.reset();
        const PackageInfoPtr old = QSharedPointer<PackageInfo>::create(plain);
        const QList<PackageInfoPtr> list{
            old, unchecked("foo"_s, "2"_s), unchecked("bar"_s), unchecked("x"_s)};
        Cache reader(m_file, "/r/é \"x\""_s);
        const QList<PackageInfoPtr> merged = reader.merge(list);
        QVERIFY2(!old->hasDependsInfo(), "a record that was handed out stays as it was");
        QCOMPARE(text(merged.at(0)), text(package("foo"_s, "1.5"_s)));
        QVERIFY(!merged.at(0)->architecture.isEmpty());
        QCOMPARE(merged.at(0)->dependsInfo->groups.first().alternatives.first().architecture,
                 merged.at(0)->architecture);
        QVERIFY2(merged.at(1)->dependsInfo == merged.at(0)->dependsInfo, "the name alone decides");
        QCOMPARE(merged.at(1)->version, "2"_s);
        QCOMPARE(merged.at(2)->dependStatus(), DependUndefined);
        QVERIFY(merged.at(3) == list.at(3));
        Cache other(m_file, "/r"_s);
        QVERIFY2(other.merge(list) == list, "a repository that is not in the file");
    }

    void eachArchitectureKeepsItsOwn()
    {
        const auto found = [](const PackageInfoPtr &package) {
            return package->dependsInfo->groups.last().alternatives.first().foundVersions.first().version;
        };
        const auto checked = [](const QString &architecture, const QString &mark) {
            const QMap<QString, FoundVersion> offers{{"Local"_s, {mark, DependSuccess}}};
            const Dependency provider{"exim"_s, architecture, {}, {}, {}, {}, DependSuccess, offers, {}};
            const Dependency mail{
                "mail"_s, architecture, {}, {}, {}, {}, DependSuccess, offers, {{"exim"_s, provider}}};
            const Dependency wine{"wine"_s, "armhf"_s, {}, {}, {}, {}, DependError, offers, {}};
            DependsInfo info{DependError, {}};
            info.groups = {{DependSuccess, {mail}, false, "mail"_s}, {DependError, {wine}, false, "wine"_s}};
            PackageInfo record = *unchecked("foo"_s);
            record.architecture = architecture;
            record.indexComponent = "main"_s;
            record.dependsInfo = QSharedPointer<DependsInfo>::create(info);
            return PackageInfoPtr(QSharedPointer<PackageInfo>::create(record));
        };
        const PackageInfoPtr bare = unchecked("foo"_s);
        const auto amd64 = checked("amd64"_s, "a"_s);
        const auto i386 = checked("i386"_s, "b"_s);
        // One of the architectures alone is all that earlier files hold.
        Cache cache(m_file, "/r"_s);
        cache.data.savePackages({i386});
        cache.data.loadData("/r"_s);
        auto merged = cache.merge({elsewhere(bare, "amd64"_s), elsewhere(bare, "i386"_s)});
        QCOMPARE(lookedUp(merged.at(0)), "mail:amd64[exim:amd64] wine:armhf[]"_s);
        QCOMPARE(lookedUp(merged.at(1)), "mail:i386[exim:i386] wine:armhf[]"_s);

        const auto contrib = elsewhere(checked("amd64"_s, "c"_s), "amd64"_s, "contrib"_s);
        const auto udeb = elsewhere(checked("amd64"_s, "d"_s), "amd64"_s, "main"_s, PackageType::Udeb);
        cache.data.savePackages({amd64,
                                 udeb,
                                 contrib,
                                 elsewhere(bare, "armel"_s, "main"_s),
                                 elsewhere(checked("i386"_s, "old"_s), "i386"_s, "main"_s),
                                 i386,
                                 unchecked("bar"_s)});
        cache.data.loadData("/r"_s);
        merged = cache.merge({elsewhere(bare, "i386"_s, "main"_s),
                              elsewhere(bare, "amd64"_s, "main"_s),
                              elsewhere(bare, "amd64"_s, "contrib"_s),
                              elsewhere(bare, "amd64"_s, "main"_s, PackageType::Udeb),
                              elsewhere(bare, "armel"_s, "main"_s)});
        QString marks;
        for (int i = 0; i < 4; ++i)
            marks += found(merged.at(i));
        QCOMPARE(marks, "bacd"_s);
        QCOMPARE(lookedUp(merged.at(1)), "mail:amd64[exim:amd64] wine:armhf[]"_s);
        QVERIFY2(merged.at(4)->dependStatus() == DependUndefined, "it has been checked nowhere");
        QCOMPARE(readFile(m_file).count("\"foo\""), 1);
        const QByteArray written = readFile(m_file);
        cache.data.savePackages(
            cache.merge({merged.at(4), merged.at(3), merged.at(2), merged.at(1), merged.at(0)})
            + QList<PackageInfoPtr>{unchecked("bar"_s)});
        QCOMPARE(readFile(m_file).size(), written.size());
    }

    void theLanguageMayChange()
    {
        struct : QTranslator
        {
            QString translate(const char * /*context*/,
                              const char *text,
                              const char * /*remark*/,
                              int /*n*/) const override
            {
                return qstrcmp(text, "Local") == 0 ? "Lokal"_s : QString();
            }
            bool isEmpty() const override { return false; }
        } german;
        Cache(m_file, "/r"_s).data.savePackages({package("foo"_s, "1.5"_s)});
        const QByteArray stored = readFile(m_file);
        QCoreApplication::installTranslator(&german);
        Cache cache(m_file, "/r"_s);
        const PackageInfoPtr merged = cache.merge({unchecked("foo"_s)}).first();
        const DependencyGroup entry = merged->dependsInfo->groups.first();
        QVERIFY(LocalCandidates::meets(entry.alternatives.first()));
        QCOMPARE(LocalCandidates::label(), "Lokal"_s);
        PackageInfo same = *merged;
        same.version = "1:2-3"_s;
        same.architecture = "amd64"_s;
        cache.data.savePackages({QSharedPointer<PackageInfo>::create(same)});
        QCOMPARE(readFile(m_file), stored);
    }

    void othersStayAsTheyAre()
    {
        const QByteArray strange = "\"/odd\": [ -0, 1.50, 1E5, 123456789012345678901234567890, null, true, "
                                   "{\"é\\u0000\\ud83d\\ude00\": {}},"
                                   " [], \"\\/\\\"\\t\" ], \"/odd\": 7, \"\": \"x\"";
        const QByteArray kept = json("{'/r2': {'foo': {'version': '9'}},") + strange + '}';
        QByteArray before = kept;
        before.insert(1, json("'/r': {'gone': {}}, '/r': 5,"));
        writeFile(m_file, before);
        const auto compact = [](QByteArray json) { return json.replace(' ', "").replace('\n', ""); };
        const QByteArray form = QByteArray(compact(kept)).replace("\\/", "/").replace("\\ud83d\\ude00", "😀");
        Cache cache(m_file, "/r"_s);
        cache.data.removeRepoData();
        QCOMPARE(compact(readFile(m_file)), form);
        const QByteArray removed = readFile(m_file);
        cache.data.savePackages({package("foo"_s, "1.5"_s)});
        QCOMPARE(document()["/r"_s].toObject(), QJsonDocument::fromJson(member("1.5")).object());
        cache.data.removeRepoData();
        QCOMPARE(readFile(m_file), removed);
        QVERIFY(cache.merge({unchecked("foo"_s)}).first()->dependsInfo.isNull());
    }

    void ignoresWhatSaysNothing()
    {
        Cache cache(m_file);
        cache.data.savePackages({unchecked("x"_s)});
        cache.data.changePath("/b"_s);
        cache.data.removeRepoData();
        QVERIFY2(!QFileInfo::exists(m_file), "there is no current repository");
        cache.data.loadData("/a"_s);
        cache.data.savePackages({});
        cache.data.changePath(QString());
        cache.data.removeRepoData();
        QVERIFY(!QFileInfo::exists(m_file));
        const QList<PackageInfoPtr> packages{package("foo"_s, "1"_s)};
        cache.data.savePackages(packages);
        const auto written = [this] { return QFileInfo(m_file).fileTime(QFile::FileMetadataChangeTime); };
        const QDateTime first = written();
        cache.data.savePackages(packages);
        Cache(m_file, "/other"_s).data.removeRepoData();
        QCOMPARE(written(), first); // nothing had changed
        QFile::remove(m_file);
        cache.data.savePackages(packages);
        QVERIFY(QFileInfo::exists(m_file));
    }

    void resultsTakeNoMoreMemoryThanNeeded()
    {
        Cache cache(m_file, "/r"_s);
        PackageInfoPtr record = package("foo"_s, "1.5"_s);
        cache.data.savePackages({record, package("bar"_s, "1.5"_s), package("baz"_s, "2.5"_s)});
        const QWeakPointer<const DependsInfo> saved(record->dependsInfo);
        record.reset();
        QVERIFY2(saved.isNull(), "a saved result that has changed must be freed");

        cache.data.loadData("/r"_s);
        QList<PackageInfoPtr> merged
            = cache.merge({unchecked("foo"_s), unchecked("bar"_s), unchecked("baz"_s)});
        const auto alternatives
            = [&merged](int i) { return merged.at(i)->dependsInfo->groups.first().alternatives; };
        QCOMPARE(text(merged.at(2)).count("2.5"), 2);
        QVERIFY2(alternatives(0).constData() == alternatives(1).constData(), "equal lists are one");
        QVERIFY(alternatives(0).constData() != alternatives(2).constData());
        const QWeakPointer<const DependsInfo> read(merged.first()->dependsInfo);
        merged = {};
        cache.merged = {};
        QVERIFY2(read.isNull(), "only the packages hold what was read");
    }

    void readsWhatItCan()
    {
        struct Row
        {
            const char *entry;
            int status;
            QString dependency; ///< name, status and first source of the first alternative
        };
        const QVector<Row> rows{
            {"{}", 0, {}},
            {"{'dependsStatus': '1', 'dependMap': [1]}", 0, {}},
            {"[{}]", -1, {}},
            {"{'dependsStatus': 1.0}", 1, {}},
            {"{'dependsStatus': 2}", -1, {}},
            {"{'dependsStatus': 99999999999999999999999}", -1, {}},
            {"{'dependsStatus': -1, 'dependsStatus': 1}", 1, {}},
            {"{'dependMap': {'g': {'packages': [{'x': {'name': 'y', 'a': [{'status': 5}]}, 'name': 'n', "
             "'status': 1}]}}}",
             0,
             "n 1 "_s},
            {"{'dependMap': {'g': {'packages': [{'foundedVersions': {'a': 1, 'b': {'status': [1], "
             "'version': 3}}, 'providers': {}}]}}}",
             0,
             " 0 b=0"_s},
            {"{'dependMap': {'z': {}, 'g': {'packages': [{'name': 'old'}]}, 'g': {'packages': [{'name': 'n', "
             "'status': 1}]}}}",
             0,
             "n 1 "_s}};
        for (const Row &row : rows) {
            writeFile(m_file, json("{'/r': {'foo':") + json(row.entry) + "}}");
            Cache cache(m_file, "/r"_s);
            const PackageInfoPtr read = cache.merge({unchecked("foo"_s)}).first();
            QVERIFY2(int(read->dependStatus()) == row.status, row.entry);
            QString found;
            if (read->hasDependsInfo() && !read->dependsInfo->groups.isEmpty()) {
                const Dependency first = read->dependsInfo->groups.first().alternatives.first();
                const auto &sources = first.foundVersions;
                found = "%1 %2 "_s.arg(first.name, QString::number(first.status));
                if (!sources.isEmpty())
                    found += "%1=%2"_s.arg(sources.firstKey(), QString::number(sources.first().status));
            }
            QCOMPARE(found, row.dependency);
            QVERIFY(cache.broken.isEmpty());
        }
    }

    void keepsWhatItCannotRead()
    {
        const QByteArray good = json("{'/other': {'x': {}}, '/r':") + member("1") + '}';
        const QList<QByteArray> documents{good.left(good.size() - 1),
                                          good + '1',
                                          "[]",
                                          "null",
                                          "<html>",
                                          json("{'/other': 1e999, '/r': {}}"),
                                          "{\"/other\": \"\xff\xfe\"}",
                                          json("{'/other': '\\ud800'}"),
                                          "{\"/other\": " + QByteArray(5000000, '['),
                                          QByteArray("{\"/r\":").repeated(1000000),
                                          "{\"/other\": " + QByteArray(3000, '[') + QByteArray(3000, ']')
                                              + '}'};
        const QString kept = m_file + ".broken"_s;
        writeFile(kept, "older");
        for (int i = 0; i < 2 * documents.size(); ++i) {
            const QByteArray &contents = documents.at(i / 2);
            writeFile(m_file, contents);
            Cache cache(m_file, i % 2 == 0 ? "/r"_s : QString());
            // Found broken by loading, and by saving.
            if (i % 2 != 0) {
                QFile::remove(m_file);
                cache.data.loadData("/r"_s);
                writeFile(m_file, contents);
            }
            QVERIFY(cache.merge({unchecked("foo"_s)}).first()->dependsInfo.isNull());
            cache.data.savePackages({package("foo"_s, "1.5"_s)});
            QVERIFY2(cache.broken == QStringList{kept}, contents.left(60).constData());
            QVERIFY(readFile(kept) == contents);
            QCOMPARE(document(), (QJsonObject{{"/r"_s, QJsonDocument::fromJson(member("1.5")).object()}}));
        }
    }

    void aSaveThatFailsChangesNothing()
    {
        Cache cache(m_file, "/r"_s);
        cache.data.savePackages(many("1"_s, 50));
        const QByteArray before = readFile(m_file);
        {
            const FullDisk full(200000);
            cache.data.savePackages(many("2"_s, 3000));
        }
        QVERIFY(readFile(m_file) == before);
        QCOMPARE(QDir(m_folder->filePath("new"_s)).entryList(QDir::Files).size(), 1);
        cache.data.savePackages(many("2"_s, 3000));
        QVERIFY2(document()["/r"_s].toObject().size() == 3000, "the next save writes everything");

        writeFile(m_folder->filePath("file"_s), "x");
        Cache nowhere(m_folder->filePath("file/results.json"_s), "/r"_s);
        nowhere.data.savePackages(many("1"_s, 1));
        QCOMPARE(readFile(m_folder->filePath("file"_s)), QByteArray("x"));
        // What cannot be moved aside is not written over either.
        QDir().mkpath(m_file + ".broken/x"_s);
        writeFile(m_file, "{");
        cache.data.savePackages(many("1"_s, 1));
        QVERIFY(readFile(m_file) == "{" && cache.broken.isEmpty());
    }

    void tabsAndProcessesShareTheFile()
    {
        const auto work = [this](int tab) {
            Cache cache(m_file, "/r%1"_s.arg(tab));
            for (int round = 0; round < 20; ++round) {
                cache.data.savePackages(many(QString::number(round), 1 + round));
                cache.data.changePath("/r%1-%2"_s.arg(tab).arg(round));
            }
        };
        const pid_t other = ::fork();
        if (other == 0) {
            work(3);
            ::_exit(0);
        }
        std::vector<std::thread> threads;
        threads.reserve(3);
        for (int tab = 0; tab < 3; ++tab)
            threads.emplace_back(work, tab);
        for (std::thread &thread : threads)
            thread.join();
        int status = -1;
        QVERIFY(::waitpid(other, &status, 0) == other && status == 0);
        const QJsonObject root = document();
        QCOMPARE(root.keys(), "/r0-19|/r1-19|/r2-19|/r3-19"_list);
        for (const QJsonValue &repository : root)
            QCOMPARE(repository.toObject().size(), 20);
    }
};

VELT_TEST_MAIN(TestDependsData, QCoreApplication)
#include "tst_dependsdata.moc"
