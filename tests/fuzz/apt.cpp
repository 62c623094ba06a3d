// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptcommands.h"
#include "apt/aptoutput.h"
#include "apt/aptpolicy.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <utility>

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

void checkOrigins(const QStringList &origins)
{
    for (const QString &origin : origins)
        checkOrigin(origin);
}

void checkShow(const QString &text)
{
    const auto versions = AptOutput::versions(text);
    for (auto version = versions.cbegin(); version != versions.cend(); ++version) {
        FUZZ_RULE(!version.key().isEmpty() && !Fuzzing::breaksLine(version.key()));
        checkOrigins(*version);
    }
    for (const AptPackageRecord &record : AptOutput::records(text)) {
        checkOrigin(record.repository);
        FUZZ_RULE(!Fuzzing::breaksLine(record.name) && !Fuzzing::breaksLine(record.file));
        FUZZ_RULE(versions.value(record.version).contains(record.repository));
    }
    for (const auto &version : AptPolicy::versions(text)) {
        FUZZ_RULE(!version.version.contains(QLatin1Char(' ')) && !Fuzzing::breaksLine(version.version));
        checkOrigins(version.origins);
    }
}

void checkProviders(const QString &text)
{
    for (const QString &name : AptOutput::providers(text))
        FUZZ_RULE(isWord(name));
    int count = 0;
    for (const auto &providers : AptPolicy::providers(text)) {
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
    for (const auto grouping : {SourceGrouping::BySuite, SourceGrouping::BySuiteAndArchitecture}) {
        QStringList lines = AptOutput::sourceLines(text, grouping);
        for (const QString &line : std::as_const(lines))
            FUZZ_RULE(line == line.simplified() && line.contains(QLatin1String(":/")));
        FUZZ_RULE(lines.removeDuplicates() == 0);
    }
    checkShow(text);
    checkProviders(text);
    const QString origin = AptOutput::origin(text);
    if (!origin.isEmpty())
        checkOrigin(origin);
    const QString prefix = text.section(QLatin1Char('\n'), 0, 0).left(8);
    for (const QString &name : AptOutput::searchedNames(text, prefix))
        FUZZ_RULE(name.startsWith(prefix) && !Fuzzing::breaksLine(name));
    // A text that reaches a shell or a command line must be one plain word.
    if (AptCommands::isSearchPrefix(text) || AptCommands::isPackageName(text)
        || AptCommands::isArchitecture(text)) {
        FUZZ_RULE(isWord(text) && !text.startsWith(QLatin1Char('-')));
        for (const QChar special : QStringLiteral("'\"\\$`|&;<>()*?[]#~=%!{}/"))
            FUZZ_RULE(!text.contains(special));
    }
}
