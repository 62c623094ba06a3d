// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/children.h"
#include "support/debbuilder.h"
#include "support/localapt.h"
#include "support/testenvironment.h"
#include "ui/depends/dependsmodel.h"
#include "ui/depends/dependsproxymodel.h"
#include "ui/search/addpackagedialog.h"
#include "ui/search/packagesearcher.h"
#include "ui/widgets/delayedlineedit.h"

#include <QAbstractItemModelTester>
#include <QtWidgets>

namespace
{
const QString Origin = QStringLiteral("http://deb.example.org/d dogwood amd64");

Dependency dependency(const char *name,
                      DependStatus status,
                      const QString &constraint = {},
                      const QMap<QString, FoundVersion> &found = {},
                      const QVector<Dependency> &providers = {})
{
    const QStringList w = QString(constraint + "   "_s).split(u' ');
    Dependency result{QLatin1String(name), "amd64"_s, w[0], w[1], w[2], w[3], status, found, {}};
    for (const Dependency &provider : providers)
        result.providers.insert(provider.name, provider);
    return result;
}

PackageInfoPtr
package(const char *name, DependStatus status, const QVector<DependencyGroup> &entries, bool checked = true)
{
    PackageInfo result;
    result.name = QLatin1String(name);
    result.version = "1.0"_s;
    result.architecture = "amd64"_s;
    if (checked) {
        DependsInfo info{status, {}};
        QMap<QString, DependencyGroup> groups;
        for (const DependencyGroup &entry : entries)
            groups.insert(entry.alternatives.first().name, entry);
        info.groups = sortedGroups(groups);
        result.dependsInfo = QSharedPointer<DependsInfo>::create(info);
    }
    return PackageInfoPtr::create(result);
}

const auto Yes = DependSuccess;
const auto No = DependError;

/** Hangs as long as there is a file "slow", and does what the real program does otherwise. */
const char *const HangingApt = R"(#!/bin/sh
echo "$@" >>"$ASKED"
[ ! -e "$ASKED.slow" ] || sleep 60
exec /usr/bin/apt-config "$@"
)";

/** Every kind of row: two constraints, a wrong version, a choice with providers, a virtual name, nothing at all. */
QList<PackageInfoPtr> examples()
{
    const FoundVersion right{"1.5"_s, Yes};
    const FoundVersion wrong{"1.0"_s, No};
    const auto foo = dependency("foo", Yes, ">= 1.0 << 2.0"_s, {{Origin, right}, {"Local"_s, wrong}});
    const auto bar = dependency("bar", No, ">= 2.0"_s, {{"Local"_s, wrong}});
    const auto exim = dependency("exim", Yes, {}, {{Origin, right}});
    const auto mail = dependency("mail", Yes, {}, {}, {exim, dependency("postfix", No)});
    const auto gone = dependency("gone", No);
    return {package("app", No, {{Yes, {foo}}, {No, {bar}, true}}),
            package("mta", Yes, {{Yes, {mail}}, {Yes, {gone, mail}}}),
            package("free", Yes, {}),
            package("new", DependUndefined, {}, false)};
}

/** One line a row: the depth, the text with slashes for bars, and the mark in each column of a source. */
QStringList rows(const QAbstractItemModel &model, const QModelIndex &parent = {}, const QString &indent = {})
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        QString line = indent + model.index(row, 0, parent).data().toString().replace("|"_s, "/"_s) + " ["_s;
        for (int column = 1; column < model.columnCount(parent); ++column) {
            const QVariant mark = model.index(row, column, parent).data(DependsModel::SourceStatusRole);
            line += mark.isValid() ? "x+?"_s.at((mark.toInt() + 3) % 3) : u'.';
        }
        lines.append(line + u']');
        lines += rows(model, model.index(row, 0, parent), indent + u'-');
    }
    return lines;
}
} // namespace

class TestDependsViews : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_root;

    QString path(const QString &name) const { return m_root.filePath(name); }

