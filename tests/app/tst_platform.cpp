// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"
#include "platform/help.h"
#include "platform/velticon.h"
#include "platform/windowgeometry.h"
#include "support/testenvironment.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QDirIterator>
#include <QDockWidget>
#include <QIcon>
#include <QMainWindow>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

class TestPlatform : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void identity();
    void everyIconOfTheProgramIsThere();
    void ownIconsShowOnLightAndDark();
    void overlay();
    void geometryComesBack();
    void geometryStaysOnScreen_data();
    void geometryStaysOnScreen();
    void help();

public Q_SLOTS:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private:
    QList<QUrl> m_opened;
};

void TestPlatform::initTestCase()
{
    veltInit(QStringLiteral("1.2.3+x"), QStringLiteral("Display name"));
}

void TestPlatform::identity()
{
    QCOMPARE(QSettings().fileName(),
             qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/corvana/velt-admin-repo.conf"));
    QCOMPARE(QCoreApplication::applicationVersion(), QStringLiteral("1.2.3+x"));
    QCOMPARE(QGuiApplication::applicationDisplayName(), QStringLiteral("Display name"));
}

void TestPlatform::everyIconOfTheProgramIsThere()
{
    // Names in code, in forms and in tables of actions: whatever looks like a theme icon's name beside "icon".
    const QRegularExpression use(QStringLiteral(
        R"re((?:fromTheme|withOverlay)\s*\(\s*(?:QStringLiteral|QLatin1String)\s*\(\s*"([\w-]+)"|theme="([\w-]+)")re"));
    QSet<QString> names{QStringLiteral("kgpg"),
                        QStringLiteral("signed-package"),
                        QStringLiteral("velt-admin-alternatives"),
                        QStringLiteral("synaptic"),
                        QStringLiteral("folder"),
                        QStringLiteral("dialog-question"),
                        QStringLiteral("dialog-close"),
                        QStringLiteral("dialog-ok-apply")};
    QDirIterator files(QStringLiteral(SOURCE_FOLDER),
                       {QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.ui")},
                       QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString text = QString::fromUtf8(readFile(files.next()));
        QRegularExpressionMatchIterator matches = use.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            names.insert(match.captured(1) + match.captured(2));
        }
    }
    QVERIFY2(names.contains(QStringLiteral("server-database")), "the search finds no names any more");
    for (const QString &name : qAsConst(names)) {
        for (const int size : {16, 22, 48})
            QVERIFY2(!QIcon::fromTheme(name).pixmap(size, size).isNull(), qPrintable(name));
    }
}

void TestPlatform::ownIconsShowOnLightAndDark()
{
    for (const char *name : {"kgpg", "signed-package", "velt-admin-alternatives"}) {
        const QString file = QStringLiteral(":/icons/hicolor/scalable/apps/%1.svg").arg(QLatin1String(name));
        const QImage image = QIcon(file).pixmap(22, 22).toImage();
        QVERIFY2(!image.isNull(), name);
        for (const QColor &background : {QColor(0xfc, 0xfc, 0xfc), QColor(0x23, 0x26, 0x29)}) {
            int distinct = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor pixel = image.pixelColor(x, y);
                    if (pixel.alpha() > 128 && qAbs(pixel.lightness() - background.lightness()) > 60)
                        ++distinct;
                }
            }
            QVERIFY2(distinct > image.width() * image.height() / 8, name);
        }
    }
}

void TestPlatform::overlay()
{
    const QString base = QStringLiteral("folder");
    const QString mark = QStringLiteral("dialog-close");
    const QImage plain = VeltIcon::withOverlay(base, QString()).pixmap(32, 32).toImage();
    const QImage marked = VeltIcon::withOverlay(base, mark).pixmap(32, 32).toImage();
    QCOMPARE(plain, QIcon::fromTheme(base).pixmap(32, 32).toImage());
    QCOMPARE(marked.size(), plain.size());
    const QRect corner(16, 16, 16, 16);
    QVERIFY(marked.copy(corner) != plain.copy(corner));
    const QImage::Format format = QImage::Format_ARGB32;
    QCOMPARE(marked.copy(0, 0, 32, 16).convertToFormat(format),
             plain.copy(0, 0, 32, 16).convertToFormat(format));
    QVERIFY(marked
            != VeltIcon::withOverlay(base, QStringLiteral("dialog-ok-apply")).pixmap(32, 32).toImage());
    QCOMPARE(VeltIcon::withOverlay(base, mark).cacheKey(), VeltIcon::withOverlay(base, mark).cacheKey());
}

