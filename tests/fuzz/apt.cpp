// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/aptcommands.h"
#include "depends/aptoutput.h"
#include "depends/aptpolicy.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

namespace
{
bool isWord(const QString &text)
{
    return !text.isEmpty() && text == text.simplified() && !text.contains(QLatin1Char(' '));
}

void checkOrigin(const QString &origin)
{
    const int words = origin.split(QLatin1Char(' ')).size();
    FUZZ_RULE(origin == origin.simplified() && (words == 2 || words == 3));
}

void checkSourceLines(const QString &text)
{
    using Grouping = SourceGrouping;
    for (const auto grouping : {Grouping::BySuite, Grouping::BySuiteAndArchitecture}) {
        QStringList lines = AptOutput::sourceLines(text, grouping);
        for (const QString &line : qAsConst(lines))
            FUZZ_RULE(line == line.simplified() && line.contains(QLatin1String(":/")));
        FUZZ_RULE(lines.removeDuplicates() == 0);
    }
}

void checkShow(const QString &text)
{
    const auto versions = AptOutput::versions(text);
    for (auto version = versions.cbegin(); version != versions.cend(); ++version) {
        FUZZ_RULE(!version.key().isEmpty() && !Fuzzing::breaksLine(version.key()));
        for (const QString &origin : version.value())
            checkOrigin(origin);
    }
    const auto records = AptOutput::records(text);
    for (const AptPackageRecord &record : records) {
        checkOrigin(record.repository);
        FUZZ_RULE(!Fuzzing::breaksLine(record.name) && !Fuzzing::breaksLine(record.file));
        FUZZ_RULE(versions.value(record.version).contains(record.repository));
    }
}

void checkPolicy(const QString &text)
{
    const auto listed = AptPolicy::versions(text);
    for (const auto &version : listed) {
        FUZZ_RULE(!version.version.contains(QLatin1Char(' ')) && !Fuzzing::breaksLine(version.version));
        for (const QString &origin : version.origins)
            checkOrigin(origin);
    }
}

void checkProviders(const QString &text)
{
    const QStringList names = AptOutput::providers(text);
    for (const QString &name : names)
        FUZZ_RULE(isWord(name));
    const auto listed = AptPolicy::providers(text);
    int count = 0;
    for (const auto &providers : listed) {
        count += providers.size();
        for (const Provider &provider : providers)
            FUZZ_RULE(isWord(provider.name));
    }
    FUZZ_RULE(count <= text.count(QLatin1Char('\n')));
}
} // namespace

void FuzzTarget::apt(std::string_view input)
{
    const QString text = Fuzzing::expandedText(input);
    checkSourceLines(text);
    checkShow(text);
    checkPolicy(text);
    checkProviders(text);
    const QString origin = AptOutput::origin(text);
    if (!origin.isEmpty())
        checkOrigin(origin);
    const QString prefix = text.section(QLatin1Char('\n'), 0, 0).left(8);
    const QStringList searched = AptOutput::searchedNames(text, prefix);
    for (const QString &name : searched)
        FUZZ_RULE(name.startsWith(prefix) && !Fuzzing::breaksLine(name));
    // What reaches a shell or a command line must not be more than one plain word.
    if (AptCommands::isSearchPrefix(text) || AptCommands::isPackageName(text)
        || AptCommands::isArchitecture(text)) {
        FUZZ_RULE(isWord(text) && !text.startsWith(QLatin1Char('-')));
        for (const QChar special : QStringLiteral("'\"\\$`|&;<>()*?[]#~=%!{}/"))
            FUZZ_RULE(!text.contains(special));
    }
}
