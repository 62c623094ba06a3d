// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/repreproanswers.h"

#include <QRegularExpression>

bool ReproAnswer::signingFailed(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("gpgme gave error"));
}

bool ReproAnswer::priorityMissing(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("No priority given for"));
}

bool ReproAnswer::componentMissing(const QString &errorOutput)
{
    static const QRegularExpression report(
        QStringLiteral("^Error: Component '.*' as given to --component is not know\\."),
        QRegularExpression::MultilineOption);
    return report.match(errorOutput).hasMatch();
}

bool ReproAnswer::componentWithoutUdebs(const QString &errorOutput)
{
    static const QRegularExpression report(QStringLiteral("^Could not find '.*' in components of '"),
                                           QRegularExpression::MultilineOption);
    return report.match(errorOutput).hasMatch();
}

bool ReproAnswer::inclusionSkipped(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("Skipping inclusion of"));
}

bool ReproAnswer::databaseLocked(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("The lock file '"))
           && errorOutput.contains(QLatin1String("' already exists"));
}

bool ReproAnswer::databaseTroubled(const QString &errorOutput)
{
    // Messages also contain file names, which can be any text, so only the start of a line is matched.
    static const QRegularExpression trouble(
        QStringLiteral("^(BDB\\d{4} |Internal error of the underlying BerkeleyDB database:"
                       "|db_\\w+\\(.*\\)\\[-?\\d+\\]: BDB\\d{4} "
                       "|Database .* returned corrupted( \\(not [a-z-]+\\))? data!)"),
        QRegularExpression::MultilineOption);
    return trouble.match(errorOutput).hasMatch();
}

bool ReproAnswer::indicesOutdated(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("but no index file was exported"))
           || errorOutput.contains(QLatin1String("Could not finish exporting"));
}

bool ReproAnswer::diskFull(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("No space left on device"))
           || errorOutput.contains(QLatin1String("Disk quota exceeded"));
}

QStringList ReproAnswer::vanishedParts(const QString &output)
{
    static const QRegularExpression report(
        QStringLiteral("^There are still packages in '([^']*)', not removing"),
        QRegularExpression::MultilineOption);
    QStringList parts;
    auto reports = report.globalMatch(output);
    while (reports.hasNext())
        parts << reports.next().captured(1);
    return parts;
}

bool ReproAnswer::nothingRemoved(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("Not removed as not found"));
}

QSet<QString> ReproAnswer::addedPlaces(const QString &output)
{
    static const QRegularExpression report(
        QStringLiteral("^db: '([^']*)' added to packages\\.db\\(([^)]*)\\)\\.$"),
        QRegularExpression::MultilineOption);
    QSet<QString> places;
    auto reports = report.globalMatch(output);
    while (reports.hasNext()) {
        const QRegularExpressionMatch match = reports.next();
        places.insert(match.captured(2) + QLatin1Char(' ') + match.captured(1));
    }
    return places;
}

QString ReproAnswer::place(const QString &codename,
                           const QString &component,
                           const QString &architecture,
                           const QString &name)
{
    return QStringLiteral("%1|%2|%3 %4").arg(codename, component, architecture, name);
}

bool ReproAnswer::otherFileInPool(const QString &errorOutput)
{
    return errorOutput.contains(QLatin1String("Already existing files can only be included again"))
           || errorOutput.contains(QLatin1String("already registered with different checksums"));
}
