// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QStringList>

/**
 * What fetching the lists of private sources needs to know: the configuration that apt is run with, how far a run is,
 * and what its messages mean.
 */
class AptFetch
{
    Q_DECLARE_TR_FUNCTIONS(AptFetch)
public:
    /** The files and folders that a configuration names. Those that are empty are left out of it. */
    struct Places
    {
        QStringList included; ///< configuration that counts before ours; folders end with a slash
        QString folder; ///< for the lists, the cache and the rest of apt's state
        QString sourceList;
    };

    /**
     * The text of an apt.conf(5) file that hides the system's sources and keeps everything that apt writes below
     * `places.folder`, for these architectures, the first of which is apt's own. Keys and proxies stay the system's.
     */
    static QString configuration(const Places &places, const QStringList &architectures);

    /** What apt-get's status lines in `output` tell last, in percent; -1 when there is none. */
    static int percent(const QByteArray &output);

    /** Why sources could not be read, one line for the user each; empty when all is well. */
    static QStringList problems(const QString &errorOutput);

    /** Whether lists fetched at `fetched` (may be invalid) still serve. Local sources change under our hands. */
    static bool isFresh(const QDateTime &fetched, const QDateTime &now, const QStringList &sources);
};
