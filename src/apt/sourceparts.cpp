// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/sourceparts.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

namespace
{
/** The address as apt shows it: without user and password, and without redundant slashes. */
QString shownUri(QString uri)
{
    static const QRegularExpression account(QStringLiteral("^([a-z0-9+]+://)[^/@]*@"));
    static const QRegularExpression emptyHost(QStringLiteral("^([a-z0-9+]+:)/{2,}(?=/)"));
    uri.replace(account, QStringLiteral("\\1"));
    uri.replace(emptyHost, QStringLiteral("\\1"));
    while (uri.size() > 1 && uri.endsWith(QLatin1Char('/')))
        uri.chop(1);
    return uri;
}

/** Where apt shows an address, the characters stand for themselves that a sources list has with percent signs. */
bool isSameUri(const QString &a, const QString &b)
{
    const QString shownA = shownUri(a);
    const QString shownB = shownUri(b);
    const QLatin1Char percent('%');
    return shownA == shownB
           || ((shownA.contains(percent) || shownB.contains(percent))
               && QUrl::fromPercentEncoding(shownA.toUtf8()) == QUrl::fromPercentEncoding(shownB.toUtf8()));
}

QStringList sortedComponents(const SourceParts &parts)
{
    QStringList components = parts.components;
    components.sort();
    components.removeDuplicates();
    return components;
}
} // namespace

SourceParts SourceParts::of(const QString &normalised)
{
    static const QRegularExpression expression(
        QStringLiteral("^(?:\\[([^\\]]*)\\](?: |$))?(\\S*)(?: (\\S+))?(?: (.*))?$"));
    const auto match = expression.match(normalised);
    return {match.captured(1).split(QLatin1Char(' '), Qt::SkipEmptyParts),
            match.captured(2),
            match.captured(3),
            match.captured(4).split(QLatin1Char(' '), Qt::SkipEmptyParts)};
}

QStringList SourceParts::originWords(const QString &origin)
{
    QStringList words = origin.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const bool isOneFolder = origin.endsWith(QLatin1Char('/'));
    while (words.size() > (isOneFolder ? 2 : 3)) {
        const QString part = words.takeAt(1);
        words.first() += QLatin1Char(' ') + part;
    }
    return words;
}

QString SourceParts::place() const
{
    QStringList sorted = options;
    sorted.sort();
    return QStringLiteral("[%1] %2 %3").arg(sorted.join(QLatin1Char(' ')), shownUri(uri), suite);
}

QString SourceParts::identity(const QString &normalised)
{
    const SourceParts parts = of(normalised);
    return parts.place() + QLatin1Char(' ') + sortedComponents(parts).join(QLatin1Char(' '));
}

bool SourceParts::hasGrownFrom(const SourceParts &earlier) const
{
    const QStringList own = sortedComponents(*this);
    const QStringList others = sortedComponents(earlier);
    return std::includes(own.cbegin(), own.cend(), others.cbegin(), others.cend());
}

int SourceParts::fit(const QStringList &originWords) const
{
    if (!isSameUri(uri, originWords.value(0)))
        return 0;
    int points = 1;
    const QString shownSuite = originWords.value(1);
    if (shownSuite == suite) {
        points += 2;
    } else {
        const bool ofComponent
            = std::any_of(components.cbegin(), components.cend(), [&](const QString &component) {
                  return shownSuite == suite + QLatin1Char('/') + component;
              });
        if (!ofComponent)
            return 0;
    }
    const QStringList named = architectures();
    if (named.isEmpty())
        return points;
    // The origin of a source that is one folder has no architecture.
    return originWords.size() > 2 && !named.contains(originWords.at(2)) ? 0 : points + 1;
}

QStringList SourceParts::architectures() const
{
    const QString prefix = QStringLiteral("arch=");
    for (const QString &option : options) {
        if (option.startsWith(prefix))
            return option.mid(prefix.size()).split(QLatin1Char(','), Qt::SkipEmptyParts);
    }
    return {};
}

bool SourceParts::isListed(const QString &component,
                           const QString &architecture,
                           const QVector<SourceParts> &lists) const
{
    return std::any_of(lists.cbegin(), lists.cend(), [&](const SourceParts &list) {
        const QStringList named = list.architectures();
        const bool isComponent
            = component.isEmpty() ? list.components.isEmpty() : list.components.contains(component);
        return isComponent && list.suite == suite && isSameUri(list.uri, uri)
               && (named.isEmpty() || architecture.isEmpty() || named.contains(architecture));
    });
}

QString SourceParts::unlisted(const QVector<SourceParts> &lists,
                              const QStringList &repositoryArchitectures) const
{
    const QStringList named = architectures();
    QStringList wanted = named;
    if (!repositoryArchitectures.isEmpty()) {
        wanted.clear();
        for (const QString &architecture : repositoryArchitectures) {
            if (named.isEmpty() || named.contains(architecture))
                wanted.append(architecture);
        }
        if (wanted.isEmpty())
            return {};
    }
    const QStringList any{QString()};
    const QStringList ownComponents = components.isEmpty() ? any : components;
    const QStringList asked = wanted.isEmpty() ? any : wanted;
    QStringList lackedComponents;
    QStringList lackedArchitectures;
    for (const QString &architecture : asked) {
        for (const QString &component : ownComponents) {
            if (isListed(component, architecture, lists))
                continue;
            lackedComponents.append(component);
            lackedArchitectures.append(architecture);
        }
    }
    if (lackedComponents.isEmpty())
        return {};
    lackedComponents.removeDuplicates();
    lackedArchitectures.removeDuplicates();
    QStringList limited = options;
    if (lackedArchitectures.size() < asked.size()) {
        const auto isLimit = [](const QString &option) { return option.startsWith(QLatin1String("arch=")); };
        limited.erase(std::remove_if(limited.begin(), limited.end(), isLimit), limited.end());
        limited.append(QLatin1String("arch=") + lackedArchitectures.join(QLatin1Char(',')));
    }
    QStringList words{uri, suite};
    if (!limited.isEmpty())
        words.prepend(QStringLiteral("[%1]").arg(limited.join(QLatin1Char(' '))));
    if (!components.isEmpty())
        words += lackedComponents;
    return words.join(QLatin1Char(' '));
}
