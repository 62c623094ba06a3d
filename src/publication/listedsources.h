// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publication.h"

#include <QStringList>
#include <QVector>

/** What a list of sources says of the repositories that lie on this machine or are published from it. */
class ListedSources
{
public:
    /** A place where something may be published. */
    struct Place
    {
        int protocol = HttpProtocol;
        int port = 0;
    };
    /** The marks by which a repository's lines are found. */
    struct Repository
    {
        QStringList directories; ///< all spellings of its path
        QVector<Place> places; ///< where it is published, or will be
        QString offered; ///< the line for clients of the network; may be empty
    };

    ListedSources() = default;
    /** `hosts` are this machine's names and addresses, without those that every machine has. */
    ListedSources(const QString &text, QStringList hosts);

    /** The lines by which apt uses this repository, as they stand in the list. */
    QStringList linesOf(const Repository &repository) const;
    /** The lines that lead to this publication. */
    QStringList linesTo(const Publication &publication) const;
    /** The lines that lead to a port of this machine on which none of these publications runs. */
    QStringList linesWithoutService(const QVector<Publication> &publications) const;
    /** Whether the line has the form that this program writes. The program removes no other lines. */
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
