// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/repreprorunner.h"

#include "engine/repository/repositorygate.h"
#include "engine/reprepro/repreprocommands.h"

#include <QProcess>

#include <cstdlib>

ProcessResult runReproOn(const Admission &admission, const QString &arguments, const QStringList &environment)
{
    if (!admission.isGranted()) {
        ProcessResult refused;
        refused.started = true;
        refused.exitCode = EXIT_FAILURE;
        refused.errorOutput = admission.reason();
        return refused;
    }
    QStringList words = QProcess::splitCommand(ReproCommand::commandLine(admission.path(), arguments));
    const QString program = words.takeFirst();
    // A folder in the user's environment must not replace the repository's own configuration.
    const QString variable = QStringLiteral("REPREPRO_CONFIG_DIR=");
    const QStringList all = QStringList{variable + admission.configFolder()} + environment;
    ProcessResult result = runProcess({program, words, QString(), all, 0022});
    // Users do not know the private configuration folder, so messages name the repository's own folder instead.
    const QString conf = admission.path() + QLatin1String("/conf");
    for (const QString &entry : all) {
        if (entry.startsWith(variable) && entry != variable + conf) {
            result.output.replace(entry.mid(variable.size()), conf);
            result.errorOutput.replace(entry.mid(variable.size()), conf);
        }
    }
    return result;
}
