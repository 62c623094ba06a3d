// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dpkgutils.h"

bool DpkgUtils::packageInformation(const QString &path)
{
    return ask({QStringLiteral("-I"), path});
}

bool DpkgUtils::compareVersions(const QString &versionA, const QString &op, const QString &versionB)
{
    // dpkg looks for options up to the first word without a dash, and no version begins with one.
    if (versionA.startsWith(QLatin1Char('-'))) {
        m_errorText = tr("\"%1\" is not a version").arg(versionA);
        return false;
    }
    return ask({QStringLiteral("--compare-versions"), versionA, op, versionB});
}

bool DpkgUtils::ask(const QStringList &arguments)
{
    const bool succeeded = run(QStringLiteral("dpkg"), arguments, QString());
    if (succeeded)
        m_errorText.clear();
    else if (exitStatus() == QProcess::CrashExit)
        m_errorText = tr("The process dpkg crashed!");
    else
        m_errorText = errorOutput();
    return succeeded;
}
