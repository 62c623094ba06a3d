// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/journal.h"
#include "helper/manager.h"
#include "helper/privilegedwork.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <cstdlib>

#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** Clears the environment of the program that started us, except the address of the bus. */
void cleanEnvironment()
{
    const QByteArray bus = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    ::clearenv();
    if (!bus.isEmpty())
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus);
    qputenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin");
    // Not for the language: in another locale, Qt would misread file names that are not ASCII.
    qputenv("LC_ALL", "C.UTF-8");
}

/** A descriptor that becomes readable when a signal asks the program to end. Call it before any thread starts. */
int takeSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : std::array{SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, number);
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return ::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}
} // namespace

int main(int argc, char *argv[])
{
    cleanEnvironment();
    ::umask(022);
    if (::chdir("/") != 0)
        return EXIT_FAILURE;
    const int signals = takeSignals();

    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("velt-admin-repo-helper"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELT_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Publishes package repositories for velt-admin-repo. The system bus starts it."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption idleTime(QStringLiteral("idle-time"),
                                      QStringLiteral("End after this time without a request."),
                                      QStringLiteral("milliseconds"),
                                      QStringLiteral("60000"));
    parser.addOption(idleTime);
    parser.process(application);
    bool isNumber = false;
    const int idle = parser.value(idleTime).toInt(&isNumber);
    if (!isNumber || idle < 1 || !parser.positionalArguments().isEmpty())
        parser.showHelp(EXIT_FAILURE);

    Journal::takeMessages();
    BusConnection bus;
    PrivilegedWork work;
    Manager manager(
        bus,
        {[&work] { work.recover(); }, [&work](const HelperRequest &request) { return work.run(request); }},
        {std::chrono::milliseconds(idle)});
    const auto giveUp = [](const QString &reason) {
        Journal::write(Journal::Error,
                       QStringLiteral("The name %1 is not to be had on the system bus: %2")
                           .arg(Manager::Service, reason));
        QCoreApplication::exit(EXIT_FAILURE);
    };
    QObject::connect(&manager, &Manager::unavailable, &application, giveUp);
    QObject::connect(
        &manager, &Manager::finished, &application, &QCoreApplication::quit, Qt::QueuedConnection);
    // Without the bus there are no callers.
    QObject::connect(&bus, &BusConnection::lost, &application, &QCoreApplication::quit);
    QSocketNotifier stopping(signals, QSocketNotifier::Read);
    QObject::connect(&stopping, &QSocketNotifier::activated, &manager, [&manager, signals] {
        signalfd_siginfo taken{};
        if (::read(signals, &taken, sizeof taken) == sizeof taken)
            manager.stop();
    });
    if (!bus.isOpen()) {
        giveUp(bus.errorText());
        return EXIT_FAILURE;
    }
    manager.start();
    return QCoreApplication::exec();
}
