// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/externalrepos.h"

#include "apt/sourceoptions.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QFile>
#include <QSettings>

#include <unistd.h>

namespace
{
void checkSource(const QString &source)
{
    const QString normalised = ExternalRepos::normalised(source);
    if (!ExternalRepos::refusal(source).isEmpty())
        return;
    // The source becomes a line of a file. One invalid line makes apt reject the whole file.
    FUZZ_RULE(normalised == normalised.simplified());
    FUZZ_EQUAL(ExternalRepos::normalised(normalised), normalised);
    FUZZ_EQUAL(ExternalRepos::refusal(normalised), QString());
    for (const QChar special : QStringLiteral("\"#\\\n"))
        FUZZ_RULE(!normalised.contains(special));
}

/** A stored list must be loaded unchanged; an alias is stored in its visible form. */
void checkStorage(const ExternalRepos &repos)
{
    const QString file = QStringLiteral("/dev/shm/velt-fuzz-%1.conf").arg(::getpid());
    QFile::remove(file);
    QSettings settings(file, QSettings::IniFormat);
    FUZZ_RULE(repos.save(settings));
    const ExternalRepos loaded = ExternalRepos::load(settings);
    const ExternalRepos again = [&file] {
        QSettings anew(file, QSettings::IniFormat);
        return ExternalRepos::load(anew);
    }();
    QFile::remove(file);
    FUZZ_RULE(loaded.entries() == again.entries());
    FUZZ_RULE(loaded.entries().size() == repos.entries().size());
    for (const ExternalRepos::Entry &entry : repos.entries()) {
        FUZZ_RULE(!Fuzzing::breaksLine(entry.alias));
        const auto &kept = loaded.entries();
        FUZZ_RULE(std::any_of(kept.cbegin(), kept.cend(), [&entry](const auto &other) {
            return other.source == entry.source && other.alias == entry.alias
                   && other.enabled == entry.enabled;
        }));
    }
}
} // namespace

void FuzzTarget::externalrepos(std::string_view input)
{
    const QString text = Fuzzing::expandedText(input);
    SourceOptions options;
    options.addLines(text);
    options.addStanzas(text);
    ExternalRepos repos;
    const QStringList lines = text.split(QLatin1Char('\n'));
    // Limited, because adding a source searches the whole list.
    constexpr int Most = 20;
    for (const QString &line : lines.mid(0, Most)) {
        checkSource(line);
        // A tab separates a source from its alias.
        const QString source = line.section(QLatin1Char('\t'), 0, 0);
        if (!Fuzzing::breaksLine(source))
            FUZZ_RULE(!Fuzzing::breaksLine(options.completed(source)));
        const int count = repos.entries().size();
        if (repos.setSource(source)) {
            FUZZ_RULE(repos.entries().size() == count + 1 && !repos.setSource(source));
            repos.setAlias(count, line.section(QLatin1Char('\t'), 1));
            repos.setEnabled(count, count % 3 != 0);
        }
        FUZZ_RULE(!repos.aliasOf(source).isEmpty() || source.isEmpty());
    }
    checkSource(text);
    checkStorage(repos);
    const int count = repos.entries().size();
    repos.merge(lines.mid(0, Most));
    FUZZ_RULE(repos.entries().size() <= count + Most);
}
