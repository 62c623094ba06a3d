// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/listedsources.h"

#include <QHostAddress>

#include <algorithm>
#include <utility>

ListedSources::ListedSources(const QString &text, QStringList hosts)
    : m_hosts(std::move(hosts))
{
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (const std::optional<SourceLine> source = SourceLine::parse(line))
            m_lines += {line, *source};
    }
}

template <typename Rule>
QStringList ListedSources::select(const Rule &rule) const
{
    QStringList lines;
    for (const Line &line : m_lines) {
        if (rule(line) && !lines.contains(line.text))
            lines += line.text;
    }
    return lines;
}

bool ListedSources::isHere(const SourceLine &source) const
{
    if (source.protocol == LocalDirectoryProtocol)
        return false;
    const QHostAddress address(source.host);
    return address.isLoopback() || address == QHostAddress(QHostAddress::AnyIPv4)
           || source.host == QLatin1String("localhost") || m_hosts.contains(source.host, Qt::CaseInsensitive);
}

bool ListedSources::leadsTo(const SourceLine &source, const Place &place) const
{
    return source.protocol == place.protocol && source.port == place.port && isHere(source);
}

QStringList ListedSources::linesOf(const Repository &repository) const
{
    return select([&](const Line &line) {
        if (!repository.offered.isEmpty() && line.text.startsWith(repository.offered))
            return true;
        if (line.source.protocol == LocalDirectoryProtocol)
            return repository.directories.contains(line.source.path());
        return std::any_of(repository.places.cbegin(), repository.places.cend(), [&](const Place &place) {
            return leadsTo(line.source, place);
        });
    });
}

QStringList ListedSources::linesTo(const Publication &publication) const
{
    const Place place{publication.protocol, publication.port()};
    return select([&](const Line &line) { return leadsTo(line.source, place); });
}

QStringList ListedSources::linesWithoutService(const QVector<Publication> &publications) const
{
    const auto isServed = [&](const SourceLine &source) {
        return std::any_of(publications.cbegin(), publications.cend(), [&](const Publication &one) {
            return one.isRunning() && leadsTo(source, {one.protocol, one.port()});
        });
    };
    return select([&](const Line &line) { return isHere(line.source) && !isServed(line.source); });
}

bool ListedSources::isOurs(const QString &line)
{
    const std::optional<SourceLine> source = SourceLine::parse(line);
    return source && source->text() == line;
}

bool ListedSources::operator==(const ListedSources &other) const
{
    return m_hosts == other.m_hosts
           && std::equal(m_lines.cbegin(),
                         m_lines.cend(),
                         other.m_lines.cbegin(),
                         other.m_lines.cend(),
                         [](const Line &a, const Line &b) { return a.text == b.text; });
}
