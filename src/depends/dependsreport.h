// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>
#include <QDateTime>

/** The results of dependency checks in words, for tool tips and for reports. */
class DependsReport
{
    Q_DECLARE_TR_FUNCTIONS(DependsReport)
public:
    /** A name that packages depend on in vain. */
    struct WantedName
    {
        QString name;
        int packages = 0; ///< how many want it
    };

    /** What a report is about. */
    struct Heading
    {
        QString repository; ///< its directory
        QString mode; ///< where dependencies were looked for, in words; empty when that is not known
        QDateTime time; ///< of the last check; invalid when that is not known
    };

    struct Summary
    {
        int satisfied = 0;
        int errors = 0;
        int unchecked = 0;
        QStringList unknownArchitectures; ///< of what is unchecked because apt did not know them
        QVector<WantedName> mostWanted; ///< at most ten, the most wanted first
    };

    /** Why the dependency is in its state; `selection` is the DependsRepoType of its check, 0 when not known. */
    static QString explanation(const Dependency &dependency, int selection);
    /** The same for an entry, with one line for each of several alternatives. */
    static QString explanation(const DependencyGroup &group, int selection);

    /** Over the stored results of the packages. */
    static Summary summary(const QList<PackageInfoPtr> &packages);

    /** The same in words, one line for each number and each name. */
    static QStringList summaryLines(const QList<PackageInfoPtr> &packages);

    /** The summary, and every package in error, by name, with the entries that cannot be met. */
    static QString text(const QList<PackageInfoPtr> &packages, const Heading &heading);
    /** The same as a JSON document. */
    static QByteArray json(const QList<PackageInfoPtr> &packages, const Heading &heading);

private:
    static QString line(const DependencyGroup &group, int selection);
    static QString lacked(int selection);
    static QString lackedWithProviders(int selection);
    static QString offers(const Dependency &dependency, DependStatus status);
    static QString constraint(const Dependency &dependency);
};
