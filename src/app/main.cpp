// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"
#include "app/singleinstance.h"
#include "core/qtversions.h"
#include "depends/dependsdata.h"
#include "engine/archive/archiveutils.h"
#include "engine/storedresults.h"
#include "files/saveleftovers.h"
#include "files/scratchfolder.h"
#include "installability/installabilitystore.h"
#include "platform/desktopintegration.h"
#include "platform/ui/desktopsetup.h"
#include "ui/widgets/iconstyle.h"
#include "ui/window/mainwindow.h"

#include <KSignalHandler>

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <csignal>

namespace
{
constexpr int handOverTimeout = 5000; // milliseconds
// An instance that is ending finishes the present file of its job, which can be large.
constexpr int endingTimeout = 60000; // milliseconds
constexpr int drainInterval = 20; // milliseconds
constexpr int jobThreads = 8;
constexpr int alreadyRunning = -1; // exit code of a start that passed its files to another instance

void init()
{
    veltInit(QStringLiteral(VELT_VERSION), QStringLiteral("Velt admin repo"));
}

QStringList argumentsWithoutProgram(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

void activate(QWidget *window)
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

/** Shows why the files of this start were not added: on the terminal and, if there is a screen, in a box. */
void tellNotDelivered(SingleInstance::Outcome outcome, const QStringList &files)
{
    const char *reason
        = outcome == SingleInstance::TooLong
              ? QT_TRANSLATE_NOOP("main", "These are too many files for one start of the program.")
              : QT_TRANSLATE_NOOP("main", "The program is running already and does not answer.");
    const QString text = QCoreApplication::translate("main", reason);
    QTextStream(stderr) << text << '\n';
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return;
    QMessageBox box(QMessageBox::Warning, QGuiApplication::applicationDisplayName(), text);
    box.setTextFormat(Qt::PlainText);
    // An instance that is only slow will read the files later.
    if (!files.isEmpty() && outcome == SingleInstance::TooLong)
        box.setInformativeText(QCoreApplication::translate("main", "Nothing has been added."));
    box.exec();
}

/**
 * Waits for the jobs that still run after the event loop. A job may wait for an answer from the interface thread.
 * Without the delivery of such calls it would block the application's destructor for ever.
 */
void drainThreadPool()
{
    while (!QThreadPool::globalInstance()->waitForDone(drainInterval))
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}
} // namespace

int main(int argc, char *argv[])
{
    if (CommandLine::asksForTextOnly(argumentsWithoutProgram(argc, argv))) {
        const QCoreApplication application(argc, argv);
        init();
        CommandLine().process(application);
    }

    QtVersions::enableHighDpi();
    // With rounding, a scale factor of 1.5 would become 2.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication application(argc, argv);
    init();
    veltSetUpDesktop();
    QApplication::setStyle(new IconStyle);
    CommandLine commandLine;
    commandLine.process(application);
    const QStringList files = commandLine.packageFiles();

    SingleInstance instance(
        SingleInstance::privateFolder(qEnvironmentVariable("XDG_RUNTIME_DIR"), QStringLiteral("/tmp")));
    if (!instance.isFirst()) {
        const QString message = files.isEmpty() ? QStringLiteral("raise") : files.join(QLatin1Char('&'));
        const SingleInstance::Outcome outcome = instance.handOver(message, handOverTimeout, endingTimeout);
        if (outcome == SingleInstance::NotDelivered || outcome == SingleInstance::TooLong)
            tellNotDelivered(outcome, files);
        if (outcome != SingleInstance::BecameFirst)
            return alreadyRunning;
    }

    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("server-database")));
    const auto written = qScopeGuard(&StoredResults::waitForAll);
    MainWindow window;
    KSignalHandler *const signalHandler = KSignalHandler::self();
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        signalHandler->watchSignal(signal);
    QObject::connect(
        signalHandler, &KSignalHandler::signalReceived, &window, &MainWindow::closeWithoutAsking);
    QObject::connect(&instance, &SingleInstance::messageReceived, &window, [&window](const QString &message) {
        activate(&window);
        window.onMessageReceived(message);
    });
    // Later starts wait until this instance has ended, and then become the first instance.
    QObject::connect(&window, &MainWindow::closingBegan, &instance, &SingleInstance::stopListening);
    window.show();
    instance.startDelivery();
    // Queued, because it may open a box. A request to end the program must find the main event loop running.
    if (!files.isEmpty()) {
        QMetaObject::invokeMethod(
            &window, [&window, files] { window.addPackagesFromOutside(files, false); }, Qt::QueuedConnection);
    }

    // Jobs mostly wait for programs, so jobs of some tabs must not prevent jobs of others.
    QThreadPool::globalInstance()->setMaxThreadCount(std::max(jobThreads, QThread::idealThreadCount()));

    // Deletes leftovers of killed runs in the background.
    QThreadPool::globalInstance()->start([] {
        ScratchFolder::removeLeftovers();
        SaveLeftovers::remove(QSettings().fileName());
        SaveLeftovers::remove(DependsData::userFileName());
        SaveLeftovers::remove(InstallabilityStore::userFileName());
        ArchiveUtils::removeLeftover();
    });

    const int code = QApplication::exec();
    instance.stopListening();
    drainThreadPool();
    return code;
}
