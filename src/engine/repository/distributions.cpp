// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/distributions.h"

#include "core/countof.h"
#include "engine/repository/descriptionfields.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
const QString UDebComponents = QStringLiteral("UDebComponents");
const QString GzipOnly = QStringLiteral(".gz");

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

/** A field with its further lines, or a comment. */
struct Field
{
    QString name; ///< in lower case; of a comment empty
    QStringList lines; ///< as they are written, without blanks at their ends

    QString value() const { return lines.join(QLatin1Char(' ')).section(QLatin1Char(':'), 1).trimmed(); }
};

QString withoutBlanksAtEnd(QString line)
{
    while (!line.isEmpty() && line.back().isSpace())
        line.chop(1);
    return line;
}

/** Also lines that continue no field are a "field", with the name ":". */
QList<Field> fieldsOf(const QStringList &lines)
{
    const QString nothing(QLatin1Char(':'));
    QList<Field> fields;
    int current = -1; // comments do not end a field
    for (const QString &raw : lines) {
        const QString line = withoutBlanksAtEnd(raw);
        const bool isContinued = raw.startsWith(QLatin1Char(' ')) || raw.startsWith(QLatin1Char('\t'));
        if (line.isEmpty()) {
            if (!isContinued)
                current = -1;
        } else if (line.startsWith(QLatin1Char('#'))) {
            fields.append({QString(), {line}});
        } else if (isContinued && current >= 0) {
            fields[current].lines.append(line);
        } else {
            current = isContinued ? -1 : countOf(fields);
            fields.append({isContinued ? nothing : nameOf(line), {line}});
        }
    }
    return fields;
}

/** Takes the value over, if the member for it can hold it. */
bool readField(const Field &field, RepoInfo *info)
{
    const QString value = field.value();
    const bool isDescription = field.name == DistributionField::Description.toLower();
    if (field.lines.size() != 1 || (value.isEmpty() && !isDescription))
        return false;
    if (isDescription) {
        if (!DescriptionFields::isOneLine(value) || value.startsWith(QLatin1Char('!')))
            return false;
        info->description = value;
        return true;
    }
    if (field.name == DistributionField::SignWith.toLower()) {
        const bool isKey = DescriptionFields::isKey(value);
        info->signWith = isKey || value == QLatin1String("yes");
        info->signKey = isKey ? value : QString();
        return info->signWith;
    }
    if (field.name == DistributionField::Contents.toLower()) {
        info->contents = DescriptionFields::contentsRefusal(value).isEmpty();
        const QString choices = value.simplified();
        info->contentsChoices = info->contents && choices != GzipOnly ? choices : QString();
        return info->contents;
    }
    if (field.name == DistributionField::ValidFor.toLower()) {
        info->validFor = DescriptionFields::days(value);
        return info->validFor > 0;
    }
    return false;
}

/** Whether text() writes a line that says just this. */
bool isHeld(const Field &field, const RepoInfo &info)
{
    const QString value = field.value();
    const auto is = [&](const QString &name, const QString &held) {
        return field.name == name.toLower() && value == held;
    };
    return field.lines.size() == 1
           && (is(DistributionField::Origin, info.origin) || is(DistributionField::Label, info.label)
               || is(DistributionField::Codename, info.codename) || is(DistributionField::Suite, info.suite)
               || is(DistributionField::Version, info.version)
               || is(DistributionField::Architectures, info.architectures)
               || is(DistributionField::Components, info.components) || is(UDebComponents, info.components));
}

/** The names of the fields that text() writes for the members. UDebComponents makes way for another value. */
QSet<QString> ownNames(const RepoInfo &info)
{
    QStringList names{DistributionField::Origin,
                      DistributionField::Codename,
                      DistributionField::Suite,
                      DistributionField::Version,
                      DistributionField::Architectures,
                      DistributionField::Components};
    if (!info.label.isEmpty())
        names << DistributionField::Label;
    if (!info.description.isEmpty())
        names << DistributionField::Description;
    if (info.signWith)
        names << DistributionField::SignWith;
    if (info.contents)
        names << DistributionField::Contents;
    if (info.validFor > 0)
        names << DistributionField::ValidFor;
    QSet<QString> lower;
    for (const QString &name : std::as_const(names))
        lower.insert(name.toLower());
    return lower;
}

/** Whether reprepro accepts the words of the field beside these components and architectures. */
bool namesKnownParts(const Field &field, const RepoInfo &info)
{
    static const QSet<QString> components{UDebComponents.toLower(),
                                          QStringLiteral("contentscomponents"),
                                          QStringLiteral("contentsucomponents")};
    const bool isOfComponents = components.contains(field.name);
    if (!isOfComponents && field.name != QLatin1String("contentsarchitectures"))
        return true;
    const QStringList known = isOfComponents ? info.componentList() : info.architectureList();
    const QStringList words = field.value().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return std::all_of(
        words.cbegin(), words.cend(), [&known](const QString &word) { return known.contains(word); });
}

