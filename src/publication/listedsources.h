// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publication.h"

#include <QStringList>
#include <QVector>

/** What a list of sources on this machine says of repositories that lie here or are published from here. */
class ListedSources
{
public:
    /** A place where something may be published. */
    struct Place
    {
        int protocol = HttpProtocol;
        int port = 0;
    };
    /** What tells a repository's lines. */
    struct Repository
    {
        QStringList directories; ///< the spellings of its path
        QVector<Place> places; ///< where it is published, or would be
        QString offered; ///< the line for clients of the network; empty: none
    };

    ListedSources() = default;
    /** `hosts` are this machine's names and addresses but those that every machine has. */
    ListedSources(const QString &text, QStringList hosts);

    /** The lines, whole as they stand, by which apt uses this repository. */
    QStringList linesOf(const Repository &repository) const;
    /** Those that lead to where this is published. */
    QStringList linesTo(const Publication &publication) const;
    /** Those that lead to a port of this machine on which none of these publications runs. */
    QStringList linesWithoutService(const QVector<Publication> &publications) const;
    /** Whether the line is of the form that this program writes and removes: others are left to their writers. */
    static bool isOurs(const QString &line);

    bool operator==(const ListedSources &other) const;

private:
    struct Line
    {
        QString text;
        SourceLine source;
    };

    QVector<Line> m_lines;
    QStringList m_hosts;

    bool isHere(const SourceLine &source) const;
    bool leadsTo(const SourceLine &source, const Place &place) const;
    template <typename Rule>
    QStringList select(const Rule &rule) const;
};
