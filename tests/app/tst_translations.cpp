// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"
#include "support/testenvironment.h"

#include <QtWidgets>

namespace
{
struct Message
{
    QString context;
    QString source;
    QStringList translations;
    bool isPlural = false;
    bool isFinished = true;
};

QVector<Message> messagesOf(const QString &path)
{
    QVector<Message> messages;
    QString context;
    QXmlStreamReader reader(readFile(path));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QStringView name = reader.name();
        if (name == "name"_s)
            context = reader.readElementText();
        else if (name == "message"_s)
            messages.append({context, {}, {}, reader.attributes().value("numerus"_s) == "yes"_s, true});
        else if (name == "source"_s)
            messages.last().source = reader.readElementText();
        else if (name == "translation"_s) {
            messages.last().isFinished = !reader.attributes().hasAttribute("type"_s);
            if (!messages.last().isPlural)
                messages.last().translations = QStringList{reader.readElementText()};
        } else if (name == "numerusform"_s)
            messages.last().translations << reader.readElementText();
    }
    return reader.hasError() ? QVector<Message>() : messages;
}

QStringList matches(const QString &expression, const QString &text)
{
    QStringList found;
    auto all = QRegularExpression(expression).globalMatch(text);
    while (all.hasNext())
        found << all.next().captured();
    found.sort();
    found.removeDuplicates();
    return found;
}

/** What the program, or the place where it is shown, relies on in a text. */
QStringList essentials(const QString &text)
{
    const QRegularExpression edges("^(\\s*).*?(\\.{3}|:)?(\\s*)$"_s,
                                   QRegularExpression::DotMatchesEverythingOption);
    return matches("%L?(?:\\d+|n)"_s, text) + matches("\\*\\.[\\w.]+"_s, text) + matches("</?\\w+>"_s, text)
           + edges.match(text).capturedTexts().mid(1)
           + QStringList{QString::number(text.count(u'&')), QString::number(text.count("\n"_s))};
}

/** Everything that the first group of the expression finds, sorted. */
QStringList captured(const QString &expression, const QString &text)
{
    QStringList found;
    auto all
        = QRegularExpression(expression, QRegularExpression::DotMatchesEverythingOption).globalMatch(text);
    while (all.hasNext())
        found << all.next().captured(1);
    found.sort();
    return found;
}

/** A text as the manual writes it. */
QString inManual(QString text)
{
    text.replace(QRegularExpression("%L?(?:\\d|n)"_s), "…"_s).remove(u'&');
    return QTextDocumentFragment::fromHtml(text).toPlainText().simplified();
}

QStringList inManual(QStringList texts)
{
    for (QString &text : texts)
        text = inManual(QTextDocumentFragment::fromHtml(text).toPlainText());
    return texts;
}
} // namespace

/** The translation files, and how the program takes its language from the user's. */
class TranslationsTest : public QObject
{
    Q_OBJECT

    static QString shown(const char *context, const char *text, int count = -1)
    {
        return QCoreApplication::translate(context, text, nullptr, count);
    }

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void completeAndSound_data()
    {
        QTest::addColumn<int>("forms");
        QTest::newRow("en") << 2;
        QTest::newRow("de") << 2;
        QTest::newRow("ru") << 3;
    }

