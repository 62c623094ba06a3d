// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/descriptionrules.h"

#include "engine/repository/descriptionfields.h"
#include "engine/repository/distributions.h"
#include "engine/repository/newreporules.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

namespace
{
const QString Sign = QStringLiteral("sign");
const QString SignKey = QStringLiteral("sign-key");
const QString Contents = QStringLiteral("contents");
const QString ValidFor = QStringLiteral("valid-for");
const QString Yes = QStringLiteral("yes");
const QString No = QStringLiteral("no");

/** "a,b c" as "a b c", which is the form of the description. */
QString listOf(const QString &text)
{
    return QString(text).replace(QLatin1Char(','), QLatin1Char(' ')).simplified();
}

const QMap<QString, QString RepoInfo::*> &texts()
{
    static const QMap<QString, QString RepoInfo::*> members{
        {QStringLiteral("codename"), &RepoInfo::codename},
        {QStringLiteral("suite"), &RepoInfo::suite},
        {QStringLiteral("version"), &RepoInfo::version},
        {QStringLiteral("origin"), &RepoInfo::origin},
        {QStringLiteral("label"), &RepoInfo::label},
        {QStringLiteral("description"), &RepoInfo::description},
    };
    return members;
}

const QMap<QString, QString RepoInfo::*> &lists()
{
    static const QMap<QString, QString RepoInfo::*> members{
        {QStringLiteral("architectures"), &RepoInfo::architectures},
        {QStringLiteral("components"), &RepoInfo::components},
    };
    return members;
}

bool isWhole(const char *pattern, const QString &text)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(pattern)))
        .match(text)
        .hasMatch();
}
} // namespace

QStringList DescriptionRules::fields()
{
    return texts().keys() + lists().keys() + QStringList{Sign, SignKey, Contents, ValidFor};
}

QString DescriptionRules::refusal(const QString &field, const QString &value)
{
    const bool isName = field == QLatin1String("codename") || field == QLatin1String("suite");
    if ((isName && !isWhole("[a-z0-9._-]*", value))
        || (lists().contains(field) && !isWhole("[a-z0-9 -]*", listOf(value))))
        return QCoreApplication::translate(
            "cli", "Names have small letters, digits, hyphens and, for code names and suites, dots.");
    if (field == Sign && value != Yes && value != No)
        return QCoreApplication::translate("cli", "The value of %1 is yes or no.").arg(field);
    if (field == ValidFor && value != QLatin1String("0") && DescriptionFields::days(value) == 0)
        return QCoreApplication::translate(
                   "cli",
                   "The value of %1 is a number of days, such as 30, of %2 at most; 0 stands for no limit.")
            .arg(field)
            .arg(DescriptionFields::MostDays);
    // The path is no field of the description.
    if (!fields().contains(field))
        return DescriptionFields::isOneLine(value)
                   ? QString()
                   : QCoreApplication::translate("cli", "The value of %1 is one line without #.").arg(field);
    if (field == SignKey && value.isEmpty())
        return QCoreApplication::translate("cli", "The value of %1 is a key, or default.").arg(field);
    RepoInfo info;
    set(&info, field, value);
    return DescriptionFields::refusal(info);
}

QString DescriptionRules::refusal(const QString &path, const RepoInfo &info)
{
    using NewRepoRules::Refusal;
    switch (NewRepoRules::check(QFileInfo(path).path(), info)) {
    case Refusal::None:
        break;
    case Refusal::MissingField:
        return QCoreApplication::translate("cli", "A code name, architectures and components are needed.");
    case Refusal::ArchitectureAll:
        return QCoreApplication::translate(
            "cli", "A repository cannot have the architecture all: packages for all go to each of its own.");
    case Refusal::BadPath:
    case Refusal::BadName:
        return QCoreApplication::translate("cli", "The path or the code name is not valid.");
    }
    return {};
}

void DescriptionRules::set(RepoInfo *info, const QString &field, const QString &value)
{
    if (field == Sign && value == No) {
        *info = Distributions::unsignedInfo(*info);
    } else if (field == Sign || field == SignKey) {
        info->signWith = true;
        if (field == SignKey)
            info->signKey = value == QLatin1String("default") ? QString() : value;
    } else if (field == Contents) {
        const QString choices = listOf(value);
        info->contents = !choices.isEmpty() && choices != No;
        info->contentsChoices = choices == No || choices == Yes ? QString() : choices;
    } else if (field == ValidFor) {
        info->validFor = DescriptionFields::days(value);
    } else if (lists().contains(field)) {
        info->*lists().value(field) = listOf(value);
    } else {
        info->*texts().value(field) = value.trimmed();
    }
}
