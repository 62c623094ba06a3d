// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repreprorunner.h"

#include "engine/repreprocommands.h"

#include <QProcess>

ProcessResult runReproOn(const QString &path, const QString &arguments, const QStringList &environment)
{
    QStringList words = QProcess::splitCommand(ReproCommand::commandLine(path, arguments));
    const QString program = words.takeFirst();
    // A folder in the user's environment must not take the place of the repository's own configuration.
    const QString variable = QStringLiteral("REPREPRO_CONFIG_DIR=");
    const QString conf = path + QLatin1String("/conf");
    ProcessResult result
        = runProcess({program, words, QString(), QStringList{variable + conf} + environment, 0022});
    // A stand-in for that configuration is ours alone: what reprepro says of it is true of the repository's own.
    for (const QString &entry : environment) {
        if (entry.startsWith(variable)) {
            result.output.replace(entry.mid(variable.size()), conf);
            result.errorOutput.replace(entry.mid(variable.size()), conf);
        }
    }
    return result;
}
