// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * What to fetch so that packages find in their repository all that they depend on. GatherSearch finds it out; each row
 * can be switched off, and left() tells what that leaves missing.
 */
struct GatherPlan
{
    /** A package file to fetch. */
    struct Row
    {
        PackageInfo
            package; ///< name, version, the architecture to ask apt for, and the origin as `repository`
        QString ownArchitecture; ///< for which it was built; can be "all"
        qint64 size = 0; ///< bytes of the file
        QStringList neededBy; ///< names of packages
        QString replaced; ///< the version that leaves the repository for it; empty when there is none
        bool isOn = true;
    };

    /** Why an entry cannot be met. */
    enum class Why {
        Unknown, ///< no source offers the name
        Versions, ///< the sources have other versions alone; `details` names them
        Newer, ///< the repository has a newer version, which is not replaced; `details` names it
        Clash, ///< another package needs another version of the same package; `details` names it
        Lists, ///< apt fetches no lists for the architecture
        Installer, ///< apt's sources have no packages of the installer
        Off, ///< the rows that would meet it are switched off
        Leaving ///< what met it leaves the repository for a newer version
    };

    /** An entry of Depends or Pre-Depends that the repository does not meet, or not for long. */
    struct Need
    {
        PackageInfo owner; ///< whose entry it is: name, version, architecture
        QString entry; ///< as it is written
        int ownerRow = -1; ///< the row that brings the owner; -1: the repository has it
        QVector<int> leavesWith; ///< the owner is gone when one of these rows comes
        QVector<int> rows; ///< that meet it
        QVector<int> keptWithout; ///< the repository meets it as long as one of these rows does not come
        Why why = Why::Off; ///< where no row meets it
        QString details;
    };

    /** An entry that is not met when the rows that are on have come. */
    struct Left
    {
        PackageInfo owner;
        QString entry;
        Why why = Why::Unknown;
        QString details;
    };

    QVector<Row> rows; ///< the nearest to what is wanted first
    QVector<Need> needs;
    QList<PackageInfoPtr> wanted; ///< the packages of the repository that the search was for
    bool isComplete = true; ///< false: the search was stopped

    QVector<Left> left() const;
    /** The bytes of the rows that are on. */
    qint64 size() const;
    /** The packages of the rows that are on. */
    QList<PackageInfo> packages() const;
    /** The rows that are on although nothing that will be there needs them any more. */
    QVector<int> idleRows() const;
    /** The same plan with those rows on that the repository has now. */
    GatherPlan after(const QList<PackageInfoPtr> &present) const;

private:
    bool isPresent(const Need &need) const;
};

Q_DECLARE_METATYPE(GatherPlan)