/** What the description keeps of its other lines. reprepro accepts each field only once. */
QList<Field> keptFields(const RepoInfo &info)
{
    QSet<QString> taken = ownNames(info);
    QList<Field> kept;
    const QList<Field> fields = fieldsOf(info.otherLines);
    for (const Field &field : fields) {
        if (!field.name.isEmpty()
            && (taken.contains(field.name) || field.name.startsWith(QLatin1Char('!'))
                || field.name == QLatin1String(":") || !namesKnownParts(field, info)))
            continue;
        if (!field.name.isEmpty())
            taken.insert(field.name);
        kept.append(field);
    }
    return kept;
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
    const QList<Field> others = keptFields(info);
    const bool hasOtherUdebs = std::any_of(others.cbegin(), others.cend(), [](const Field &field) {
        return field.name == UDebComponents.toLower();
    });
    QString text = line(DistributionField::Origin, info.origin);
    if (!info.label.isEmpty())
        text += line(DistributionField::Label, info.label);
    if (!info.description.isEmpty())
        text += line(DistributionField::Description, info.description);
    text += line(DistributionField::Codename, info.codename);
    text += line(DistributionField::Suite, info.suite);
    text += line(DistributionField::Version, info.version);
    text += line(DistributionField::Architectures, info.architectures);
    text += line(DistributionField::Components, info.components);
    if (!hasOtherUdebs)
        text += line(UDebComponents, info.components);
    if (info.signWith)
        text += line(DistributionField::SignWith,
                     info.signKey.isEmpty() ? QStringLiteral("yes") : info.signKey);
    if (info.contents)
        text += line(DistributionField::Contents,
                     info.contentsChoices.isEmpty() ? GzipOnly : info.contentsChoices);
    if (info.validFor > 0)
        text += line(DistributionField::ValidFor, QStringLiteral("%1d").arg(info.validFor));
    for (const Field &field : others)
        text += field.lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
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
    QSet<QString> seen;
    const QList<Field> fields = fieldsOf(lines);
    for (const Field &field : fields) {
        const bool isFirst = !seen.contains(field.name);
        seen.insert(field.name);
        // A repeated name belongs to a second distribution.
        if (!isFirst || (!isHeld(field, info) && !readField(field, &info)))
            info.otherLines += field.lines;
    }
    QStringList kept;
    const QList<Field> others = keptFields(info);
    for (const Field &field : others)
        kept += field.lines;
    info.otherLines = kept;
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

QStringList Distributions::lostLines(const QString &text, const RepoInfo &after)
{
    const QStringList written = Distributions::text(after).split(QLatin1Char('\n'));
    QSet<QString> staying;
    for (const QString &line : written)
        staying.insert(withoutBlanksAtEnd(line));
    RepoInfo info = parse(text, {});
    QSet<QString> seen;
    QStringList lost;
    const QList<Field> fields = fieldsOf(text.split(QLatin1Char('\n')));
    for (const Field &field : fields) {
        const bool isOurs = !seen.contains(field.name) && (isHeld(field, info) || readField(field, &info));
        seen.insert(field.name);
        std::copy_if(
            field.lines.cbegin(), field.lines.cend(), std::back_inserter(lost), [&](const QString &line) {
                // Bytes that are no UTF-8 cannot be written again.
                return line.contains(QChar::ReplacementCharacter) || (!isOurs && !staying.contains(line));
            });
    }
    return lost;
}

bool Distributions::losesField(const QString &text, const RepoInfo &after, const QString &fieldName)
{
    const QStringList lost = lostLines(text, after);
    return std::any_of(lost.cbegin(), lost.cend(), [&fieldName](const QString &line) {
        return line.startsWith(fieldName + QLatin1Char(':'), Qt::CaseInsensitive);
    });
}

QString Distributions::wholeValue(const QString &text, const QString &fieldName)
{
    const QList<Field> fields = fieldsOf(text.split(QLatin1Char('\n')));
    const auto found = std::find_if(fields.cbegin(), fields.cend(), [&fieldName](const Field &field) {
        return field.name == fieldName.toLower();
    });
    return found == fields.cend() ? QString() : found->value();
}

RepoInfo Distributions::unsignedInfo(RepoInfo info)
{
    info.signWith = false;
    info.signKey.clear();
    QStringList left;
    const QList<Field> others = fieldsOf(info.otherLines);
    for (const Field &field : others)
        if (field.name != DistributionField::SignWith.toLower())
            left += field.lines;
    info.otherLines = left;
    return info;
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
