// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "support/literals.h"

#include <QProcess>

#include <algorithm>

namespace
{
/** reprepro must get exactly the intended words, whatever characters they contain. */
void checkWords(const QString &path, const QString &arguments, const QStringList &expected)
{
    const QStringList words = QProcess::splitCommand(ReproCommand::commandLine(path, arguments));
    const QStringList all = QStringList{"reprepro"_s, "-b"_s, path} + expected;
    FUZZ_EQUAL(words.join(QLatin1Char('\n')), all.join(QLatin1Char('\n')));
    FUZZ_RULE(words.size() == all.size());
}
/** What is read of a listing must stand there, in one line. */
void checkListings(const QString &text, const QStringList &lines)
{
    for (const ReproListing::Package &package : ReproListing::packages(text)) {
        const QStringList words{package.component, package.architecture, package.name};
        FUZZ_RULE(std::none_of(words.cbegin(), words.cend(), [](const QString &word) {
            return word.contains(QLatin1Char(' '));
        }));
        FUZZ_RULE(lines.contains((words + QStringList{package.file}).join(QLatin1Char(' '))));
    }
    const auto checksums = ReproListing::checksums(text);
    for (auto it = checksums.cbegin(); it != checksums.cend(); ++it) {
        FUZZ_RULE(!it.value().contains(' '));
        FUZZ_RULE(lines.contains(it.key())
                  || std::any_of(lines.cbegin(), lines.cend(), [&](const QString &line) {
                         return line.startsWith(it.key() + QLatin1Char(' '));
                     }));
    }
}
} // namespace

void FuzzTarget::reprepro(std::string_view input)
{
    const QString text = Fuzzing::expandedText(input);
    int found = 0;
    for (const auto answer : {ReproAnswer::signingFailed,
                              ReproAnswer::priorityMissing,
                              ReproAnswer::inclusionSkipped,
                              ReproAnswer::databaseLocked,
                              ReproAnswer::indicesOutdated,
                              ReproAnswer::nothingRemoved,
                              ReproAnswer::otherFileInPool})
        found += answer(text) ? 1 : 0;
    // A text without blanks cannot be an answer.
    FUZZ_RULE(found == 0 || text.contains(QLatin1Char(' ')));

    const QStringList lines = text.split(QLatin1Char('\n'));
    checkListings(text, lines);
    const QString path = "/"_s + lines.value(0);
    const QString codename = "c"_s + lines.value(1);
    const QString name = "n"_s + lines.value(2);
    PackageInfo record;
    const QString component = record.component = record.indexComponent = "m"_s + lines.value(3);
    const QString architecture = record.architecture = "a"_s + lines.value(4);
    const QString section = record.section = "s"_s + lines.value(5);
    const QString file = "/"_s + lines.value(6);
    const QStringList place{"-C"_s, component, "-A"_s, architecture};
    checkWords(path,
               ReproCommand::remove(codename, {name, path}, component, architecture),
               (architecture == "all"_s ? QStringList(place.mid(0, 2)) : place)
                   + QStringList{"remove"_s, codename, name, path});
    const QString include = file.endsWith(".udeb"_s) ? "includeudeb"_s : "includedeb"_s;
    checkWords(path,
               ReproCommand::include(codename, record, {file, path}),
               place + QStringList{"-S"_s, section, include, codename, file, path});
    const QString filter
        = "Package (% %1), $Component (% %2), $Architecture (% %3)"_s.arg(name, component, architecture);
    checkWords(path,
               ReproCommand::listFiles(codename, name, component, architecture),
               {"--list-format"_s, "${filename}\n"_s, "listfilter"_s, codename, filter});
}
