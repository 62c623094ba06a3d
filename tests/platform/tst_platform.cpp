// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"
#include "platform/packagemanager.h"
#include "platform/ui/desktopnotification.h"
#include "platform/ui/desktopsetup.h"
#include "platform/ui/windowgeometry.h"
#include "support/privatebus.h"
#include "support/testenvironment.h"

#include <QDBusConnection>
#include <QtWidgets>

#include <utility>

class TestPlatform : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public Q_SLOTS:
    uint Notify(const QString &application,
                uint,
                const QString &icon,
                const QString &summary,
                const QString &body,
                const QStringList &,
                const QVariantMap &,
                int)
    {
        m_notifications << QStringList{application, icon, summary, body}.join("|"_s);
        return 1;
    }

private:
    QStringList m_notifications;

private Q_SLOTS:
    void initTestCase()
    {
        veltInit("1.2.3+x"_s, "Display name"_s);
        veltSetUpDesktop();
        QCOMPARE(QSettings().fileName(),
                 qEnvironmentVariable("XDG_CONFIG_HOME") + "/corvana/velt-admin-repo.conf"_s);
    }

    void everyIconOfTheProgramIsThere()
    {
        // Names in calls and in forms; those of tables cannot be told from other texts.
        const QRegularExpression use(
            "(?:fromTheme|withOverlay|give)\\s*\\([^\";]*\"([\\w-]+)\"|theme=\"([\\w-]+)\""_s);
        QStringList names = "kgpg signed-package velt-admin-alternatives synaptic folder dialog-question "
                            "dialog-close dialog-ok-apply"_s.split(u' ');
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
        for (const QString &name : std::as_const(names)) {
            for (const int size : {16, 22, 48})
                QVERIFY2(!QIcon::fromTheme(name).pixmap(size, size).isNull(), qPrintable(name));
        }
    }

    void installedPackages()
    {
        const QString listing = "||/ Name  Version Architecture Description\n"
                                "ii  gpgv           2.2 amd64 x\n"
                                "hi  held:amd64     1   amd64 on hold\n"
                                "rc  gone           1   amd64 only its settings are left\n"
                                "iU  halfway        1   amd64 x\n"
                                "ii  libstdc++6     1   amd64 needs ii  gpg x\n"_s;
        const auto listed = [&listing](const char *name) {
            return VeltAdmin::PackageManager::listsAsInstalled(listing, QLatin1String(name));
        };
        for (const char *name : {"gpgv", "held", "libstdc++6"})
            QVERIFY2(listed(name), name);
        for (const char *name : {"gpg", "gone", "halfway", "libstdc.+", "Name", ""})
            QVERIFY2(!listed(name), name);
    }

    void askingThePackageDatabase()
    {
        VELT_NEED_TOOL("dpkg");
        using VeltAdmin::PackageManager;
        // A narrow terminal must not cut names.
        qputenv("COLUMNS", "20");
        QMap<QString, bool> answers;
        for (const char *asked : {"dpkg", "no-such-package", "-l", "d*"}) {
            const QString name = QLatin1String(asked);
            PackageManager::isPackageInstalled(name, this, [&answers, name](bool is) { answers[name] = is; });
            QVERIFY(!answers.contains(name));
            QCOMPARE(PackageManager::isPackageInstalled(name), name == "dpkg"_s);
        }
        QTRY_COMPARE(answers.size(), 4);
        QCOMPARE(answers.key(true), "dpkg"_s);
        QCOMPARE(answers.values().count(true), 1);
    }

    void startsNoPackageManagerInVain()
    {
        // What it tells one that is there, the dialogs' test shows.
        const QTemporaryDir folder;
        const ScopedVariable alone("PATH", folder.path());
        QVERIFY(!VeltAdmin::PackageManager::runSynapticWithPackageSelected("kgpg"_s, false));
        writeScript(folder.filePath("synaptic-pkexec"_s), "#!/bin/sh\n");
        QVERIFY(!VeltAdmin::PackageManager::runSynapticWithPackageSelected("a b\nc remove"_s, false));
        QVERIFY(VeltAdmin::PackageManager::runSynapticWithPackageSelected("kgpg"_s, false));
    }

    void notificationReachesTheDesktop()
    {
        VELT_NEED_TOOL("dbus-daemon");
        const PrivateBus bus;
        const ScopedVariable session("DBUS_SESSION_BUS_ADDRESS", bus.address());
        QDBusConnection desktop = QDBusConnection::connectToBus(bus.address(), "desktop"_s);
        QVERIFY(desktop.registerService("org.freedesktop.Notifications"_s));
        QVERIFY(desktop.registerObject(
            "/org/freedesktop/Notifications"_s, this, QDBusConnection::ExportAllSlots));
        DesktopNotification::show("It is done."_s, "/srv/<b>"_s);
        QTRY_COMPARE(m_notifications,
                     QStringList{"Display name|velt-admin-repo|It is done.|/srv/&lt;b&gt;"_s});
        QDBusConnection::disconnectFromBus("desktop"_s);
    }

    void geometryComesBack()
    {
        QSettings settings;
        const QRect rect(40, 50, 400, 300);
        const QRect fallback(0, 0, 100, 100);
        QMainWindow window;
        QMainWindow again;
        window.setGeometry(rect);
        veltSaveGeometry(&window, settings, true);
        veltRestoreGeometry(&again, settings, fallback, false);
        QCOMPARE(again.geometry(), rect);

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
        const QVariantList useless{
            {}, QByteArray("\x01\xd9\xd0\xcbgarbage"), "x"_s, cut, "1|2"_list, QRect(1, 2, 3, 4)};
        for (const QVariant &bad : useless + QVariantList{saved(QRect(10, 10, 2, 1))})
            QCOMPARE(restored(bad), fallback);
        for (const QRect &outside : {QRect(5000, 4000, 300, 200),
                                     QRect(-3000, -50, 300, 200),
                                     QRect(QPoint(0, 0), screen.size() * 3)}) {
            const QRect rect = restored(saved(outside));
            QVERIFY(screen.contains(rect) && rect.width() >= 100 && rect.height() >= 100);
        }

        // With the frame that the window had the last time, or some frame; also for the default.
        for (const QVariant &frame : {QVariant(QVariantList{5, 30, 5, 6}), QVariant("x"_s)}) {
            QSettings().setValue("QMainWindow/frame"_s, frame);
            QMainWindow window;
            QSettings settings;
            settings.remove("QMainWindow/geometry"_s);
            veltRestoreGeometry(&window, settings, screen.adjusted(-10, -10, 10, 10), false);
            for (const QRect &rect : {window.geometry(), restored(saved(screen))}) {
                QVERIFY(rect.top() >= screen.top() + 15 && screen.contains(rect));
                QVERIFY(frame == "x"_s || screen.contains(rect.adjusted(-5, -30, 5, 6)));
            }
        }
        QSettings().remove("QMainWindow/frame"_s);
    }
};

VELT_TEST_MAIN(TestPlatform, QApplication)
#include "tst_platform.moc"