void TestPlatform::geometryComesBack()
{
    QSettings settings;
    const QRect rect(40, 50, 400, 300);
    const auto addDock = [](QMainWindow &window) {
        auto *dock = new QDockWidget(&window);
        dock->setObjectName(QStringLiteral("dock"));
        window.addDockWidget(Qt::BottomDockWidgetArea, dock);
        return dock;
    };
    {
        QMainWindow window;
        addDock(window)->hide();
        window.setGeometry(rect);
        veltSaveGeometry(&window, settings, true);
    }
    QMainWindow again;
    const QDockWidget *dock = addDock(again);
    veltRestoreGeometry(&again, settings, QRect(0, 0, 100, 100), false);
    QCOMPARE(again.geometry(), rect);
    QVERIFY(!dock->isHidden());
    veltRestoreGeometry(&again, settings, QRect(0, 0, 100, 100), true);
    QVERIFY(dock->isHidden());

    again.setWindowState(Qt::WindowMaximized);
    veltSaveGeometry(&again, settings, true);
    QMainWindow maximized;
    veltRestoreGeometry(&maximized, settings, QRect(0, 0, 100, 100), true);
    QVERIFY(maximized.isMaximized());
}

void TestPlatform::geometryStaysOnScreen_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QRect>("expected");
    const QRect fallback(100, 100, 500, 300);
    const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    const auto saved = [](const QRect &rect) {
        QMainWindow window;
        window.setGeometry(rect);
        return QVariant(window.saveGeometry());
    };
    QByteArray cut = saved(QRect(10, 10, 200, 200)).toByteArray();
    cut.truncate(20);
    QTest::newRow("nothing stored") << QVariant() << fallback;
    QTest::newRow("garbage") << QVariant(QByteArray("\x01\xd9\xd0\xcbgarbage")) << fallback;
    QTest::newRow("text") << QVariant(QStringLiteral("maximized, please")) << fallback;
    QTest::newRow("cut") << QVariant(cut) << fallback;
    QTest::newRow("far outside") << saved(QRect(5000, 4000, 300, 200)) << QRect();
    QTest::newRow("to the left") << saved(QRect(-3000, -50, 300, 200)) << QRect();
    QTest::newRow("larger than the screen") << saved(QRect(QPoint(0, 0), screen * 3)) << QRect();
}

void TestPlatform::geometryStaysOnScreen()
{
    QFETCH(QVariant, stored);
    QFETCH(QRect, expected);
    QSettings settings;
    settings.clear();
    settings.setValue(QStringLiteral("QMainWindow/geometry"), stored);
    settings.setValue(QStringLiteral("QMainWindow/state"), QByteArray("garbage"));
    QMainWindow window;
    veltRestoreGeometry(&window, settings, QRect(100, 100, 500, 300), true);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(screen.contains(window.geometry()));
    QVERIFY(window.width() >= 100 && window.height() >= 100);
    if (expected.isValid())
        QCOMPARE(window.geometry(), expected);
}

void TestPlatform::help()
{
    // No pages: said in words, nothing is opened.
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
    QString said;
    QTimer::singleShot(0, this, [&said] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        said = box->text();
        box->reject();
    });
    qputenv("XDG_DATA_DIRS", "/nonexistent");
    veltHelpShow(nullptr);
    QVERIFY(!said.isEmpty());
    QVERIFY(m_opened.isEmpty());

    const QString page
        = qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/doc/velt-admin-repo/help/index.html");
    writeFile(page, "<html><body>How it works</body></html>");
    veltHelpShow(nullptr);
    QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(page)});
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));

    // The offscreen platform opens no documents, as a desktop without a browser does not.
    veltHelpShow(nullptr);
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto *browser = windows.isEmpty() ? nullptr : windows.constLast()->findChild<QTextBrowser *>();
    for (const QWidget *window : windows)
        browser = browser != nullptr ? browser : window->findChild<QTextBrowser *>();
    QVERIFY(browser != nullptr);
    QVERIFY(browser->toPlainText().contains(QStringLiteral("How it works")));
    browser->window()->close();
}

VELT_TEST_MAIN(TestPlatform, QApplication)
#include "tst_platform.moc"
