// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptpolicy.h"

#include "apt/aptoutput.h"
#include "core/countof.h"

namespace
{
/**
 * Column of the version in its line, after the mark of the installed version. Lines with sources have more indentation.
 */
constexpr int VersionColumn = 5;

/** Removes the first line from the front of `rest` and returns it without its newline. */
QStringView takeLine(QStringView &rest)
{
    auto end = rest.indexOf(QLatin1Char('\n'));
    if (end < 0)
        end = rest.size();
    const QStringView line = rest.left(end);
    rest = rest.mid(end + 1);
    return line;
}

/** The providers in the output about one package: lines of name, version and "(= PROVIDED)". */
QVector<Provider> providersIn(const QString &part)
{
    QVector<Provider> result;
    const QStringList names = AptOutput::providers(part);
    if (names.isEmpty())
        return result;
    const QStringList lines = part.split(QLatin1Char('\n'));
    QHash<QString, QVector<int>> linesOf;
    for (int i = countOf(lines) - 1; i >= 0; --i)
        linesOf[lines.at(i).section(QLatin1Char(' '), 0, 0)].append(i);
    for (const QString &name : names) {
        for (const int i : linesOf.value(name)) {
            const QStringList words = lines.at(i).split(QLatin1Char(' '), Qt::SkipEmptyParts);
            // Without a provided version there is only a closing parenthesis.
            result.append({name, words.value(1), words.value(3).chopped(words.size() > 3 ? 1 : 0)});
        }
    }
    return result;
}

bool startsWithBlank(QStringView text)
{
    return text.startsWith(QLatin1Char(' '));
}
} // namespace

namespace AptPolicy
{
QVector<ListedVersion> versions(const QString &policy)
{
    QVector<ListedVersion> result;
    // Cached, because a few sources appear again and again.
    QHash<QString, QString> origins;
    QStringView rest(policy);
    QString package;
    bool inTable = false;
    while (!rest.isEmpty()) {
        const QStringView line = takeLine(rest);
        if (!startsWithBlank(line) && line.endsWith(QLatin1Char(':'))) {
            package = line.chopped(1).toString();
            inTable = false;
        } else if (line.startsWith(QLatin1String("  ")) && line.endsWith(QLatin1String("table:"))) {
            inTable = true;
        } else if (inTable && line.size() > VersionColumn) {
            const QStringView text = line.mid(VersionColumn);
            if (!startsWithBlank(text)) {
                result.append({package, text.left(text.indexOf(QLatin1Char(' '))).toString(), {}});
            } else if (!result.isEmpty()) {
                // The line begins with the priority, which differs for pinned sources.
                const QStringView source = text.trimmed();
                const QString key = source.mid(source.indexOf(QLatin1Char(' ')) + 1).toString();
                auto origin = origins.find(key);
                if (origin == origins.end())
                    origin = origins.insert(key, AptOutput::origin(key));
                QStringList &known = result.last().origins;
                if (!origin->isEmpty() && !known.contains(*origin))
                    known.append(*origin);
            }
        }
    }
    return result;
}

QHash<QString, QVector<Provider>> providers(const QString &showpkg)
{
    const QString heading = QStringLiteral("Package: ");
    QHash<QString, QVector<Provider>> result;
    decltype(showpkg.size()) begin = showpkg.startsWith(heading) ? 0 : -1;
    while (begin >= 0) {
        const auto next = showpkg.indexOf(QLatin1Char('\n') + heading, begin);
        const QString part = showpkg.mid(begin, next < 0 ? -1 : next + 1 - begin);
        const QString name = part.section(QLatin1Char('\n'), 0, 0).mid(heading.size());
        result[name.section(QLatin1Char(':'), 0, 0)] += providersIn(part);
        begin = next < 0 ? -1 : next + 1;
    }
    return result;
}
} // namespace AptPolicy