private Q_SLOTS:
    void treeOfResults()
    {
        DependsModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        model.setAliases([](const QString &source) { return source == Origin ? "Debian"_s : "Mine"_s; });
        model.setPackages(examples());
        QCOMPARE(
            rows(model),
            "app [xx]|-Pre-Depends: bar (>= 2.0) [xx]|-foo (>= 1.0 & << 2.0) [x+]|mta [.+]|"
            "-gone / mail Provided by ...  [.+]|--mail Provided by ... [.+]|---exim [.+]|---postfix [xx]|"
            "-mail Provided by ... [.+]|--exim [.+]|--postfix [xx]|free [++]|new [??]"_list);
        const auto header = [&model](int column, Qt::ItemDataRole role) {
            return model.headerData(column, Qt::Horizontal, role).toString();
        };
        QCOMPARE(header(0, Qt::DisplayRole), "Package"_s);
        QCOMPARE(header(1, Qt::DisplayRole), "Local"_s);
        QCOMPARE(header(2, Qt::DisplayRole), "Debian"_s);
        QCOMPARE(header(2, Qt::ToolTipRole), Origin);
        const QModelIndex app = model.index(0, 0);
        const auto words = [&model, &app](int row, int column) {
            return model.index(row, column, app).data(Qt::AccessibleTextRole).toString();
        };
        QCOMPARE(words(0, 1), "needs >= 2.0, Local offers 1.0"_s);
        QCOMPARE(words(0, 2), "Debian does not offer it"_s);
        QCOMPARE(words(1, 2), "Debian offers 1.5"_s);
        QCOMPARE(model.alternativesAt(model.index(0, 2, app)).value(0).name, "bar"_s);
        QVERIFY(model.alternativesAt(app).isEmpty());
    }

    void updatesInPlace()
    {
        DependsModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        DependsProxyModel proxy;
        proxy.setSourceModel(&model);
        proxy.setStatusShown(DependError, true);
        model.setPackages(examples());
        const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QCOMPARE(rows(proxy), "app [xx]|-Pre-Depends: bar (>= 2.0) [xx]"_list);
        const QPersistentModelIndex app = model.index(0, 0);

        // The order of entries changes with their number, and the view hears of each.
        const FoundVersion found{"3"_s, Yes};
        const auto bar = dependency("bar", Yes, {}, {{"Local"_s, found}});
        model.updatePackage(
            package("app", No, {{No, {dependency("a", No)}}, {Yes, {bar}}, {No, {dependency("z", No)}}}));
        QCOMPARE(rows(proxy), "app [xx]|-a [xx]|-z [xx]"_list);
        QVERIFY(app.isValid());
        model.updatePackage(package("app", Yes, {{Yes, {bar}}}));
        QCOMPARE(rows(proxy), QStringList());
        model.updatePackage(package("late", No, {{No, {dependency("z", No)}}}));
        QCOMPARE(rows(proxy), "late [xx]|-z [xx]"_list);
        QCOMPARE(resets.size(), 0);

        QVERIFY(model.index(0, 0).data(Qt::DecorationRole).isNull());

        // A source that is new is a column for all.
        const auto baz
            = dependency("z", No, "> 4"_s, {{"http://another.example.org/ x amd64"_s, {"3"_s, No}}});
        model.updatePackage(package("late", No, {{No, {baz}}}));
        QCOMPARE(rows(proxy), "late [xxx]|-z (> 4) [xxx]"_list);
        QCOMPARE(model.rowCount(), 5);
        // Without any source the cross has to stand elsewhere.
        model.setPackages({package("lost", No, {{No, {dependency("z", No)}}})});
        QCOMPARE(rows(model), "lost []|-z []"_list);
        for (const QModelIndex &index : {model.index(0, 0), model.index(0, 0, model.index(0, 0))})
            QVERIFY(index.data(Qt::DecorationRole).isValid());
    }

    void filterByState_data()
    {
        QTest::addColumn<QList<int>>("shown");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("nothing set") << QList<int>() << QStringList();
        QTest::newRow("undefined") << QList<int>{-1} << "new [??]"_list;
        QTest::newRow("errors in errors") << QList<int>{0} << "app [xx]|-Pre-Depends: bar (>= 2.0) [xx]"_list;
        QTest::newRow("success") << QList<int>{1}
                                 << "free [++]|mta [.+]|-gone / mail Provided by ...  [.+]|"
                                    "--mail Provided by ... [.+]|---exim [.+]|-mail Provided by ... [.+]|"
                                    "--exim [.+]"_list;
    }

    void filterByState()
    {
        QFETCH(const QList<int>, shown);
        DependsModel model;
        model.setPackages(examples());
        DependsProxyModel proxy;
        proxy.setSourceModel(&model);
        proxy.sort(0);
        for (const int status : {-1, 0, 1})
            proxy.setStatusShown(status, true);
        QCOMPARE(proxy.rowCount(), model.rowCount());
        // Set one by one, in any order, over what was set before.
        for (const int status : {1, -1, 0})
            proxy.setStatusShown(status, shown.contains(status));
        QTEST(rows(proxy), "expected");
    }

    /** Real apt over a local source with a configuration of its own. */
    void searchAndChoice()
    {
        VELT_NEED_TOOL("apt");
        VELT_NEED_TOOL("dpkg-scanpackages");
        DebBuilder("foo"_s).version("1.9"_s).build(path("one/pool"_s));
        DebBuilder("foo"_s).version("1.10"_s).build(path("one/pool"_s));
        DebBuilder("food"_s)
            .version("1:3-1"_s)
            .architecture("all"_s)
            .field("Description"_s, "Server for the Web of gourmets"_s)
            .build(path("one/pool"_s));
        for (const QString &name : {"g++-x.y"_s, "g++-x-y"_s})
            DebBuilder(name).build(path("one/pool"_s));
        writeFile(path("etc/apt.conf.d/foreign"_s), R"(APT::Architectures { "amd64"; "i386"; };)");
        writeFile(path("etc/sources.list.d/foreign.list"_s),
                  "deb [trusted=yes arch=i386] file:" + path("one"_s).toUtf8() + " dogwood main\n");
        writeFile(
            path("one/dists/dogwood/main/binary-i386/Packages"_s),
            "Package: fool\nVersion: 1\nArchitecture: i386\nFilename: pool/x\nSize: 1\nDescription: x\n");
        const LocalApt apt(m_root.path(), {"one"_s});
        const QString origin = "file:%1 dogwood amd64"_s.arg(path("one"_s));
        const auto alias
            = [&origin](const QString &source) { return source == origin ? "Mine"_s : QString(); };
        const auto present
            = [](const PackageInfo &package) { return package.name == "foo"_s ? "1.9"_s : QString(); };
        AddPackageDialog dialog({{"amd64"_s}, {}}, alias, present);
        dialog.show();
        auto *edit = child<DelayedLineEdit>(dialog, "m_searchEdit");
        auto *table = child<QTableView>(dialog, "m_packagesTable");
        auto *add = child<QAbstractButton>(dialog, "m_addButton");
        const auto cells = [table] {
            QStringList lines;
            for (int row = 0; row < table->model()->rowCount(); ++row) {
                QStringList line;
                for (int column = 0; column < table->model()->columnCount(); ++column)
                    line.append(table->model()->index(row, column).data().toString());
                lines.append(line.join(u' '));
            }
            return lines;
        };
        QTest::keyClicks(edit, " Foo"_s);
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 3, 30000);
        table->sortByColumn(2, Qt::AscendingOrder);
        QCOMPARE(cells(),
                 "foo amd64 1.9 Mine 1.9, the same version|foo amd64 1.10 Mine 1.9, older|"
                 "food amd64 1:3-1 Mine "_list);
        QCOMPARE(child<QComboBox>(dialog, "m_repositoryComboBox")->itemText(1), "Mine"_s);

        // With the keyboard alone: down into the table, and Enter adds.
        QVERIFY(!add->isEnabled());
        QTest::keyClick(edit, Qt::Key_Down);
        QVERIFY(add->isEnabled());
        QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(table, Qt::Key_Return);
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
        const auto chosen = dialog.selectedPackages();
        QCOMPARE(chosen.size(), 2);
        QCOMPARE(chosen.at(1).version, "1.10"_s);
        QCOMPARE(chosen.at(1).repository, origin);

        // A dot is a dot, and plus signs are no repetition.
        edit->clear();
        QTest::keyClicks(edit, "g++-x."_s);
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 1, 30000);

        // Each word somewhere in the name or the description, by choice.
        auto *descriptions = child<QCheckBox>(dialog, "m_descriptionsCheckBox");
        edit->clear();
        QTest::keyClicks(edit, "web FOO"_s);
        descriptions->click();
        QTRY_COMPARE_WITH_TIMEOUT(cells(), "food amd64 1:3-1 Mine "_list, 30000);
        descriptions->click();
        edit->clear();

        // What nobody offers is an empty table, and nothing that could be added.
        QTest::keyClicks(edit, "zzz"_s);
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 0, 30000);
        QVERIFY(!add->isEnabled());
        auto *status = child<QLabel>(dialog, "m_statusLabel");
        QTRY_COMPARE_WITH_TIMEOUT(status->text(), "No packages found"_s, 30000);

        // An apt without lists finds nothing as well, and so does none at all: that is not the text's fault.
        QDir(path("lists"_s)).removeRecursively();
        QTest::keyClick(edit, Qt::Key_Z);
        QTRY_VERIFY_WITH_TIMEOUT(status->text().contains("apt update"_s), 30000);
        const ScopedVariable nothing("PATH", path("one"_s));
        QTest::keyClick(edit, Qt::Key_Z);
        QTRY_VERIFY_WITH_TIMEOUT(status->text().contains("apt-config"_s), 30000);
    }

    /** Sources that apt was not told of: their lists come by themselves, and what is chosen stays chosen. */
    void sourcesOfTheUser()
    {
        VELT_NEED_TOOL("dpkg-scanpackages");
        DebBuilder("plain"_s).build(path("known/pool"_s));
        DebBuilder("plainer"_s).build(path("own/pool"_s));
        runShell("mkdir -p dists/dogwood/main/binary-amd64\n"
                 "dpkg-scanpackages -m pool 2>/dev/null >dists/dogwood/main/binary-amd64/Packages"_s,
                 path("own"_s));
        const LocalApt apt(m_root.path(), {"known"_s});
        ExternalRepos repos;
        QVERIFY(repos.setSource("[trusted=yes] file:%1 dogwood main"_s.arg(path("own"_s))));
        repos.setAlias(0, "Ours"_s);
        const auto alias = [&repos](const QString &origin) { return repos.aliasOf(origin); };
        AddPackageDialog dialog({{"amd64"_s}, {}}, alias, {}, {repos, {"amd64"_s}});
        dialog.show();
        auto *table = child<QTableView>(dialog, "m_packagesTable");
        auto *label = child<QLabel>(dialog, "m_addedSourcesLabel");
        auto *button = child<QAbstractButton>(dialog, "m_addedSourcesButton");
        const auto again = [&] {
            label->clear();
            button->click();
            QTRY_COMPARE_WITH_TIMEOUT(button->text(), "&Fetch again"_s, 30000);
        };
        QTest::keyClicks(child<DelayedLineEdit>(dialog, "m_searchEdit"), "plain"_s);
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 2, 30000);
        QTRY_VERIFY_WITH_TIMEOUT(label->isVisible() && label->text().startsWith("Lists of"_s), 30000);
        table->selectRow(1);
        QCOMPARE(dialog.selectedPackages().value(0).name, "plainer"_s);
        QCOMPARE(table->model()->index(1, FoundPackagesModel::RepositoryColumn).data().toString(), "Ours"_s);

        DebBuilder("plainest"_s).build(path("own/pool"_s));
        runShell("dpkg-scanpackages -m pool 2>/dev/null >dists/dogwood/main/binary-amd64/Packages"_s,
                 path("own"_s));
        again();
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 3, 30000);
        QCOMPARE(dialog.selectedPackages().value(0).name, "plainer"_s);

        QVERIFY(QDir(path("own"_s)).removeRecursively());
        again();
        QVERIFY2(label->text().startsWith("Your own sources: "_s), qPrintable(label->text()));
    }

    void othersTextsAreNoMarkup()
    {
        FoundPackagesModel model({}, {}, nullptr);
        PackageInfo package;
        package.version = "1<img src='file:///x'>"_s;
        model.setPackages({package});
        const QModelIndex version = model.index(0, FoundPackagesModel::VersionColumn);
        QVERIFY(version.data(Qt::ToolTipRole).toString().contains("&lt;img"_s));
    }

    void onlyTheNewestTextIsAnswered()
    {
        VELT_NEED_TOOL("dpkg-scanpackages");
        DebBuilder("many"_s).build(path("two/pool"_s));
        const LocalApt apt(m_root.path(), {"two"_s});
        writeScript(path("bin/apt-config"_s), HangingApt);
        qputenv("ASKED", path("asked"_s).toLocal8Bit());
        const ScopedVariable behind("PATH", ScopedVariable::pathBehind(path("bin"_s)));
        const auto runs = [this] { return readFile(path("asked"_s)).count("shell"); };

        QElapsedTimer clock;
        clock.start();
        {
            AddPackageDialog dialog({}, {}, {});
            auto *edit = child<DelayedLineEdit>(dialog, "m_searchEdit");
            auto *table = child<QTableView>(dialog, "m_packagesTable");
            auto *status = child<QLabel>(dialog, "m_statusLabel");
            const auto type = [edit](const QString &text) {
                edit->selectAll();
                QGuiApplication::clipboard()->setText(text);
                edit->paste();
                QTest::keyClick(edit, Qt::Key_Return);
            };
            for (const QString &text : {"x; touch y"_s, "-o"_s, "$(id)"_s, "a%b"_s, "пакет"_s, "*"_s}) {
                type(text);
                QVERIFY2(status->text().contains(text), qPrintable(status->text()));
            }
            writeFile(path("asked.slow"_s), "");
            type("many"_s);
            QTRY_COMPARE_WITH_TIMEOUT(runs(), 1, 30000);
            QVERIFY(child<QWidget>(dialog, "m_busyBar")->isVisibleTo(&dialog));
            // What is typed is asked for as a whole, when the typing has ended.
            QVERIFY(QFile::remove(path("asked.slow"_s)));
            edit->selectAll();
            QTest::keyClicks(edit, "man"_s);
            QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 1, 30000);
            QVERIFY(!child<QWidget>(dialog, "m_busyBar")->isVisibleTo(&dialog));
            QCOMPARE(runs(), 2);
            writeFile(path("asked.slow"_s), "");
            type("slow"_s);
            QTRY_COMPARE_WITH_TIMEOUT(runs(), 3, 30000);
        }
        QVERIFY2(clock.elapsed() < 40000, "somebody waited for a search that nobody wants");
    }
};

VELT_TEST_MAIN(TestDependsViews, QApplication)
#include "tst_dependsviews.moc"
