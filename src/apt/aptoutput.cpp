// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptoutput.h"

#include "core/packagefields.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
const QString AptSourcesField = QStringLiteral("APT-Sources");

/** A source in the form of "policy" and of the APT-Sources field. */
struct Source
{
    QString uri;
    QString suite;
    QString component;
    QString architecture;

    QString origin() const { return QStringLiteral("%1 %2 %3").arg(uri, suite, architecture).trimmed(); }
};

/** The sources in a line; more than one only where lines were joined. */
QVector<Source> sourcesIn(const QString &text)
{
    // Possessive quantifiers avoid backtracking: a word of many slashes would be tried again at each slash.
    static const QRegularExpression expression(
        QStringLiteral("(?<!\\S)(?<src>(?:(?:mirror|tor)\\+)?(?:http|https|ftp|file|mirror):\\/\\S++)\\s++"
                       "(?<name>\\S+)\\/(?<component>[^\\s\\/]++)\\s++(?<arch>\\S++)\\s"));
    QVector<Source> sources;
    auto matches = expression.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        sources.append({match.captured(QStringLiteral("src")),
                        match.captured(QStringLiteral("name")),
                        match.captured(QStringLiteral("component")),
                        match.captured(QStringLiteral("arch"))});
    }
    return sources;
}

/** A source that is one folder, without components and architectures. Its suite ends with a slash. */
QVector<Source> flatSourceIn(const QString &line)
{
    static const QRegularExpression expression(
        QStringLiteral("\\s(?<src>(?:(?:mirror|tor)\\+)?(?:http|https|ftp|file|mirror):\\/\\S+)\\s+"
                       "(?<name>\\S*\\/)\\s+Packages\\s*$"));
    const auto match = expression.match(line);
    if (!match.hasMatch())
        return {};
    return {{match.captured(QStringLiteral("src")), match.captured(QStringLiteral("name")), {}, {}}};
}

/** The architecture at the end of the name of a package file. */
QString fileArchitecture(const QString &file)
{
    static const QRegularExpression expression(QStringLiteral("_([a-z0-9-]+)\\.u?deb$"));
    return expression.match(file).captured(1);
}

bool startsWithField(const QString &line, const QString &field)
{
    return line.size() > field.size() && line.at(field.size()) == QLatin1Char(':') && line.startsWith(field);
}

bool isContinuation(const QString &line)
{
    return line.startsWith(QLatin1Char(' ')) || line.startsWith(QLatin1Char('\t'));
}

/** Splits the output into records; apt prints an empty line after each record. */
QVector<QStringList> cutRecords(const QString &show)
{
    QVector<QStringList> records;
    bool open = false;
    const QStringList lines = show.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.trimmed().isEmpty()) {
            open = false;
            continue;
        }
        if (!open || startsWithField(line, PackageField::Package))
            records.append(QStringList());
        open = true;
        records.last().append(line);
    }
    return records;
}

/** The fields that are read from one record of "apt show". */
struct ShownVersion
{
    QString name;
    QString version;
    QVector<Source> sources;
    QString file;
    QString sha256;
};

/** The sources of a record. apt 2.6 names only the first source; sources on continuation lines are read too. */
QVector<Source> recordSources(const QStringList &record)
{
    QVector<Source> sources;
    bool inField = false;
    for (const QString &line : record) {
        inField = startsWithField(line, AptSourcesField) || (inField && isContinuation(line));
        if (!inField)
            continue;
        const auto found = sourcesIn(line);
        sources += found.isEmpty() ? flatSourceIn(line) : found;
    }
    return sources;
}

QVector<ShownVersion> shownVersions(const QString &show)
{
    QVector<ShownVersion> result;
    const auto records = cutRecords(show);
    for (const QStringList &record : records) {
        const QString version = AptOutput::fieldValues(record, PackageField::Version).value(0);
        // A virtual package has a state instead of a version.
        if (version.isEmpty())
            continue;
        const QString name = AptOutput::fieldValues(record, PackageField::Package).value(0);
        // For foreign architectures the name has a suffix.
        result.append({name.section(QLatin1Char(':'), 0, 0),
                       version,
                       recordSources(record),
                       AptOutput::fieldValues(record, PackageField::Filename).value(0),
                       AptOutput::fieldValues(record, QStringLiteral("SHA256")).value(0)});
    }
    return result;
}

