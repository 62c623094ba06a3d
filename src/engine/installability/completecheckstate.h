// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "installability/completecheckrecord.h"

#include <QList>
#include <QMutex>

/** What an engine knows of the last complete check of its repository, and whether its results still hold. Thread-safe. */
class CompleteCheckState
{
public:
    CompleteCheckRecord record() const;
    /** A check has ended, or its results were read, or there is none. */
    void set(const CompleteCheckRecord &record);
    /** Compares with the packages as they are now; true when the results have become stale, or hold again. */
    bool comparePackages(const QList<PackageInfoPtr> &packages);
    /** Compares with what the base offers now; the same. */
    bool compareBase(const QByteArray &baseDigest);

    /** The digest of a check of these packages. */
    static QByteArray digestOf(const QList<PackageInfoPtr> &packages, const QByteArray &baseDigest);

private:
    mutable QMutex m_mutex; ///< guards all members
    CompleteCheckRecord m_record;
    bool m_arePackagesOther = false;
    bool m_isBaseOther = false;

    bool update();
};
