// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/controltext.h"
#include "engine/installability/checkscope.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/** A list of packages that the base of a check offers. */
struct OfferList
{
    QString origin; ///< of a public source; empty for another repository
    QString architecture; ///< of the index; empty: of any
    PackageType type = PackageType::Deb;
    QVector<ControlText> packages;
};

/** What the base of a check offers beside the repository. */
struct BaseOffers
{
    QVector<OfferList> lists;
    QByteArray digest; ///< changes with what the base offers; letters and digits
    QString problem; ///< text for the user: what could not be read
    QString problemDetails;
    QStringList unknownArchitectures; ///< apt fetches no lists for these

    /**
     * Reads what the base offers to systems of these architectures. Reads files and runs apt: not for the interface
     * thread. After a stop some lists are missing.
     */
    static BaseOffers
    read(const CheckScope &scope, const QStringList &architectures, const StopRequest &stopped);
    /** Whether the base is of apt's lists, which know no installer packages. */
    static bool isOfPublicSources(const CompleteCheckBase &base)
    {
        return base.kind == CompleteCheckBase::Public || base.kind == CompleteCheckBase::Essential;
    }
    /** The digest alone, without reading the packages. */
    static QByteArray digestOf(const CheckScope &scope, const StopRequest &stopped = {});
};
