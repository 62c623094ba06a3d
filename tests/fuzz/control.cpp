// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/dpkgoutput.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

namespace
{
void checkPackage(const PackageInfo &package)
{
    for (const QString &value : {package.name, package.version, package.architecture}) {
        FUZZ_RULE(!value.isEmpty());
        FUZZ_RULE(value == value.trimmed());
    }
    for (const QString &value :
         {package.name, package.version, package.architecture, package.component, package.section})
        FUZZ_RULE(!Fuzzing::breaksLine(value));
    FUZZ_RULE(!package.component.isEmpty() && !package.section.isEmpty());
    // The decoded values and the values in the control text come from two parsers.
    FUZZ_EQUAL(package.control.field("Package").trimmed(), package.name);
    FUZZ_EQUAL(package.control.field("Version").trimmed(), package.version);
    FUZZ_EQUAL(package.control.field("Architecture").trimmed(), package.architecture);
}
} // namespace

void FuzzTarget::control(std::string_view input)
{
    const QString information = Fuzzing::expandedText(input);
    const QString paragraph = DpkgOutput::controlParagraph(information);
    FUZZ_RULE(paragraph.isEmpty() || paragraph.endsWith(QLatin1Char('\n')));
    FUZZ_RULE(paragraph.size() <= information.size() + 1);
    const auto package = DpkgOutput::packageInfo(information);
    if (!package)
        return;
    checkPackage(*package);

    // In the form of dpkg's output, the paragraph must be parsed in the same way.
    QString printed
        = QStringLiteral(" new Debian package, version 2.0.\n size 1 bytes: control archive=1 bytes.\n");
    const QStringList lines = paragraph.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        printed += QLatin1Char(' ') + line + QLatin1Char('\n');
    FUZZ_EQUAL(DpkgOutput::controlParagraph(printed), paragraph);
    const auto again = DpkgOutput::packageInfo(printed);
    FUZZ_RULE(again.has_value());
    FUZZ_EQUAL(again->name, package->name);
    FUZZ_EQUAL(again->section, package->section);
    FUZZ_EQUAL(again->description(), package->description());
}
