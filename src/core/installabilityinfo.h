// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/** What a complete check says of a package. The numbers are stored and must not change. */
enum Installability : qint32 {
    InstallabilityUnknown = -1, ///< not checked
    NotInstallable = 0, ///< on no system can the package be installed with all that it needs
    Installable = 1,
    InstallabilityUndecided = 2 ///< the search took too long, or the relations are too many for a search
};

/** A package as a reason names it. */
struct NamedPackage
{
    QString name;
    QString version;
    QString architecture; ///< the one that the package was built for; can be "all"
    bool isLocal = false; ///< of the checked repository, not of the base that it was checked against

    friend bool operator==(const NamedPackage &a, const NamedPackage &b)
    {
        return a.name == b.name && a.version == b.version && a.architecture == b.architecture
               && a.isLocal == b.isLocal;
    }
};

/** One step of a reason: what one package asks of others. */
struct InstallabilityStep
{
    /** The numbers are stored and must not change. */
    enum Kind : qint32 {
        Needs
        = 0, ///< `targets` are the packages that can meet `relation`; the next steps say what is wrong with them
        Lacks = 1, ///< nothing meets `relation`; `targets` are versions at hand that do not, the newest first
        Excludes = 2 ///< the package and `targets` cannot be installed together
    };

    Kind kind = Needs;
    NamedPackage package; ///< the package that has the field
    /** "Depends", "Pre-Depends", "Conflicts" or "Breaks". Empty where two versions of one name exclude each other. */
    QString field;
    QString relation; ///< the entry of the field, as it is written
    QVector<NamedPackage> targets;

    friend bool operator==(const InstallabilityStep &a, const InstallabilityStep &b)
    {
        return a.kind == b.kind && a.package == b.package && a.field == b.field && a.relation == b.relation
               && a.targets == b.targets;
    }
};

/** The result of the complete check of one package. */
struct InstallabilityInfo
{
    Installability state = InstallabilityUnknown;
    /** Why it is not installable: from the package itself to the contradiction. No step can be left out. */
    QVector<InstallabilityStep> reason;
    /** Entries of Recommends that cannot be installed together with the package. */
    QStringList unmetRecommends;
    int seconds = 0; ///< of an undecided package: how long was searched; 0: the relations are too many

    friend bool operator==(const InstallabilityInfo &a, const InstallabilityInfo &b)
    {
        return a.state == b.state && a.reason == b.reason && a.unmetRecommends == b.unmetRecommends
               && a.seconds == b.seconds;
    }
};
