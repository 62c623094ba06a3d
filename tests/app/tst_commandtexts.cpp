// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commandtable.h"
#include "support/testenvironment.h"

/** What is made from the table of commands, and the manual, which is written by hand. */
class CommandTextsTest : public QObject
{
    Q_OBJECT

    using Options = QMap<QString, QSet<QString>>; ///< by commands; those of all commands under an empty name

    /** What the pages say: a command is a subsection, and its options are paragraphs with a tag. */
    static Options inManual()
    {
        Options options;
        QString command;
        bool isTag = false;
        const auto lines
            = QString::fromUtf8(readFile(QStringLiteral(MANUAL))).replace("\\-"_s, "-"_s).split(u'\n');
        for (const QString &line : lines) {
            if (line.startsWith(".SH "_s))
                command = line == ".SH OPTIONS"_s ? QString() : "-"_s;
            if (line.startsWith(".SS "_s)) {
                command = QString(line).remove(u'"').section(u' ', 1, 1);
                options.insert(command, {});
            }
            if (isTag && command != "-"_s) {
                auto words = QRegularExpression("--([a-z-]+)"_s).globalMatch(line);
                while (words.hasNext())
                    options[command].insert(words.next().captured(1));
            }
            isTag = line == ".TP"_s;
        }
        return options;
    }

    /** What bash offers for the last of these words. */
    static QStringList completed(const QStringList &words)
    {
        const QString script = R"(PATH=$1:$PATH; . <("$1/velt-admin-repo-cli" --print-completion bash); shift
            compopt() { :; }
            COMP_WORDS=(velt-admin-repo-cli "$@"); COMP_CWORD=$#; _velt_admin_repo_cli; printf '%s\n' "${COMPREPLY[@]}")"_s;
        QProcess bash;
        bash.start("bash"_s,
                   QStringList{"-c"_s, script, "bash"_s, QFileInfo(QStringLiteral(PROGRAM)).path()} + words);
        bash.waitForFinished();
        return QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void manualNamesEveryCommandAndOption()
    {
        Options expected;
        for (const CommandDescription &command : CommandTable::commands()) {
            QSet<QString> &options = expected[QLatin1String(command.name)];
            for (const CommandOption &option : command.options)
                options.insert(QLatin1String(option.name));
        }
        expected.insert({}, {"help"_s, "version"_s});
        for (const CommandOption &option : CommandTable::commonOptions())
            expected[{}].insert(QLatin1String(option.name));
        const Options said = inManual();
        QCOMPARE(said.keys(), expected.keys());
        for (auto command = expected.cbegin(); command != expected.cend(); ++command)
            QVERIFY2(said.value(command.key()) == *command, qPrintable(command.key()));
    }

    void bashCompletes()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("bash");
        const QTemporaryDir folder;
        const QString repository = folder.filePath("my repo"_s);
        QDir().mkpath(repository + "/conf"_s);
        QDir().mkpath(folder.filePath("tree/DEBIAN"_s));
        writeFile(repository + "/conf/distributions"_s,
                  "Codename: birch\nArchitectures: amd64\nComponents: main\n");
        for (const char *name : {"fizz", "fizz-data", "other"}) {
            writeFile(folder.filePath("tree/DEBIAN/control"_s),
                      QByteArray("Package: ") + name
                          + "\nVersion: 1\nArchitecture: amd64\nMaintainer: T <t@example.org>\n"
                            "Section: misc\nPriority: optional\nDescription: test\n");
            runShell(
                "cd '%1' && dpkg-deb --root-owner-group -b tree %2.deb >/dev/null && "
                "reprepro -s -b 'my repo' includedeb birch %2.deb"_s.arg(folder.path(), QLatin1String(name)));
        }
        QCOMPARE(completed({"unp"_s}), QStringList{"unpublish"_s});
        QCOMPARE(completed({"add"_s, repository, "--on-collision"_s, "n"_s}),
                 QStringList({"newer"_s, "none"_s}));
        QCOMPARE(completed({"add"_s, repository, "--wait"_s, QString()}), QStringList());
        // As the user has typed it.
        const QString typed = QString(repository).replace(u' ', "\\ "_s);
        QCOMPARE(completed({"remove"_s, typed, "fizz"_s}), QStringList({"fizz"_s, "fizz-data"_s}));
        QCOMPARE(completed({"remove"_s, folder.path(), "fizz"_s}), QStringList());
        QCOMPARE(completed({"copy"_s, typed, folder.path(), "fizz"_s}),
                 QStringList({"fizz"_s, "fizz-data"_s}));
        QVERIFY(completed({"publish"_s, repository, "--"_s}).contains("--http"_s));
    }
};

VELT_TEST_MAIN(CommandTextsTest, QCoreApplication)
#include "tst_commandtexts.moc"
