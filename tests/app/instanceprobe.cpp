// SPDX-License-Identifier: GPL-3.0-or-later
// A start of the program without its window: what the tests start several times at once.
//   instanceprobe RECORD START_MS TIMEOUT_MS [FILE...]
// The first one appends "first" and then every message to RECORD, one a line; starting takes it START_MS.
#include "app/commandline.h"
#include "app/singleinstance.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>

namespace
{
void record(const QString &path, const QString &line)
{
    QFile file(path);
    if (!file.open(QIODevice::Append) || file.write(line.toUtf8() + '\n') < 0)
        qFatal("cannot write the record");
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    CommandLine commandLine;
    commandLine.process(application);
    QStringList files = commandLine.packageFiles();
    const QString recordPath = files.takeFirst();
    const QStringList arguments = QCoreApplication::arguments();
    files.erase(files.begin(), files.begin() + 2);

    SingleInstance instance(
        SingleInstance::privateFolder(qEnvironmentVariable("XDG_RUNTIME_DIR"), QStringLiteral("/tmp")));
    if (!instance.isFirst()) {
        const QString message = files.isEmpty() ? QStringLiteral("raise") : files.join(u'&');
        constexpr int endingTimeout = 5000;
        if (instance.handOver(message, arguments.at(3).toInt(), endingTimeout) != SingleInstance::BecameFirst)
            return -1;
    }
    record(recordPath, QStringLiteral("first"));
    // A start that builds a big window delivers no events meanwhile.
    QThread::msleep(arguments.at(2).toULong());
    QObject::connect(&instance,
                     &SingleInstance::messageReceived,
                     &application,
                     [&recordPath](const QString &message) { record(recordPath, message); });
    instance.startDelivery();
    return QCoreApplication::exec();
}
