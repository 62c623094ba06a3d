// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

#include <QHash>

/** Parsers for the output of apt-cache about many packages. Each reads the text once. */
namespace AptPolicy
{
/** A version in the output of "apt-cache policy". */
struct ListedVersion
{
    QString package; ///< with ":architecture" for a foreign architecture
    QString version;
    QStringList origins; ///< see AptOutput::origin(); empty for an installed version without a source
};

/** The versions of all packages, in the order of the output. */
QVector<ListedVersion> versions(const QString &policy);

/** The providers of every package in the output of "apt-cache showpkg"; their names are AptOutput::providers(). */
QHash<QString, QVector<Provider>> providers(const QString &showpkg);
} // namespace AptPolicy
