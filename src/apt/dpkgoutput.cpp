// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/dpkgoutput.h"

#include "core/packagefields.h"

namespace
{
/**
 * A line about the archive: its format, its size, or one of its control files. A description may hold the like, so it
 * counts only above the paragraph.
 */
bool isHeaderLine(const QString &line)
{
    static const QRegularExpression expression(
        QStringLiteral("^\\s*(?:(?:new|old) [Dd]ebian package, version |size \\d+ bytes: |"
                       "\\d+ bytes,\\s+\\d+ lines\\s)"));
    return expression.match(line).hasMatch();
}

/**
 * The value of the one line that matches; empty when there is none or more than one. The name of a control file may
 * hold a newline and so bring in fields of its own, which are told by the real ones that follow.
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
    // The newline in front lets the first line lose its blank like all others.
    QString text = QLatin1Char('\n') + information;
    text.replace(QStringLiteral("\n "), QStringLiteral("\n"));
    QStringList lines = text.split(QLatin1Char('\n'));
    while (!lines.isEmpty() && (lines.first().isEmpty() || isHeaderLine(lines.first())))
        lines.removeFirst();
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty())
        lines.removeLast();
    QString paragraph;
    for (const QString &line : qAsConst(lines))
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
} // namespace DpkgOutput
