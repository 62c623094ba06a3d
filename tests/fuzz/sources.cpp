// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "publication/publicationaddresses.h"
#include "server/localsources.h"
#include "server/sourceline.h"

#include <QStringList>

namespace
{
void checkFile(const QString &text, const QString &line)
{
    const QString more = LocalSources::appended(text, line);
    FUZZ_RULE(more.startsWith(text) && LocalSources::contains(more, line) == !line.isEmpty());
    FUZZ_EQUAL(LocalSources::appended(more, line), more);
    const QString less = LocalSources::removed(more, line);
    FUZZ_EQUAL(LocalSources::removed(less, line), less);
    const QStringList lines = less.split(QLatin1Char('\n'));
    FUZZ_RULE(line.isEmpty() || !lines.contains(line));
    // All other lines stay in their order.
    QStringList kept = text.split(QLatin1Char('\n'));
    QStringList left = lines;
    kept.removeAll(line);
    left.removeAll(line);
    kept.removeAll(QString());
    left.removeAll(QString());
    FUZZ_EQUAL(left.join(QLatin1Char('\n')), kept.join(QLatin1Char('\n')));
    if (!LocalSources::contains(text, line) && (text.isEmpty() || text.endsWith(QLatin1Char('\n'))))
        FUZZ_EQUAL(less, text);
}
} // namespace

void FuzzTarget::sources(std::string_view input)
{
    // The first line is added and removed; the rest is the file.
    const QString given = Fuzzing::expandedText(input);
    const QString first = given.section(QLatin1Char('\n'), 0, 0);
    const QString text = given.section(QLatin1Char('\n'), 1);
    checkFile(text, first);

    SourceLine line;
    const QStringList words = first.split(QLatin1Char(' '));
    line.trusted = words.size() % 2 == 0;
    line.protocol = words.size() % 3;
    line.port = words.size();
    line.host = words.value(0);
    line.directory = QLatin1Char('/') + words.value(1);
    line.codename = words.value(2);
    line.architectures = words.value(3) + QLatin1Char(' ') + words.value(4);
    line.components = words.value(5);
    const QString made = line.text();
    FUZZ_RULE(!Fuzzing::breaksLine(made) && made.startsWith(QLatin1String("deb ")));
    checkFile(text, made);
    if (PublicationAddresses::isAddress(first))
        FUZZ_RULE(first.size() <= 15 && !Fuzzing::breaksLine(first));
}
