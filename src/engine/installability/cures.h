// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/installabilityinfo.h"
#include "engine/installability/checkscope.h"

#include <QCoreApplication>

class CureTrial;

/** A change of the repository that removes the reason why a package cannot be installed. */
struct Cure
{
    enum Kind {
        Fetch, ///< bring in a version that a public source offers
        Remove, ///< remove an essential package of the repository, which every system would have to install
        Upgrade ///< replace a package of the repository with a version that a public source offers
    };

    Kind kind = Fetch;
    QString package;
    QString version; ///< the one that comes in; of Remove, the one that goes
    QString architecture; ///< of the index in which the package is, or into which it comes
    QString source; ///< origin text of the public source; empty for Remove
    bool isComplete
        = true; ///< the package can be installed then; false: one contradiction goes, another one is left
    QString text; ///< "Fetch b 2.0 from http://…"

    friend bool operator==(const Cure &a, const Cure &b)
    {
        return a.kind == b.kind && a.package == b.package && a.version == b.version
               && a.architecture == b.architecture && a.source == b.source && a.isComplete == b.isComplete;
    }
};

/** What a cure would change in the repository. */
struct CureEffect
{
    QList<PackageInfoPtr> gained; ///< they can be installed then, and cannot now
    QList<PackageInfoPtr> lost; ///< they can be installed now, and not then
};

/** Finds cures for a package that cannot be installed, and tries each. For any thread but the interface's. */
class Cures
{
    Q_DECLARE_TR_FUNCTIONS(Cures)
public:
    explicit Cures(CheckScope scope);

    /** Complete ones first. Each has been tried. None for a package that can be installed, and after a stop. */
    QVector<Cure> of(const PackageInfoPtr &package, const StopRequest &stopped) const;
    /** What `cure`, which of() has found for the same scope, would change. */
    CureEffect effectOf(const Cure &cure, const StopRequest &stopped) const;

private:
    CheckScope m_scope;

    static Cure
    cureOf(const CureTrial &trial, Cure::Kind kind, int package, const QString &index, bool isComplete);
};
