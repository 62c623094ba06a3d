// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packagereplacementrules.h"
#include "engine/changes/inclusionrules.h"
#include "engine/preview/changepreview.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QVector>

/** A package that a job would add, in a file or in a source of apt. */
struct OfferedPackage
{
    QString file; ///< path; empty when it has still to be fetched
    QString origin; ///< the file or the source, for the user
    PackageInfoPtr package; ///< its architecture can be "all"; null when the file cannot be read
    QString reason; ///< text for the user: why it cannot go in; empty when it can
    QString sha256; ///< of the file, in hexadecimal digits; empty: not known
    qint64 size = 0; ///< of the file, in bytes
    QString component = {}; ///< into which it goes; empty: that of the target, or its own
};

/** The rows of a job that adds packages, with the rules of the job. It decides without looking at any file but those of
 *  present packages whose checksums are not known. */
class InclusionPreview
{
    Q_DECLARE_TR_FUNCTIONS(InclusionPreview)
public:
    /**
     * `isSigning` says that the files are changed before they go in. `collisions` decides which collisions are on at
     * first; of several packages for one place it decides as if they went in one after the other.
     */
    InclusionPreview(InclusionRules::Target target,
                     const QList<PackageInfoPtr> &present,
                     PackageReplacementRules collisions,
                     bool isSigning);

    /** What the repository would need so that further packages could go in; see InclusionRules. */
    static RepositoryExtension lacking(const InclusionRules::Target &target,
                                       const QVector<OfferedPackage> &offered);
    /** The rows in the order of the packages. */
    QVector<PreviewRow> rows(const QVector<OfferedPackage> &offered);

    /** The state of a present package; its checksum is read from its file where the record does not know it. */
    static PackageChange::State presentState(const PackageInfo &package, bool needsChecksum);

private:
    InclusionRules::Target m_target;
    PackageReplacementRules m_collisions;
    bool m_isSigning;
    QHash<PackageKey, PackageInfoPtr> m_places;
    QHash<QString, QVector<PackageInfoPtr>> m_files; ///< by path
    QVector<PreviewRow> m_rows;
    int m_groups = 0;

    InclusionRules::Target targetOf(const OfferedPackage &offered) const
    {
        return targetOf(m_target, offered);
    }
    static InclusionRules::Target targetOf(InclusionRules::Target target, const OfferedPackage &offered);
    /** The future records of the package; none when it cannot be read, or has no place. */
    QVector<PackageInfo> recordsOf(const OfferedPackage &offered) const;
    /** The paths in the pool that packages of different contents want. */
    QSet<QString> contestedFiles(const QVector<OfferedPackage> &offered) const;
    void addRows(const OfferedPackage &offered, bool mustStayTogether);
    PreviewRow rowOf(const OfferedPackage &offered, const PackageInfo &record) const;
    void addRefused(const OfferedPackage &offered, const QString &reason);
    /** Switches off all but one of the rows for each place. */
    void chooseForPlaces();
    void switchOff(int row);
};
