// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "installability/completecheckrecord.h"

#include <QList>
#include <QMutex>

/**
 * What an engine knows of the last complete check of its repository, and whether its results still hold. Thread-safe.
 */
class CompleteCheckState
{
public:
    CompleteCheckRecord record() const;
    /** A check has ended. */
    void set(const CompleteCheckRecord &record);
    /** Stored results were read: whether they hold is still to be compared. */
    void setStored(const CompleteCheckRecord &record);
    /** Whether the base was not compared since the results were read, or since forgetBase(). */
    bool isBaseOpen() const;
    /** What the base offers may have changed. */
    void forgetBase();
    /** How often that was so: a comparison that began before the last time says nothing. */
    int baseChanges() const;
    /** Compares with the packages as they are now: the results have become stale, or hold again. */
    void comparePackages(const QList<PackageInfoPtr> &packages);
    /**
     * Compares with what the base of `record` offered after so many changes; the same. Nothing when there is another
     * record by now, or another change.
     */
    void compareBase(const CompleteCheckRecord &record, int changes, const QByteArray &baseDigest);

    /** The digest of a check of these packages. */
    static QByteArray digestOf(const QList<PackageInfoPtr> &packages, const QByteArray &baseDigest);

private:
    mutable QMutex m_mutex; ///< guards all members
    CompleteCheckRecord m_record;
    bool m_arePackagesOther = false;
    bool m_isBaseOther = false;
    bool m_isBaseOpen = false;
    int m_baseChanges = 0;

    void update();
};
