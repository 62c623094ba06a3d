// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/dpkgoutput.h"

#include "core/packagefields.h"

#include <utility>

namespace
{
/**
 * Whether the line is about the archive: its format, its size, or one of its control files. A description may contain
 * similar lines, so this is valid only before the paragraph.
 */
bool isHeaderLine(const QString &line)
{
    static const QRegularExpression expression(
        QStringLiteral("^\\s*(?:(?:new|old) [Dd]ebian package, version |size \\d+ bytes: |"
                       "\\d+ bytes,\\s+\\d+ lines\\s)"));
    return expression.match(line).hasMatch();
}

/**
 * The value of the only line that matches; empty when no line or several lines match. The name of a control file may
 * contain a newline and so add false fields. The real fields follow them, so such fields appear twice.
 */
QString singleValue(const QStringList &lines, const QRegularExpression &field)
{
    QString value;
    bool found = false;
    for (const QString &line : lines) {
        const auto match = field.match(line);
        if (!match.hasMatch())
            continue;
        if (found)
            return {};
        found = true;
        value = match.captured(QStringLiteral("word")).trimmed();
    }
    return value;
}
} // namespace

namespace DpkgOutput
{
QString controlParagraph(const QString &information)
{
    // With a newline in front, the first line loses its blank like all other lines.
    QString text = QLatin1Char('\n') + information;
    text.replace(QStringLiteral("\n "), QStringLiteral("\n"));
    QStringList lines = text.split(QLatin1Char('\n'));
    while (!lines.isEmpty() && (lines.first().isEmpty() || isHeaderLine(lines.first())))
        lines.removeFirst();
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    QString paragraph;
    for (const QString &line : std::as_const(lines))
        paragraph += line + QLatin1Char('\n');
    return paragraph;
}

std::optional<PackageInfo> packageInfo(const QString &information, PackageType type)
{
    const QString paragraph = controlParagraph(information);
    const QStringList lines = paragraph.split(QLatin1Char('\n'));

    PackageInfo package;
    package.name = singleValue(lines, PackageField::PackageExpression);
    package.version = singleValue(lines, PackageField::VersionExpression);
    package.architecture = singleValue(lines, PackageField::ArchitectureExpression);
    if (package.name.isEmpty() || package.version.isEmpty() || package.architecture.isEmpty())
        return std::nullopt;

    const auto section
        = PackageField::splitSection(singleValue(lines, PackageField::SectionExpression), QString());
    package.component = section.component;
    package.section = section.section;
    package.type = type;
    package.control = ControlText(paragraph.toUtf8());
    return package;
}

QString printed(const QByteArray &control)
{
    // The output of programs is decoded in the same way.
    return QString::fromLocal8Bit(' ' + QByteArray(control).replace('\n', "\n "));
}
} // namespace DpkgOutput
