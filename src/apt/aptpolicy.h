// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

#include <QHash>

/** What apt-cache prints about many packages in one run, made into values in one pass over the text. */
namespace AptPolicy
{
/** A version in the output of "apt-cache policy". */
struct ListedVersion
{
    QString package; ///< with ":architecture" when that is not the system's own
    QString version;
    QStringList
        origins; ///< of its sources, see AptOutput::origin(); none for an installed version of no source
};

/** The versions of all packages in the output, in its order. */
QVector<ListedVersion> versions(const QString &policy);

/** The providers of every package in the output of "apt-cache showpkg"; their names are AptOutput::providers(). */
QHash<QString, QVector<Provider>> providers(const QString &showpkg);
} // namespace AptPolicy
