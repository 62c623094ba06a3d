// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "installability/completecheckrecord.h"
#include "results/resultsdocument.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>

#include <vector>

/**
 * The results of the complete checks of one repository in the form in which they are stored. Most packages can be
 * installed, so only the others have an entry. Packages are known by their PackagesDigest: a package of another
 * version, or with other relations, was not checked.
 */
struct StoredCompleteCheck
{
    CompleteCheckRecord record; ///< isStale is not stored
    std::vector<quint64> checked; ///< all packages with a result, by rising number
    QHash<quint64, QSharedPointer<const InstallabilityInfo>>
        findings; ///< of those about which there is more to say

    /** The results that these packages have. */
    static StoredCompleteCheck of(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &record);

    bool isEmpty() const { return !record.isValid() || checked.empty(); }
    /** The packages with the results. Those with a result are new records, because published records never change. */
    QList<PackageInfoPtr> merged(const QList<PackageInfoPtr> &packages) const;
    /** The result of the package; null when it was not checked. */
    QSharedPointer<const InstallabilityInfo> find(const PackageInfo &package) const;

    /** Writes the member of a repository. */
    void write(JsonWriter &writer) const;
    /**
     * Reads the member of `repository` out of a document; empty when it has none that makes sense. Do not use the
     * result unless the outcome is Done.
     */
    static ResultsDocument::Outcome
    read(QIODevice *input, const QString &repository, StoredCompleteCheck *check);
};