    void completeAndSound()
    {
        QFETCH(int, forms);
        const QString language = QLatin1String(QTest::currentDataTag());
        const QString original
            = QStringLiteral(SOURCE_FOLDER) + "/translations/velt-admin-repo_"_s + language + ".ts"_s;
        const QTemporaryDir folder;
        const QString copy = folder.filePath("x_"_s + language + ".ts"_s);
        QVERIFY(QFile(original).copy(copy));
        QProcess lupdate;
        lupdate.setProcessChannelMode(QProcess::MergedChannels);
        QStringList arguments{"-locations"_s, "none"_s, "-no-obsolete"_s};
        if (language == "en"_s)
            arguments << "-pluralonly"_s;
        arguments << "-recursive"_s << QStringLiteral(SOURCE_FOLDER "/src") << "-ts"_s << copy;
        lupdate.start(QStringLiteral(LUPDATE), arguments);
        QVERIFY(lupdate.waitForFinished(60000) && lupdate.exitCode() == 0);
        const QByteArray said = lupdate.readAll();
        QVERIFY2(!said.contains("Q_OBJECT"), said.constData());

        const QVector<Message> messages = messagesOf(copy);
        QVERIFY(messages.size() > 10);
        QStringList faults;
        for (const Message &message : messages) {
            const QString place = message.context + " \""_s + message.source + "\": "_s;
            if (!message.isFinished || message.translations.contains(QString()))
                faults << place + "not translated"_s;
            else if (message.translations.size() != (message.isPlural ? forms : 1))
                faults << place + "forms are missing"_s;
            else
                for (const QString &translation : message.translations)
                    if (essentials(translation) != essentials(message.source))
                        faults << place + translation;
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join("\n"_s)));
        QVERIFY2(readFile(copy) == readFile(original), "build update-translations: texts have gone");
    }

    void manual_data()
    {
        QTest::addColumn<QString>("page");
        const QDir english(QStringLiteral(SOURCE_FOLDER "/data/help/en"));
        for (const char *language : {"de", "ru"}) {
            const QStringList pages = english.entryList({"*.html"_s});
            for (const QString &page : pages)
                QTest::addRow("%s/%s", language, qPrintable(page)) << page;
        }
    }

    /** A translated page has the links, pictures and commands of the English one, and the program's own words. */
    void manual()
    {
        QFETCH(QString, page);
        const QString name = QLatin1String(QTest::currentDataTag());
        const QString language = name.left(2);
        const QString folder = QStringLiteral(SOURCE_FOLDER "/data/help/");
        const QString english = QString::fromUtf8(readFile(folder + "en/"_s + page));
        const QString translated = QString::fromUtf8(readFile(folder + name));
        QVERIFY(translated.contains("<html lang=\"%1\">"_s.arg(language)));
        for (const char *kept :
             {"(?:href|src|id|class)=\"([^\"]*)\"", "<code>(.*?)</code>", "<(h\\d|li|d[td]|tr|pre|p)\\b"})
            QCOMPARE(captured(QLatin1String(kept), translated), captured(QLatin1String(kept), english));

        QHash<QString, QStringList> words;
        const auto messages
            = messagesOf(QStringLiteral(SOURCE_FOLDER "/translations/velt-admin-repo_%1.ts").arg(language));
        for (const Message &message : messages)
            for (const QString &translation : message.translations)
                words[inManual(message.source)] << inManual(translation);
        const QString ofProgram("<(?:b|td class=\"message\")>(.*?)</(?:b|td)>"_s);
        const QStringList found = inManual(captured(ofProgram, translated));
        const QStringList originals = inManual(captured(ofProgram, english));
        for (const QString &original : originals) {
            const QStringList wanted = words.value(original);
            const bool isThere
                = wanted.isEmpty() || std::any_of(wanted.begin(), wanted.end(), [&](const QString &word) {
                      return found.contains(word);
                  });
            QVERIFY2(isThere, qPrintable("\"%1\" is \"%2\""_s.arg(original, wanted.join("\" or \""_s))));
        }
    }

    void pluralFormsOfEnglish()
    {
        // Of a language that is not there, too.
        QLocale::setDefault(QLocale("fr"_s));
        veltInit("0"_s, "Velt admin repo"_s);
        QCOMPARE(shown("SearchPackageWidget", "%n package(s)", 1), "1 package"_s);
        QCOMPARE(shown("SearchPackageWidget", "%n package(s)", 2), "2 packages"_s);
        QCOMPARE(shown("QPlatformTheme", "Cancel"), "Cancel"_s);
    }

    void languagesInTheirOrder()
    {
        // Each program reads them once.
        const auto help = [](const QString &languages) {
            const ScopedVariable wanted("LANGUAGE", languages);
            QProcess process;
            process.start(QStringLiteral(PROGRAM), {"--help"_s});
            return process.waitForFinished() ? process.readAll() : QByteArray();
        };
        const QByteArray german = help("fr:de_CH:ru"_s);
        QVERIFY2(german.contains("Paketdateien") && german.contains("Aufruf: "), german.constData());
        QVERIFY(help("en:de"_s).contains("Package files"));
    }
};

int main(int argc, char *argv[])
{
    // What the build has made, as if it were installed.
    qputenv("XDG_DATA_DIRS", SHARE_FOLDER);
    const TestEnvironment environment;
    TestApplication<QApplication> application(argc, argv);
    TranslationsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_translations.moc"
