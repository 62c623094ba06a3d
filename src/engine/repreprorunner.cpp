// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repreprorunner.h"

#include "engine/repreprocommands.h"

#include <QProcess>

ProcessResult runReproOn(const QString &path, const QString &arguments, const QStringList &environment)
{
    QStringList words = QProcess::splitCommand(ReproCommand::commandLine(path, arguments));
    const QString program = words.takeFirst();
    // A folder in the user's environment must not take the place of the repository's own configuration.
    const QStringList own{QLatin1String("REPREPRO_CONFIG_DIR=") + path + QLatin1String("/conf")};
    return runProcess({program, words, QString(), own + environment, 0022});
}
