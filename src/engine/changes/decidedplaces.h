// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/packagelist.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

/**
 * Which package goes into which place, decided before the job. A job with decided places asks about no collision: it
 * puts in what is decided, also in the place of another package, and leaves out all else.
 */
class DecidedPlaces
{
public:
    /** What goes into a place. */
    struct Choice
    {
        QString version;
        QString file; ///< path; empty when the job fetches the file
        QByteArray sha256; ///< of a file that the job fetches, in hexadecimal digits; empty: not known
    };

    void add(const PackageKey &place, const Choice &choice) { m_choices.insert(place, choice); }

    /** Whether the package goes into its place from this file. */
    bool wants(const PackageInfo &record, const QString &file) const;
    /** Those of the records that go in. */
    QVector<PackageInfo> wanted(const QVector<PackageInfo> &records, const QString &file) const;
    /** Whether a fetched file is the one that was decided on for these records. Reads the file. */
    bool isExpected(const QVector<PackageInfo> &records, const QString &file) const;

private:
    QHash<PackageKey, Choice> m_choices;
};
