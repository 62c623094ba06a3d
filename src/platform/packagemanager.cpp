// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/packagemanager.h"

#include "core/processutils.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace
{
bool isPackageName(const QString &name)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[a-z0-9][a-z0-9+.-]+\\z"));
    return pattern.match(name).hasMatch();
}

ProcessCall listingCall(const QString &package)
{
    // dpkg cuts names to the width of the terminal, which COLUMNS overrides.
    return {
        QStringLiteral("dpkg"), {QStringLiteral("-l"), package}, {}, {QStringLiteral("COLUMNS=1000")}, -1};
}

/** synaptic-pkexec, the program of the menu entry, asks for the administrator's password. Plain synaptic needs root. */
QString synapticProgram()
{
    const QString starter = QStandardPaths::findExecutable(QStringLiteral("synaptic-pkexec"));
    return starter.isEmpty() ? QStandardPaths::findExecutable(QStringLiteral("synaptic")) : starter;
}
} // namespace

namespace VeltAdmin
{
bool PackageManager::listsAsInstalled(const QString &listing, const QString &package)
{
    // The first letter is the desired action; a package on hold is installed too. The name can have an architecture
    // suffix, and another name can begin with it.
    const QRegularExpression line(
        QStringLiteral("^[uihrp]i\\s+%1(?::[a-z0-9-]+)?\\s").arg(QRegularExpression::escape(package)),
        QRegularExpression::MultilineOption);
    return isPackageName(package) && line.match(listing).hasMatch();
}

bool PackageManager::isPackageInstalled(const QString &package)
{
    return isPackageName(package) && listsAsInstalled(runProcess(listingCall(package)).output, package);
}

void PackageManager::isPackageInstalled(const QString &package, QObject *context, const Answer &answer)
{
    if (!isPackageName(package)) {
        QMetaObject::invokeMethod(
            context, [answer] { answer(false); }, Qt::QueuedConnection);
        return;
    }
    constexpr int TimeLimit = 30000; // milliseconds
    followProcess(listingCall(package), TimeLimit, context, [package, answer](const ProcessResult &result) {
        answer(listsAsInstalled(result.output, package));
    });
}

bool PackageManager::runSynapticWithPackageSelected(const QString &package, bool refreshLists)
{
    const QString program = synapticProgram();
    if (program.isEmpty() || !isPackageName(package))
        return false;
    // Synaptic reads the selection from its standard input, which stays open after the file is deleted.
    QTemporaryFile selection;
    if (!selection.open() || selection.write(package.toLatin1() + " install\n") < 0 || !selection.flush())
        return false;
    QStringList arguments{QStringLiteral("--set-selections")};
    if (refreshLists)
        arguments << QStringLiteral("--update-at-startup");
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(selection.fileName());
    return process.startDetached();
}
} // namespace VeltAdmin
