// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptcommands.h"

#include <QRegularExpression>

#include <algorithm>

namespace
{
const QString SourceListKey = QStringLiteral("Dir::Etc::sourcelist");

QRegularExpression whole(const QString &pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}
} // namespace

namespace AptCommands
{
QStringList privateListOptions(const QString &listFile)
{
    if (listFile.isEmpty())
        return {};
    return {QStringLiteral("-o"), QStringLiteral("%1=%2").arg(SourceListKey, listFile)};
}

QStringList policyArguments(const QString &listFile)
{
    return QStringList{QStringLiteral("policy")} + privateListOptions(listFile);
}

QStringList providersArguments(const QString &name, const QString &listFile)
{
    return QStringList{QStringLiteral("showpkg"), name} + privateListOptions(listFile);
}

QStringList versionsArguments(const QString &name, const QString &architecture, const QString &listFile)
{
    return recordsArguments(QStringLiteral("%1:%2").arg(name, architecture), listFile);
}

QStringList recordsArguments(const QString &name, const QString &listFile)
{
    return recordsArguments(QStringList{name}, listFile);
}

QStringList recordsArguments(const QStringList &names, const QString &listFile)
{
    return QStringList{QStringLiteral("show")} + names + QStringList{QStringLiteral("-a")}
           + privateListOptions(listFile);
}

QStringList paragraphsArguments(const QStringList &names)
{
    return QStringList{QStringLiteral("show")} + names;
}

QStringList downloadArguments(const QString &name, const QString &version, const QString &architecture)
{
    return {QStringLiteral("download"), QStringLiteral("%1:%2=%3").arg(name, architecture, version)};
}

QStringList downloadArguments(const QVector<AptDownload> &packages)
{
    QStringList arguments{QStringLiteral("-q"), QStringLiteral("download")};
    for (const AptDownload &package : packages)
        arguments.append(QStringLiteral("%1:%2=%3").arg(package.name, package.architecture, package.version));
    return arguments;
}

QStringList downloadHashesArguments(const QVector<AptDownload> &packages)
{
    return QStringList{QStringLiteral("--print-uris")} + downloadArguments(packages);
}

QStringList searchArguments(const QString &prefix)
{
    // apt reads the text as an extended regular expression, where a plus repeats. For grep a plus is an ordinary
    // character.
    QString expression = prefix;
    expression.replace(QLatin1Char('+'), QLatin1String("\\\\+"));
    return {QStringLiteral("-c"),
            QStringLiteral("%1 search %2 | grep ^%3  | cut -d'/' -f1").arg(Apt, expression, prefix)};
}

bool isPackageName(const QString &name)
{
    // Less strict than the rule of the archive: dpkg accepts capital letters and underscores, and such packages exist.
    static const QRegularExpression expression = whole(QStringLiteral("[A-Za-z0-9][A-Za-z0-9+._-]*"));
    return expression.match(name).hasMatch();
}

bool isArchitecture(const QString &architecture)
{
    static const QRegularExpression expression = whole(QStringLiteral("[a-z0-9][a-z0-9-]*"));
    return expression.match(architecture).hasMatch();
}

bool isSearchPrefix(const QString &text)
{
    static const QRegularExpression expression = whole(QStringLiteral("[a-z0-9][a-z0-9+.-]*"));
    return expression.match(text).hasMatch();
}

QString fileName(const QString &name, const QString &version, const QString &architecture)
{
    // apt writes the colon after an epoch as "%3a".
    QString escaped = version;
    escaped.replace(QLatin1Char(':'), QLatin1String("%3a"));
    return QStringLiteral("%1_%2_%3.deb").arg(name, escaped, architecture);
}

QString fileOf(const AptDownload &package, const QStringList &files)
{
    // The file for "all" can be that of a package with the same name and another architecture.
    for (const QString &architecture : {package.architecture, QStringLiteral("all")}) {
        // From the start of the name to the dot of the suffix; otherwise libfoo_1_amd64.deb would match foo.
        const QString start
            = fileName(package.name, package.version, architecture).section(QLatin1Char('.'), 0, -2)
              + QLatin1Char('.');
        const auto file = std::find_if(
            files.cbegin(), files.cend(), [&start](const QString &name) { return name.startsWith(start); });
        if (file != files.cend())
            return *file;
    }
    return {};
}
} // namespace AptCommands
