// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/descriptionfields.h"

#include "signing/keylisting.h"

#include <QRegularExpression>

#include <algorithm>
#include <initializer_list>
#include <utility>

QStringList DescriptionFields::contentsWords()
{
    return {QStringLiteral("."),
            QStringLiteral(".gz"),
            QStringLiteral(".bz2"),
            QStringLiteral(".xz"),
            QStringLiteral("udebs"),
            QStringLiteral("nodebs"),
            QStringLiteral("percomponent"),
            QStringLiteral("allcomponents"),
            QStringLiteral("compatsymlink"),
            QStringLiteral("nocompatsymlink")};
}

QString DescriptionFields::contentsRefusal(const QString &choices)
{
    const QStringList known = contentsWords();
    const QStringList words = choices.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words)
        if (!known.contains(word))
            return tr("Contents cannot have the word %1, only these: %2")
                .arg(word.simplified(), known.join(QLatin1Char(' ')));
    if (words.contains(QLatin1String("allcomponents"))
        && (words.contains(QLatin1String("compatsymlink"))
            || words.contains(QLatin1String("nocompatsymlink"))))
        return tr("Contents cannot have allcomponents together with compatsymlink or nocompatsymlink.");
    return {};
}

bool DescriptionFields::isKey(const QString &text)
{
    static const QRegularExpression key(QStringLiteral("\\A[0-9A-Fa-f]{8,40}\\z"));
    return key.match(text).hasMatch();
}

int DescriptionFields::days(const QString &value)
{
    static const QRegularExpression whole(QStringLiteral("\\A([0-9]{1,6} *[dmy]? *)+\\z"));
    static const QRegularExpression part(QStringLiteral("([0-9]+) *([dmy]?)"));
    if (!whole.match(value).hasMatch())
        return 0;
    constexpr int Month = 31;
    constexpr int Year = 365;
    qint64 days = 0;
    for (auto parts = part.globalMatch(value); parts.hasNext();) {
        const QRegularExpressionMatch match = parts.next();
        const QString unit = match.captured(2);
        const int length = unit == QLatin1String("y") ? Year : unit == QLatin1String("m") ? Month : 1;
        days += match.captured(1).toLongLong() * length;
    }
    return days <= MostDays ? static_cast<int>(days) : 0;
}

bool DescriptionFields::isOneLine(const QString &text)
{
    return std::none_of(text.cbegin(), text.cend(), [](QChar c) {
        return c == QLatin1Char('#') || c.category() == QChar::Other_Control
               || c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
    });
}

QString DescriptionFields::refusal(const RepoInfo &info, const RepoInfo &before)
{
    const std::initializer_list<std::pair<QString, QString RepoInfo::*>> texts{
        {DistributionField::Origin, &RepoInfo::origin},
        {DistributionField::Label, &RepoInfo::label},
        {DistributionField::Description, &RepoInfo::description},
        {DistributionField::Version, &RepoInfo::version},
        {DistributionField::Suite, &RepoInfo::suite}};
    for (const auto &[field, text] : texts) {
        const QString &value = info.*text;
        if (value == before.*text)
            continue;
        if (!isOneLine(value))
            return tr("The value of %1 is one line without #.").arg(field);
        if (value.startsWith(QLatin1Char('!')))
            return tr("The value of %1 cannot begin with an exclamation mark.").arg(field);
    }
    if (info.origin.trimmed().isEmpty())
        return tr("The origin cannot be empty.");
    if (!info.signKey.isEmpty() && !isKey(info.signKey))
        return tr("A signing key is named by 8 to 40 hexadecimal digits: its fingerprint, or the end of it.");
    if (info.validFor < 0 || info.validFor > MostDays)
        return tr("Indices are valid for 1 to %1 days; 0 stands for no limit.").arg(MostDays);
    return contentsRefusal(info.contentsChoices);
}

QString DescriptionFields::keyRefusal(const RepoInfo &info, const RepoInfo &before)
{
    if (!info.signWith || info.signKey.isEmpty() || info.signKey == before.signKey)
        return {};
    // Without gpg, signing itself tells what is wrong.
    const auto known = readSecretKeys();
    const QString obstacle = known ? SigningKey::find(*known, info.signKey).obstacle() : QString();
    return obstacle.isEmpty()
               ? QString()
               : tr("The repository cannot be signed with the key %1: %2.").arg(info.signKey, obstacle);
}
