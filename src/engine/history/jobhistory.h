// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QHash>
#include <QList>
#include <QString>

/** Keeps what the record of the running job needs: the packages before it, its words, and where its files came from. */
class JobHistory
{
public:
    /** A job begins, or the next part of it that gets a point of its own. */
    void begin(const QList<PackageInfoPtr> &packages, const QString &summary);
    /** What kind the record gets; a job when nothing is said. */
    void setKind(RestorePoint::Kind kind) { m_kind = kind; }
    /** Where a package that is added came from: the path of the user's file, or a source of apt. */
    void setOrigin(const PackageInfo &record, const QString &origin);
    /**
     * The record of the job, without a number. `now` are the packages after it. The checksums of new packages are read
     * from the pool or from the indices, which must have been written.
     */
    RestorePoint record(const QList<PackageInfoPtr> &now) const;

private:
    QList<PackageInfoPtr> m_before;
    QString m_summary;
    RestorePoint::Kind m_kind = RestorePoint::Job;
    QHash<QString, QString> m_origins; ///< by the file in the pool
};
