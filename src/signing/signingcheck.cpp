// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/signingcheck.h"

#include "platform/packagemanager.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTimer>

#include <algorithm>

namespace
{
const QLatin1String gpg("gpg");

SigningCheck judged(QProcess *process)
{
    SigningCheck check;
    if (process->error() == QProcess::FailedToStart)
        check.errorText = gpg + QLatin1String(": ") + process->errorString();
    else if (process->exitStatus() == QProcess::CrashExit || process->exitCode() != 0)
        check.errorText = QString::fromUtf8(process->readAllStandardError());
    else
        check.canSign = SigningCheck::listsSigningKey(QString::fromUtf8(process->readAllStandardOutput()));
    return check;
}

void listKeys(QObject *context, const SigningCheck::Answer &answer)
{
    constexpr int TimeLimit = 30000; // milliseconds
    auto *process = new QProcess(context);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process->setProcessEnvironment(environment);
    const auto give = [process, answer] {
        process->disconnect();
        process->deleteLater();
        answer(judged(process));
    };
    QObject::connect(
        process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), context, [give] { give(); });
    QObject::connect(
        process,
        &QProcess::errorOccurred,
        context,
        [give](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                give();
        },
        Qt::QueuedConnection);
    QTimer::singleShot(TimeLimit, process, [process] { process->kill(); });
    process->start(gpg, {QStringLiteral("--list-keys")}, QIODevice::ReadOnly);
}
} // namespace

void SigningCheck::verifySigningKeys(QObject *context, const Answer &answer)
{
    VeltAdmin::PackageManager::isPackageInstalled(gpg, context, [context, answer](bool isInstalled) {
        if (isInstalled) {
            listKeys(context, answer);
            return;
        }
        SigningCheck check;
        check.missingPackage = gpg;
        answer(check);
    });
}

bool SigningCheck::listsSigningKey(const QString &listing)
{
    const QStringList lines = listing.split(QLatin1Char('\n'));
    return std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
        return line.startsWith(QLatin1String("pub")) && line.contains(QLatin1String("SC"));
    });
}
