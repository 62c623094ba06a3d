// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settingskeys.h"
#include "e2e/windowdriver.h"
#include "installability/completecheckbase.h"
#include "platform/desktopintegration.h"
#include "platform/ui/desktopsetup.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QtWidgets>

#include <memory>

#define WAIT_FOR(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), 30000)

/** What the programs that go through the window share: a folder, repositories that reprepro makes, and the window. */
class WindowTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<QTemporaryDir> m_folder = std::make_unique<QTemporaryDir>("/tmp/vaXXXXXX"_s);
    std::unique_ptr<WindowDriver> m_driver;

    QString path(const QString &name) const { return m_folder->filePath(name); }
    QAction *action(const char *name) const { return child<QAction>(m_driver->window(), name); }
    QTreeView *tree() const { return child<QTreeView>(*m_driver->tab(), "m_repoTreeView"); }
    bool has(const QString &message) const { return m_driver->isIdle() && m_driver->message() == message; }

    QString package(const QString &name, const QString &version = "1"_s, const QByteArray &contents = "x\n")
    {
        return DebBuilder(name).version(version).contents(contents).build(path("files-"_s + version));
    }

    static QByteArray outputOf(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(-1) || process.exitCode() != 0)
            qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    /** Makes a repository with reprepro itself, for tests that are not about creating. */
    QString makeRepository(const QString &name, const QStringList &packages = {}) const
    {
        QString repository = path(name);
        writeFile(repository + "/conf/distributions"_s,
                  "Origin: Debian\nCodename: birch\nSuite: stable\nVersion: 1\nArchitectures: amd64\n"
                  "Components: main contrib\nUDebComponents: main contrib\n");
        const QStringList job = packages.isEmpty() ? "export"_list : "includedeb|birch"_list;
        outputOf("/usr/bin/reprepro"_s, QStringList{"-s"_s, "-b"_s, repository} + job + packages);
        return repository;
    }

    /** "name version" of each package that reprepro lists, sorted; also for installer packages. */
    static QString packagesOf(const QString &repository)
    {
        const QStringList base{"-b"_s, repository, "--list-format"_s, "${package} ${version}\n"_s};
        const QByteArray list = outputOf("/usr/bin/reprepro"_s, base + "list|birch"_list);
        QStringList lines = QString::fromUtf8(list).split("\n"_s, Qt::SkipEmptyParts);
        lines.sort();
        return lines.join(", "_s);
    }

    /** Chooses a file or folder, given as a whole path, in a file dialog. */
    static Script::Step choose(const QString &title, const QString &file)
    {
        return inDialog<QFileDialog>(title, [file](QFileDialog &dialog) {
            dialog.setDirectory(QFileInfo(file).path());
            child<QLineEdit>(dialog, "fileNameEdit")->setText(QFileInfo(file).fileName());
            return QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    /** For tests that are not about the public sources: with sanitizers, reading all that they offer takes long. */
    static void checkAgainstNothing()
    {
        QSettings().setValue(SettingsKey::CompleteCheckBase, int(CompleteCheckBase::Nothing));
    }

    /** Starts the window anew, which opens what was open when the last one closed. */
    bool restart(const QStringList &repositories)
    {
        m_driver.reset();
        QSettings().setValue(SettingsKey::ShowAddPkgSettings, false);
        QSettings().setValue(SettingsKey::RecentOpennedRepos, repositories);
        m_driver = std::make_unique<WindowDriver>();
        return QTest::qWaitFor([&] { return m_driver->isIdle(repositories.size()); }, 20000);
    }

    void close()
    {
        if (m_driver == nullptr)
            return;
        m_driver->window().closeWithoutAsking();
        WAIT_FOR(!m_driver->window().isVisible());
        m_driver.reset();
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        veltInit("0"_s, "Velt admin repo"_s);
        veltSetUpDesktop();
        // The window quits the application when it closes; here the tests go on.
        QApplication::setQuitOnLastWindowClosed(false);
        prepare();
    }

    void cleanup()
    {
        if (QTest::currentTestFailed() && m_driver != nullptr)
            qInfo("%s", qPrintable(m_driver->log()));
        finish();
    }

    void cleanupTestCase() { close(); }

protected:
    /** What a program needs once, and what it does after each test. */
    virtual void prepare() { }
    virtual void finish() { }
};
