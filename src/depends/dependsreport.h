// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonObject>

/** Texts about the results of dependency checks, for tool tips and for reports. */
class DependsReport
{
    Q_DECLARE_TR_FUNCTIONS(DependsReport)
public:
    /** A name that packages depend on and that is missing. */
    struct WantedName
    {
        QString name;
        int packages = 0; ///< number of packages that depend on it
    };

    /** The subject of a report. */
    struct Heading
    {
        QString repository; ///< directory of the repository
        QString mode; ///< text about the sources that were used; empty when they are not known
        QDateTime time; ///< of the last check; invalid when it is not known
    };

    /** Counts of packages by their state. */
    struct Summary
    {
        int satisfied = 0;
        int errors = 0;
        int unchecked = 0;
        QStringList unknownArchitectures; ///< architectures that apt does not know, so nothing was checked
        QVector<WantedName> mostWanted; ///< at most ten names, the most wanted first
    };

    /**
     * Explains the state of the dependency; `selection` is the DependsRepoType of its check, 0 when it is not known.
     */
    static QString explanation(const Dependency &dependency, int selection);
    /** The same for an entry, with one line for each alternative. */
    static QString explanation(const DependencyGroup &group, int selection);

    /** Counts the stored results of the packages. */
    static Summary summary(const QList<PackageInfoPtr> &packages);

    /** The summary as text, one line for each number and each name. */
    static QStringList summaryLines(const QList<PackageInfoPtr> &packages);

    /** The summary, followed by every package with errors, sorted by name, with its unmet entries. */
    static QString text(const QList<PackageInfoPtr> &packages, const Heading &heading);
    /** The same as JSON. */
    static QJsonObject json(const QList<PackageInfoPtr> &packages, const Heading &heading);

private:
    static QString line(const DependencyGroup &group, int selection);
    static QString lacked(int selection);
    static QString lackedWithProviders(int selection);
    static QString offers(const Dependency &dependency, DependStatus status);
    static QString constraint(const Dependency &dependency);
};
