// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/changes/addoptions.h"
#include "engine/preview/changepreview.h"
#include "engine/repository/changerules.h"
#include "engine/upgrade/upgraderules.h"

#include <QCoreApplication>
#include <QList>
#include <QVector>

/** The rows of the jobs that add no files of the user. Pure: they look at no file. */
class PreviewRows
{
    Q_DECLARE_TR_FUNCTIONS(PreviewRows)
public:
    /** `wanted` are the packages to remove, and `present` those of the repository. */
    static QVector<PreviewRow> removal(const QList<PackageInfoPtr> &wanted,
                                       const QList<PackageInfoPtr> &present);

    /**
     * Adds the packages to a preview that leave their places when copied files are in. The rows of a file and those of
     * the packages that it leaves are switched together.
     */
    static void addLeaving(QVector<PreviewRow> *rows, const CopiedFiles &copied);

    /** A package to upgrade and what the sources say of its new version. */
    struct Offer
    {
        UpgradablePackage package;
        PackageInfoPtr record; ///< null when no source offers the version any more
        qint64 size = 0; ///< of the file, in bytes
        QString sha256; ///< of the file, in hexadecimal digits
    };
    static QVector<PreviewRow> upgrade(const QVector<Offer> &offers,
                                       const QList<PackageInfoPtr> &present,
                                       const QString &repository,
                                       const QStringList &architectures);

    /** What goes and comes with another description: consequences, which cannot be switched off. */
    static QVector<PreviewRow> description(const RepoChange &change, const QList<PackageInfoPtr> &present);

    /** What goes and comes with going back; likewise. */
    static QVector<PreviewRow> going(const QVector<PackageChange> &changes,
                                     const QList<PackageInfoPtr> &present);
};
