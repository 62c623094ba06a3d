// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/descriptionrules.h"

#include "engine/repository/newreporules.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace
{
const QString Sign = QStringLiteral("sign");

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

/** Whether the text can be a value in one line of the description, where # begins a comment. */
bool isOneLine(const QString &text)
{
    return std::none_of(text.cbegin(), text.cend(), [](QChar c) {
        return c == QLatin1Char('#') || c.category() == QChar::Other_Control
               || c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
    });
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
    return texts().keys() + lists().keys() + QStringList{Sign};
}

QString DescriptionRules::refusal(const QString &field, const QString &value)
{
    const bool isName = field == QLatin1String("codename") || field == QLatin1String("suite");
    if ((isName && !isWhole("[a-z0-9._-]*", value))
        || (lists().contains(field) && !isWhole("[a-z0-9 -]*", listOf(value))))
        return QCoreApplication::translate(
            "cli", "Names have small letters, digits, hyphens and, for code names and suites, dots.");
    if (!isOneLine(value))
        return QCoreApplication::translate("cli", "The value of %1 is one line without #.").arg(field);
    if (field == QLatin1String("origin") && value.trimmed().isEmpty())
        return QCoreApplication::translate("cli", "The origin cannot be empty.");
    if (field == Sign && value != QLatin1String("yes") && value != QLatin1String("no"))
        return QCoreApplication::translate("cli", "The value of %1 is yes or no.").arg(field);
    return {};
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
    if (field == Sign)
        info->signWith = value == QLatin1String("yes");
    else if (lists().contains(field))
        info->*lists().value(field) = listOf(value);
    else
        info->*texts().value(field) = value.trimmed();
}
