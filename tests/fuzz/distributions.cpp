// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/distributions.h"

#include "engine/repository/systemrelease.h"
#include "engine/reprepro/privateconfig.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

void FuzzTarget::distributions(std::string_view input)
{
    const QString text = Fuzzing::expandedText(input);
    const QString name = QStringLiteral("name");
    const RepoInfo info = Distributions::parse(text, name);
    for (const QString &value :
         {info.codename, info.suite, info.version, info.architectures, info.components, info.description})
        FUZZ_RULE(!Fuzzing::breaksLine(value) && value == value.trimmed());

    // The written text has one distribution, is parsed to the same values, and is rewritten without loss.
    const QString written = Distributions::text(info);
    FUZZ_RULE(Distributions::parse(written, name) == info);
    FUZZ_EQUAL(Distributions::text(Distributions::parse(written, name)), written);
    FUZZ_RULE(written.contains(QChar::ReplacementCharacter)
              || Distributions::lostLines(written, info).isEmpty());
    FUZZ_RULE(Distributions::distributionCount(written) == 1);
    FUZZ_RULE(Distributions::distributionCount(text) <= text.count(QLatin1Char('\n')) + 1);
    FUZZ_RULE(SystemRelease::versionFromText(text).size() <= text.size());

    for (const auto unreferenced : {PrivateConfig::Keep, PrivateConfig::Delete}) {
        const QString options = PrivateConfig::optionsText(text, unreferenced);
        FUZZ_EQUAL(PrivateConfig::optionsText(options, unreferenced), options);
    }
}
