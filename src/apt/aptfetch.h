// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QStringList>

/**
 * Rules for fetching the lists of private sources: apt's configuration, the progress of a run, and the meaning of apt's
 * messages.
 */
class AptFetch
{
    Q_DECLARE_TR_FUNCTIONS(AptFetch)
public:
    /** The files and folders for a configuration. Empty ones are left out. */
    struct Places
    {
        QStringList included; ///< configuration files that are read before ours; folders end with a slash
        QString folder; ///< for the lists, the cache and all other state of apt
        QString sourceList;
    };

    /**
     * The text of an apt.conf(5) file for these architectures; the first one is apt's own. The system's sources are
     * hidden, and apt writes only below `places.folder`. Keys and proxies of the system stay in use.
     */
    static QString configuration(const Places &places, const QStringList &architectures);

    /** The last percentage in apt-get's status lines in `output`; -1 when there is none. */
    static int percent(const QByteArray &output);

    /** Why sources could not be read, one line for the user each; empty when there was no problem. */
    static QStringList problems(const QString &errorOutput);

    /** Whether lists fetched at `fetched` (may be invalid) are recent enough. */
    static bool isFresh(const QDateTime &fetched, const QDateTime &now);
    /**
     * Whether it is time to fetch lists for somebody who can do with those of yesterday. `fetched` is the time of the
     * lists, invalid when some are missing, and `tried` that of the last try: a source that could not be reached is not
     * tried again at once.
     */
    static bool isDue(const QDateTime &fetched, const QDateTime &tried, const QDateTime &now);
};
