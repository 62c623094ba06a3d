// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repreproanswers.h"
#include "engine/repreprocommands.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QProcess>

namespace
{
/** The words that reprepro gets must be those that were meant, whatever they hold. */
void checkWords(const QString &path, const QString &arguments, const QStringList &expected)
{
    const QStringList words = QProcess::splitCommand(ReproCommand::commandLine(path, arguments));
    const QStringList all = QStringList{QStringLiteral("reprepro"), QStringLiteral("-b"), path} + expected;
    FUZZ_EQUAL(words.join(QLatin1Char('\n')), all.join(QLatin1Char('\n')));
    FUZZ_RULE(words.size() == all.size());
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
    // No text without words is an answer.
    FUZZ_RULE(found == 0 || text.contains(QLatin1Char(' ')));

    const QStringList lines = text.split(QLatin1Char('\n'));
    const QString path = QLatin1Char('/') + lines.value(0);
    const QString codename = QLatin1Char('c') + lines.value(1);
    const QString name = QLatin1Char('n') + lines.value(2);
    const QString component = QLatin1Char('m') + lines.value(3);
    const QString architecture = QLatin1Char('a') + lines.value(4);
    const QString section = QLatin1Char('s') + lines.value(5);
    const QString file = QLatin1Char('/') + lines.value(6);
    checkWords(path,
               ReproCommand::remove(codename, name, component, architecture),
               architecture == QLatin1String("all")
                   ? QStringList{QStringLiteral("-C"), component, QStringLiteral("remove"), codename, name}
                   : QStringList{QStringLiteral("-C"),
                                 component,
                                 QStringLiteral("-A"),
                                 architecture,
                                 QStringLiteral("remove"),
                                 codename,
                                 name});
    checkWords(
        path,
        ReproCommand::include(codename, component, architecture, section, file),
        {QStringLiteral("-C"),
         component,
         QStringLiteral("-A"),
         architecture,
         QStringLiteral("-S"),
         section,
         file.endsWith(QLatin1String(".udeb")) ? QStringLiteral("includeudeb") : QStringLiteral("includedeb"),
         codename,
         file});
    checkWords(path,
               ReproCommand::listFiles(codename, name, component, architecture),
               {QStringLiteral("--list-format"),
                QStringLiteral("${filename}\n"),
                QStringLiteral("listfilter"),
                codename,
                QLatin1String("Package (% ") + name + QLatin1String("), $Component (% ") + component
                    + QLatin1String("), $Architecture (% ") + architecture + QLatin1Char(')')});
}
