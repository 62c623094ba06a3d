// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"
#include "platform/help.h"
#include "platform/velticon.h"
#include "platform/windowgeometry.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QtTest>
#include <QtWidgets>

class TestPlatform : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private:
    QList<QUrl> m_opened;

private Q_SLOTS:
    void initTestCase()
    {
        veltInit("1.2.3+x"_s, "Display name"_s);
        QCOMPARE(QSettings().fileName(),
                 qEnvironmentVariable("XDG_CONFIG_HOME") + "/corvana/velt-admin-repo.conf"_s);
    }

    void everyIconOfTheProgramIsThere()
    {
        // Names in calls and in forms; those of tables cannot be told from other texts.
        const QRegularExpression use(
            "(?:fromTheme|withOverlay|give)\\s*\\([^\";]*\"([\\w-]+)\"|theme=\"([\\w-]+)\""_s);
        QStringList names = "kgpg signed-package velt-admin-alternatives synaptic folder dialog-question "
                            "dialog-close dialog-ok-apply"_s.split(QLatin1Char(' '));
        QDirIterator files(
            QStringLiteral(SOURCE_FOLDER), {"*.cpp"_s, "*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            auto matches = use.globalMatch(QString::fromUtf8(readFile(files.next())));
            while (matches.hasNext()) {
                const QRegularExpressionMatch match = matches.next();
                names.append(match.captured(1) + match.captured(2));
            }
        }
        for (const char *known : {"server-database", "view-list-details", "archive-insert"})
            QVERIFY2(names.contains(QLatin1String(known)), "the search finds no names any more");
        for (const QString &name : qAsConst(names)) {
            for (const int size : {16, 22, 48})
                QVERIFY2(!QIcon::fromTheme(name).pixmap(size, size).isNull(), qPrintable(name));
        }
    }

    void overlayMarksOneCorner()
    {
        const auto image = [](const char *overlay) {
            const QIcon icon = VeltIcon::withOverlay("folder"_s, QLatin1String(overlay));
            return icon.pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
        };
        const QImage plain = image("");
        const QImage marked = image("dialog-close");
        QCOMPARE(marked.size(), plain.size());
        QCOMPARE(marked.copy(0, 0, 32, 16), plain.copy(0, 0, 32, 16));
        QVERIFY(marked != plain);
        QVERIFY(marked != image("dialog-ok-apply"));
    }

    void geometryComesBack()
    {
        QSettings settings;
        const QRect rect(40, 50, 400, 300);
        const QRect fallback(0, 0, 100, 100);
        QMainWindow window;
        QMainWindow again;
        for (QMainWindow *one : {&window, &again}) {
            auto *dock = new QDockWidget(one);
            dock->setObjectName("dock"_s);
            one->addDockWidget(Qt::BottomDockWidgetArea, dock);
        }
        window.findChild<QDockWidget *>()->hide();
        window.setGeometry(rect);
        veltSaveGeometry(&window, settings, true);
        veltRestoreGeometry(&again, settings, fallback, false);
        QCOMPARE(again.geometry(), rect);
        QVERIFY(!again.findChild<QDockWidget *>()->isHidden());
        veltRestoreGeometry(&again, settings, fallback, true);
        QVERIFY(again.findChild<QDockWidget *>()->isHidden());

        window.setWindowState(Qt::WindowMaximized);
        veltSaveGeometry(&window, settings, true);
        veltRestoreGeometry(&again, settings, fallback, true);
        QVERIFY(again.isMaximized());
    }

    void geometryStaysOnScreen()
    {
        const QRect fallback(100, 100, 500, 300);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const auto restored = [](const QVariant &stored) {
            QSettings settings;
            settings.setValue("QMainWindow/geometry"_s, stored);
            settings.setValue("QMainWindow/state"_s, QByteArray("garbage"));
            QMainWindow window;
            veltRestoreGeometry(&window, settings, QRect(100, 100, 500, 300), true);
            return window.geometry();
        };
        const auto saved = [](const QRect &rect) {
            QMainWindow window;
            window.setGeometry(rect);
            return window.saveGeometry();
        };
        const QByteArray cut = saved(QRect(10, 10, 200, 200)).left(20);
        for (const QVariant &bad :
             {QVariant(), QVariant(QByteArray("\x01\xd9\xd0\xcbgarbage")), QVariant("x"_s), QVariant(cut)})
            QCOMPARE(restored(bad), fallback);
        for (const QRect &outside : {QRect(5000, 4000, 300, 200),
                                     QRect(-3000, -50, 300, 200),
                                     QRect(QPoint(0, 0), screen.size() * 3)}) {
            const QRect rect = restored(saved(outside));
            QVERIFY(screen.contains(rect) && rect.width() >= 100 && rect.height() >= 100);
        }
    }

    void help()
    {
        // No pages: said in words, nothing is opened.
        QDesktopServices::setUrlHandler("file"_s, this, "openUrl");
        QString said;
        QTimer::singleShot(0, this, [&said] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            said = box->text();
            box->reject();
        });
        qputenv("XDG_DATA_DIRS", "/nonexistent");
        veltHelpShow(nullptr);
        QVERIFY(!said.isEmpty() && m_opened.isEmpty());

        const QString page = qEnvironmentVariable("XDG_DATA_HOME") + "/doc/velt-admin-repo/help/index.html"_s;
        writeFile(page, "<html><body>How it works</body></html>");
        veltHelpShow(nullptr);
        QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(page)});

        // The offscreen platform opens no documents, as a desktop without a browser does not.
        QDesktopServices::unsetUrlHandler("file"_s);
        veltHelpShow(nullptr);
        QTRY_VERIFY(QApplication::activeWindow() != nullptr);
        QWidget *window = QApplication::activeWindow();
        auto *browser = window->findChild<QTextBrowser *>();
        QVERIFY(browser != nullptr);
        QVERIFY(browser->toPlainText().contains("How it works"_s));
        window->close();
    }
};

VELT_TEST_MAIN(TestPlatform, QApplication)
#include "tst_platform.moc"
