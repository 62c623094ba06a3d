// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"
#include "platform/ui/help.h"
#include "platform/ui/helpwindow.h"
#include "support/testenvironment.h"

#include <QtWidgets>

namespace
{
const QDir pages(QStringLiteral(PROJECT_FOLDER) + "/data/help"_s);

QStringList captured(const QString &text, const QString &pattern)
{
    QStringList found;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(1);
    return found;
}

QString plain(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText().simplified();
}

HelpWindow *shownWindow()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *window = qobject_cast<HelpWindow *>(widget);
        if (window != nullptr && window->isVisible())
            return window;
    }
    return nullptr;
}

QTextBrowser *browser()
{
    return shownWindow()->findChild<QTextBrowser *>();
}
} // namespace

class TestHelp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        veltInit("1.2.3"_s, "Help"_s);
        // No pages: nothing is shown.
        const QByteArray dirs = qgetenv("XDG_DATA_DIRS");
        qputenv("XDG_DATA_DIRS", "/nonexistent");
        QVERIFY(!veltHelpShow(nullptr) && shownWindow() == nullptr);
        qputenv("XDG_DATA_DIRS", dirs);

        const QString share = qEnvironmentVariable("XDG_DATA_HOME") + "/velt-admin-repo"_s;
        QVERIFY(QDir().mkpath(share) && QFile::link(pages.path(), share + "/help"_s));
    }

    void pagesLeadNowhereWrong_data()
    {
        QTest::addColumn<QString>("page");
        for (const char *language : {"en", "de", "ru"}) {
            const QStringList names = QDir(pages.filePath(QLatin1String(language))).entryList({"*.html"_s});
            QVERIFY(names.size() > 10);
            for (const QString &name : names)
                QTest::addRow("%s/%s", language, qPrintable(name)) << name;
        }
    }

    void pagesLeadNowhereWrong()
    {
        QFETCH(QString, page);
        const QString name = QLatin1String(QTest::currentDataTag());
        const QDir folder(QFileInfo(pages.filePath(name)).path());
        const QString html = QString::fromUtf8(readFile(pages.filePath(name)));
        for (const QString &target : captured(html, "(?:href|src)=\"([^\"]*)\""_s)) {
            QVERIFY2(QUrl(target).isRelative(), qPrintable(target));
            const QString file = target.section(u'#', 0, 0);
            const QString anchor = target.section(u'#', 1);
            const QString path = folder.filePath(file.isEmpty() ? page : file);
            QVERIFY2(QFileInfo(path).isFile(), qPrintable(target));
            QVERIFY2(anchor.isEmpty()
                         || readFile(path).count(QByteArray("id=\"" + anchor.toUtf8() + "\"")) == 1,
                     qPrintable(target));
            if (target.endsWith(".png"_s)) {
                const QImage picture(path);
                QVERIFY2(!picture.isNull() && picture.width() <= 840, qPrintable(target));
                QVERIFY2(name.startsWith("en/"_s)
                             || readFile(path) != readFile(pages.filePath("en/"_s + target)),
                         "a picture shows the program in the language of the page");
            }
        }
        // Every page can be left and reached, and every picture can be heard.
        QVERIFY(page == "index.html"_s
                || (html.contains("<a href=\"index.html\">"_s)
                    && readFile(folder.filePath("index.html"_s))
                           .contains(QByteArray("\"" + page.toUtf8() + "\""))));
        QCOMPARE(html.count("<img "_s), captured(html, "<img [^>]*alt=\"([^\"]+)\""_s).size());
    }

    /** What the troubles page explains is what the program says, word for word. */
    void explainsMessagesThatExist()
    {
        const QString sources = QString::fromUtf8(
            readFile(QStringLiteral(PROJECT_FOLDER) + "/translations/velt-admin-repo_de.ts"_s));
        QSet<QString> texts;
        for (const QString &source : captured(sources, "<source>([^<]*)</source>"_s))
            texts << plain(source).replace(QRegularExpression("%[n1-9]"_s), "…"_s);
        const QString page = QString::fromUtf8(readFile(pages.filePath("en/troubles.html"_s)));
        const QStringList messages = captured(page, "<td class=\"message\">(.*?)</td>"_s);
        QVERIFY(messages.size() > 60);
        QStringList unknown;
        for (const QString &message : messages) {
            if (!texts.contains(plain(message)))
                unknown << plain(message);
        }
        QVERIFY2(unknown.isEmpty(), qPrintable(unknown.join(u'\n')));
    }

    void findsOnOtherPages()
    {
        QVERIFY(veltHelpShow(nullptr));
        QVERIFY(QTest::qWaitForWindowActive(shownWindow()));
        const QSize room = shownWindow()->screen()->availableSize();
        QVERIFY(room.width() > shownWindow()->width() && room.height() > shownWindow()->height());
        auto *line = shownWindow()->findChild<QLineEdit *>();
        line->setText("/etc/apt/keyrings"_s);
        QSet<QString> visited;
        for (int i = 0; i < 20; ++i) {
            QTest::keyClick(line, Qt::Key_Return);
            QCOMPARE(browser()->textCursor().selectedText(), line->text());
            visited << browser()->source().fileName();
        }
        QCOMPARE(visited, (QSet<QString>{"clients.html"_s, "files.html"_s, "signing.html"_s}));
        const QString page = browser()->source().toString();
        line->setText("no such word anywhere"_s);
        QTest::keyClick(line, Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(browser()->source().toString(), page);
        const QList<QLabel *> labels = shownWindow()->findChildren<QLabel *>();
        QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->isVisible() && label->text().contains("no such word"_s);
        }));
        shownWindow()->close();
    }

    void staysUsableBesideDialogs()
    {
        QWidget window;
        window.show();
        QVERIFY(veltHelpShow(&window));
        QPointer<HelpWindow> help = shownWindow();
        {
            QDialog dialog(&window);
            dialog.setModal(true);
            dialog.show();
            QVERIFY(veltHelpShow(&dialog, "clients.html#ftp"_s));
            QVERIFY(help->isVisible() && help->parentWidget() == &dialog);
            dialog.accept();
        }
        QVERIFY(!help.isNull() && help->isVisible() && help->parentWidget() == &window);
        QCOMPARE(browser()->source().fileName() + browser()->source().fragment(), "clients.htmlftp"_s);
        help->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

VELT_TEST_MAIN(TestHelp, QApplication)
#include "tst_help.moc"
