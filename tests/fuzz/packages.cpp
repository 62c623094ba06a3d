// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/packagesfile.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <algorithm>
#include <utility>

namespace
{
/** The expressions are not made for control characters and byte order marks. */
bool isText(const QByteArray &bytes, const QString &text)
{
    return text.toUtf8() == bytes && std::none_of(text.cbegin(), text.cend(), [](QChar c) {
               return (c.category() == QChar::Other_Control && c != QLatin1Char('\n')
                       && c != QLatin1Char('\t') && c != QLatin1Char('\r'))
                      || c == QChar(QChar::ByteOrderMark);
           });
}

/** One record as the expressions define it, read line by line. */
struct DefinedRecord
{
    explicit DefinedRecord(const QStringList &given)
        : lines(given)
    { }

    QStringList lines;

    QString word(const QRegularExpression &expression) const
    {
        return expression.match(lines.filter(expression).value(0)).captured(QStringLiteral("word")).trimmed();
    }
    QString description() const
    {
        QString text = word(PackageField::DescriptionExpression);
        int next = lines.indexOf(PackageField::DescriptionExpression) + 1;
        while (next > 0 && next < lines.size()
               && !PackageField::NewFieldLine.match(lines.at(next)).hasMatch())
            text += QLatin1Char('\n') + lines.at(next++);
        while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r')))
            text.chop(1);
        return text;
    }
};

void compare(const PackageInfo &record, const DefinedRecord &defined)
{
    using namespace PackageField;
    const auto section = splitSection(defined.word(SectionExpression), QStringLiteral("contrib"));
    FUZZ_EQUAL(record.name.trimmed(), defined.word(PackageExpression));
    FUZZ_EQUAL(record.version.trimmed(), defined.word(VersionExpression));
    FUZZ_EQUAL(record.component, section.component);
    FUZZ_EQUAL(record.section, section.section);
    FUZZ_EQUAL(record.maintainer().trimmed(), defined.word(MaintainerExpression));
    FUZZ_EQUAL(record.control.field("Filename").trimmed(), defined.word(FilenameExpression));
    FUZZ_EQUAL(record.description().trimmed(), defined.description().trimmed());
    const bool isFolded = std::any_of(defined.lines.cbegin(), defined.lines.cend(), [](const QString &line) {
        return line.startsWith(QLatin1Char(' ')) || line.startsWith(QLatin1Char('\t'));
    });
    if (!isFolded)
        FUZZ_EQUAL(record.depends().join(QLatin1Char('\n')).trimmed(),
                   dependsEntries(defined.word(DependsExpression)).join(QLatin1Char('\n')).trimmed());
}

void compareAll(const QList<PackageInfoPtr> &records, const QString &text)
{
    QVector<QStringList> defined;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (PackageField::PackageExpression.match(line).hasMatch())
            defined.append(QStringList());
        if (!defined.isEmpty())
            defined.last().append(line);
    }
    FUZZ_RULE(records.size() == defined.size());
    for (int i = 0; i < records.size(); ++i)
        compare(*records.at(i), DefinedRecord(defined.at(i)));
}
} // namespace

void FuzzTarget::packages(std::string_view input)
{
    const auto bytes = std::make_shared<const QByteArray>(Fuzzing::expanded(input));
    const std::string_view view(bytes->constData(), static_cast<std::size_t>(bytes->size()));
    const QString root = QStringLiteral("/r");
    QList<PackageInfoPtr> records
        = parsePackages(bytes, view, {QStringLiteral("contrib"), QStringLiteral("amd64")}, root);
    std::size_t covered = 0;
    for (const PackageInfoPtr &record : std::as_const(records)) {
        covered += record->control.text().size();
        FUZZ_RULE(!record->component.isEmpty() && !record->section.isEmpty());
        for (const QString &value : {record->name, record->version, record->maintainer(), record->fileName()})
            FUZZ_RULE(!Fuzzing::breaksLine(value));
        FUZZ_RULE(!record->fileName().contains(QLatin1Char('/')));
        FUZZ_RULE(record->description().size() + record->depends().join(QString()).size()
                  <= 2 * static_cast<int>(record->control.text().size()));
    }
    FUZZ_RULE(covered <= view.size());

    const QString text = QString::fromUtf8(*bytes);
    if (input.size() == view.size() && isText(*bytes, text))
        compareAll(records, text);

    const int count = records.size();
    sortPackages(&records);
    FUZZ_RULE(records.size() == count);
    for (int i = 1; i < records.size(); ++i)
        FUZZ_RULE(records.at(i - 1)->name <= records.at(i)->name);

    const auto place = indexPlace(text.section(QLatin1Char('\n'), 0, 0));
    FUZZ_RULE(!place || (!place->component.isEmpty() && !place->architecture.contains(QLatin1Char('/'))));
}
