// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/distributions.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace
{
const QString UDebComponents = QStringLiteral("UDebComponents");

QString line(const QString &name, const QString &value)
{
    return QStringLiteral("%1: %2\n").arg(name, value);
}

/** The name of the field in the line, in lower case. */
QString nameOf(const QString &line)
{
    return line.section(QLatin1Char(':'), 0, 0).trimmed().toLower();
}

QString architectureOf(const QString &codename)
{
    static const QHash<QString, QString> architectures{
        {QStringLiteral("aspen"), DefaultArchitecture},
        {QStringLiteral("birch"), DefaultArchitecture},
        {DefaultCodename, QStringLiteral("armhf")},
        {QStringLiteral("cedar"), QStringLiteral("e2k-8c")},
    };
    return architectures.value(codename, DefaultArchitecture);
}
} // namespace

RepoInfo Distributions::repoInfoForCodename(const QString &codename)
{
    RepoInfo info;
    info.codename = codename;
    info.name = QStringLiteral("repo");
    if (!codename.isEmpty())
        info.name = codename + QLatin1Char('-') + info.name;
    info.suite = QStringLiteral("stable");
    info.architectures = architectureOf(codename);
    info.components = QStringLiteral("main contrib non-free");
    if (codename == DefaultCodename)
        info.components += QLatin1String(" rpi3");
    return info;
}

QString Distributions::text(const RepoInfo &info)
{
    QString text = line(DistributionField::Origin, info.origin);
    if (!info.label.isEmpty())
        text += line(DistributionField::Label, info.label);
    text += line(DistributionField::Codename, info.codename);
    text += line(DistributionField::Suite, info.suite);
    text += line(DistributionField::Version, info.version);
    text += line(DistributionField::Architectures, info.architectures);
    text += line(DistributionField::Components, info.components);
    text += line(UDebComponents, info.components);
    if (info.signWith)
        text += line(DistributionField::SignWith, QStringLiteral("yes"));
    if (info.contents)
        text += line(DistributionField::Contents, QStringLiteral(".gz"));
    return text;
}

RepoInfo Distributions::parse(const QString &text, const QString &name)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    RepoInfo info;
    info.name = name;
    const QString origin = fieldValue(lines, DistributionField::Origin);
    info.origin = origin.isEmpty() ? DefaultOrigin : origin;
    info.label = fieldValue(lines, DistributionField::Label);
    info.codename = fieldValue(lines, DistributionField::Codename);
    info.suite = fieldValue(lines, DistributionField::Suite);
    info.version = fieldValue(lines, DistributionField::Version);
    info.architectures = fieldValue(lines, DistributionField::Architectures);
    info.components = fieldValue(lines, DistributionField::Components);
    info.signWith = fieldValue(lines, DistributionField::SignWith) == QLatin1String("yes");
    info.contents = fieldValue(lines, DistributionField::Contents) == QLatin1String(".gz");
    return info;
}

QString Distributions::fieldValue(const QStringList &lines, const QString &fieldName)
{
    const QString first = fieldName.left(1);
    const QString field = QStringLiteral("[%1|%2]%3:").arg(first, first.toLower(), fieldName.mid(1));
    const QRegularExpression fieldExpression(field);
    const QRegularExpression wholeLine(QRegularExpression::anchoredPattern(field + QLatin1String(".*")));
    const auto found = std::find_if(lines.cbegin(), lines.cend(), [&](const QString &candidate) {
        return wholeLine.match(candidate).hasMatch();
    });
    if (found == lines.cend())
        return {};
    QString value = *found;
    value.remove(fieldExpression);
    if (fieldName == QLatin1String("Description"))
        value += QLatin1Char('\n')
                 + QStringList(lines.mid(int(found - lines.cbegin()) + 1)).join(QLatin1Char('\n'));
    return value.trimmed();
}

QStringList Distributions::foreignLines(const QString &text)
{
    static const QSet<QString> ours{QStringLiteral("codename"),
                                    QStringLiteral("suite"),
                                    QStringLiteral("version"),
                                    QStringLiteral("architectures"),
                                    QStringLiteral("components")};
    const RepoInfo info = parse(text, {});
    QSet<QString> seen;
    QStringList foreign;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &raw : lines) {
        const QString entry = raw.trimmed();
        if (entry.isEmpty())
            continue;
        const QString name = nameOf(entry);
        const QString value = entry.section(QLatin1Char(':'), 1).trimmed();
        const bool known = ours.contains(name) || (name == QLatin1String("origin") && value == info.origin)
                           || (name == QLatin1String("label") && value == info.label)
                           || (name == UDebComponents.toLower() && value == info.components)
                           || (name == QLatin1String("signwith") && value == QLatin1String("yes"))
                           || (name == QLatin1String("contents") && value == QLatin1String(".gz"));
        // A repeated name belongs to a second distribution. A leading blank marks a value that continues.
        if (!known || seen.contains(name) || raw.at(0).isSpace())
            foreign.append(raw.at(0).isSpace() ? QLatin1Char(' ') + entry : entry);
        seen.insert(name);
    }
    return foreign;
}

bool Distributions::losesField(const QString &text, const QString &fieldName)
{
    const QStringList foreign = foreignLines(text);
    return std::any_of(foreign.cbegin(), foreign.cend(), [&fieldName](const QString &line) {
        return line.startsWith(fieldName + QLatin1Char(':'), Qt::CaseInsensitive);
    });
}

QString Distributions::unreadLine(const QString &text)
{
    static const QSet<QString> lists{
        QStringLiteral("architectures"), QStringLiteral("components"), QStringLiteral("udebcomponents")};
    QString field;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1Char('!')))
            return line;
        if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (!line.at(0).isSpace())
            field = nameOf(line);
        else if (lists.contains(field))
            return line;
    }
    return {};
}

int Distributions::distributionCount(const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    return static_cast<int>(std::count_if(lines.cbegin(), lines.cend(), [](const QString &line) {
        return line.startsWith(QLatin1String("Codename:"), Qt::CaseInsensitive);
    }));
}
