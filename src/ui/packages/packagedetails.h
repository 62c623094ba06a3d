// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QCoreApplication>
#include <QString>

/** How the fields of a package record are shown. */
class PackageDetails
{
    Q_DECLARE_TR_FUNCTIONS(PackageDetails)
public:
    /**
     * The description as rich text: the synopsis in bold, one line a line, and an empty line where the description has
     * a line with a lone dot. The text itself is shown as it stands, whatever characters it holds.
     */
    static QString descriptionHtml(const QString &description);
    /** How many packages these are, and the names of the first; with architectures where a name alone may mean two. */
    static QString summary(const QList<PackageInfoPtr> &packages, const RepoInfo &info);
    enum class Meant {
        Records, ///< in the architectures where they stand
        Files ///< each of which can serve several architectures
    };
    /** The names of the first of these, as summary() has them. */
    static QString
    names(const QList<PackageInfoPtr> &packages, const RepoInfo &info, Meant meant = Meant::Records);
};
