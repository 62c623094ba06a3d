// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/dpkgutils.h"

#include "files/scratchfolder.h"

bool DpkgUtils::packageInformation(const QString &path)
{
    // A few kilobytes of control data can unpack to so much that they fill memory and disk.
    constexpr qint64 OutputLimit = 4 << 20;
    constexpr qint64 FileLimit = 256 << 20;
    setLimits(OutputLimit, FileLimit);
    // dpkg unpacks the control data into a folder, and leaves this folder behind when it is killed.
    const ScratchFolder folder;
    if (folder.isValid())
        setEnvironment({QLatin1String("TMPDIR=") + folder.path()});
    const bool succeeded = ask({QStringLiteral("-I"), path});
    setEnvironment({});
    if (result().tooLarge || errorOutput().contains(QLatin1String("File size limit exceeded")))
        m_errorText = tr("The control data of the package are too large.");
    return succeeded;
}

bool DpkgUtils::compareVersions(const QString &versionA, const QString &op, const QString &versionB)
{
    // dpkg reads leading words with a dash as options, and no version begins with a dash.
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