void appendOnce(QStringList &list, const QString &text)
{
    if (!list.contains(text))
        list.append(text);
}
} // namespace

namespace AptOutput
{
QStringList sourceLines(const QString &policy, SourceGrouping grouping)
{
    QStringList keys;
    QMap<QString, QStringList> components;
    const QStringList lines = policy.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const auto sources = sourcesIn(line);
        for (const Source &source : sources) {
            QString key = QStringLiteral("%1 %2").arg(source.uri, source.suite);
            if (grouping == SourceGrouping::BySuiteAndArchitecture)
                key = QStringLiteral("[arch=%1] %2").arg(source.architecture, key);
            appendOnce(keys, key);
            appendOnce(components[key], source.component);
        }
    }
    QStringList result;
    result.reserve(keys.size());
    for (const QString &key : std::as_const(keys))
        result.append(key + QLatin1Char(' ') + components.value(key).join(QLatin1Char(' ')));
    return result;
}

QMap<QString, QStringList> versions(const QString &show)
{
    QMap<QString, QStringList> result;
    const auto shown = shownVersions(show);
    for (const ShownVersion &version : shown) {
        QStringList &origins = result[version.version];
        for (const Source &source : version.sources)
            appendOnce(origins, source.origin());
    }
    return result;
}

QVector<AptPackageRecord> records(const QString &show)
{
    QVector<AptPackageRecord> result;
    QSet<QString> known;
    const auto shown = shownVersions(show);
    for (const ShownVersion &version : shown) {
        for (const Source &source : version.sources) {
            const QString architecture
                = source.architecture.isEmpty() ? fileArchitecture(version.file) : source.architecture;
            const AptPackageRecord record{
                version.name, version.version, architecture, source.origin(), version.file, version.sha256};
            // Another component of the source can offer the same version with different contents.
            const QString key
                = QStringList{record.name, record.version, record.repository}.join(QLatin1Char('\n'));
            if (!known.contains(key))
                result.append(record);
            known.insert(key);
        }
    }
    return result;
}

QStringList providers(const QString &showpkg)
{
    static const QRegularExpression expression(
        QStringLiteral("(?P<packageName>^[a-z]\\S+).?(?<packageVersion>\\S+)"));
    const QStringList lines = showpkg.split(QLatin1Char('\n'));
    const auto heading = std::find_if(lines.cbegin(), lines.cend(), [](const QString &line) {
        return line.contains(QLatin1String("Reverse Provides: "));
    });
    QStringList names;
    for (auto line = heading == lines.cend() ? lines.cbegin() : heading; line != lines.cend(); ++line) {
        const auto match = expression.match(*line);
        if (match.hasMatch())
            names.append(match.captured(QStringLiteral("packageName")));
    }
    names.removeDuplicates();
    return names;
}

QStringList searchedNames(const QString &search, const QString &prefix)
{
    QStringList names;
    const QStringList lines = search.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (line.startsWith(prefix))
            names.append(line);
    }
    names.removeDuplicates();
    return names;
}

QString origin(const QString &line)
{
    const auto sources = sourcesIn(line);
    return sources.isEmpty() ? QString() : sources.first().origin();
}

QStringList fieldValues(const QStringList &lines, const QString &field)
{
    QStringList values;
    for (const QString &line : lines) {
        if (startsWithField(line, field))
            values.append(line.mid(field.size() + 1).trimmed());
    }
    return values;
}

QHash<QString, QString> downloadHashes(const QString &uris)
{
    static const QRegularExpression expression(
        QStringLiteral("^'[^']*' (?P<file>[^ /]+) [0-9]+ (?P<hash>[A-Za-z0-9]+:[0-9a-f]+)$"),
        QRegularExpression::MultilineOption);
    QHash<QString, QString> hashes;
    auto matches = expression.globalMatch(uris);
    while (matches.hasNext()) {
        const auto match = matches.next();
        hashes.insert(match.captured(QStringLiteral("file")), match.captured(QStringLiteral("hash")));
    }
    return hashes;
}

QString shellValue(const QString &shell, const QString &name)
{
    const QRegularExpression line(QStringLiteral("^%1='(.*)'$").arg(name),
                                  QRegularExpression::MultilineOption);
    return line.match(shell).captured(1).replace(QLatin1String("'\\''"), QLatin1String("'"));
}
} // namespace AptOutput
