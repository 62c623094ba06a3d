// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/dosedebcheck.h"

#include "core/processutils.h"
#include "core/textviews.h"

#include <QTemporaryFile>

QSet<QString> DoseDebcheck::brokenIn(const QString &report)
{
    QSet<QString> broken;
    QString package;
    QString version;
    QString architecture;
    for (const QStringView line : splitView(report, QLatin1Char('\n'))) {
        // What stands farther right belongs to the reasons.
        if (!line.startsWith(QLatin1String("  ")) || line.startsWith(QLatin1String("   ")))
            continue;
        const auto value = [&line](const char *name, QString *target) {
            const QLatin1String start(name);
            if (line.startsWith(start))
                *target = line.mid(start.size()).toString();
            return line.startsWith(start);
        };
        QString status;
        if (value("  package: ", &package) || value("  version: ", &version)
            || value("  architecture: ", &architecture) || !value("  status: ", &status))
            continue;
        if (status == QLatin1String("broken"))
            broken.insert(package + QLatin1Char(' ') + version + QLatin1Char(' ') + architecture);
    }
    return broken;
}

DoseDebcheck::Verdict
DoseDebcheck::judgeFile(const QString &file, const InstallSystem &system, const QStringList &options)
{
    QStringList arguments{QStringLiteral("-f"), QStringLiteral("--deb-native-arch=") + system.native};
    if (!system.foreign.isEmpty())
        arguments.append(QStringLiteral("--deb-foreign-archs=") + system.foreign.join(QLatin1Char(',')));
    const ProcessResult result
        = runProcess({QStringLiteral("dose-debcheck"), arguments + options + QStringList{file}, {}, {}, -1});
    // The exit code is 1 when a package is broken.
    if (!result.started || result.crashed() || result.exitCode > 1)
        return {{}, QStringLiteral("dose-debcheck: ") + result.errorOutput};
    return {brokenIn(result.output), {}};
}

DoseDebcheck::Verdict
DoseDebcheck::judge(const QByteArray &index, const InstallSystem &system, const QStringList &options)
{
    QTemporaryFile file;
    if (!file.open() || file.write(index) != index.size() || !file.flush())
        return {{}, file.errorString()};
    return judgeFile(file.fileName(), system, options);
}
