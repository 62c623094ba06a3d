// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QCoreApplication>
#include <QString>

/** Texts for the fields of package records. */
class PackageDetails
{
    Q_DECLARE_TR_FUNCTIONS(PackageDetails)
public:
    /**
     * The description as rich text: the synopsis in bold, one line for each line, and an empty line for a line with a
     * single dot. All characters of the text are shown literally.
     */
    static QString descriptionHtml(const QString &description);
    /** The number of packages and the names of the first ones, with architectures if a name alone may be ambiguous. */
    static QString summary(const QList<PackageInfoPtr> &packages, const RepoInfo &info);
    /** Which architecture is shown after a name. */
    enum class Meant {
        Records, ///< with the architecture whose index lists the package
        Files ///< with the package's own architecture, because a file can serve several
    };
    /** The names of the first packages, as in summary(). */
    static QString
    names(const QList<PackageInfoPtr> &packages, const RepoInfo &info, Meant meant = Meant::Records);
};
