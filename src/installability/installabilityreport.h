// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "installability/completecheckrecord.h"

#include <QCoreApplication>
#include <QJsonObject>

/** What the last complete check of a repository has found, as a section of a report. */
class InstallabilityReport
{
    Q_DECLARE_TR_FUNCTIONS(InstallabilityReport)
public:
    /** A name that keeps packages from being installed: it is missing, or excludes what they need. */
    struct Obstacle
    {
        QString name;
        int packages = 0; ///< the number of packages in whose reasons it is the end
    };

    /** Counts of packages by their state. */
    struct Summary
    {
        int installable = 0;
        int notInstallable = 0;
        int undecided = 0;
        int unchecked = 0;
        QVector<Obstacle> mostInTheWay; ///< at most ten names, the most frequent first
    };

    /** Whether a complete check has found anything of these packages, so that there is something to report. */
    static bool hasResults(const QList<PackageInfoPtr> &packages);
    static Summary summary(const QList<PackageInfoPtr> &packages);

    /**
     * The summary, followed by the packages that cannot be installed with their reasons, the undecided ones, and those
     * whose recommendations cannot be met, each sorted by name.
     */
    static QString text(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &check);
    /** The same; reasons are there as steps and in words. */
    static QJsonObject json(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &check);
};
