// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>
#include <QVector>

/** What becomes of one package in the index of one architecture. */
struct PackageChange
{
    enum Kind : quint8 { Added, Replaced, Removed };
    /** One version of the package; empty where there is none before, or after. */
    struct State
    {
        QString version;
        QString file; ///< path below the repository
        QString sha256; ///< of the file, in hexadecimal digits
        qint64 size = 0; ///< of the file, in bytes

        bool isNone() const { return version.isEmpty(); }
        bool operator==(const State &other) const
        {
            return version == other.version && file == other.file && sha256 == other.sha256;
        }
    };

    Kind kind = Added;
    QString name;
    PackageType type = PackageType::Deb;
    QString component; ///< of the index
    QString architecture; ///< of the index
    State before;
    State after;
    QString
        origin; ///< where the new version came from: the path of a file, or a source of apt; empty: not known

    /** The version and the file of a record. */
    static State stateOf(const PackageInfo &package);
    /** What becomes of packages with another record and equal states. */
    enum Equal {
        Dropped,
        Kept ///< the records may not tell the checksums of the files that they have now
    };
    /** What has changed from one list of packages to another one, in the order of the lists. */
    static QVector<PackageChange>
    between(const QList<PackageInfoPtr> &before, const QList<PackageInfoPtr> &after, Equal equal = Dropped);
};
