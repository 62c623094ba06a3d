// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "engine/preview/inclusionpreview.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/** Packages as apt's sources offer them, before anything is fetched. */
class PublicPackages
{
public:
    /** Asks apt about these names, each name:architecture. Runs a program: not for the interface thread. */
    PublicPackages(const QStringList &names, const QStringList &environment, const StopRequest &stopped);

    /** The package that apt would fetch for this; nothing when no source offers it. */
    std::optional<OfferedPackage>
    find(const QString &name, const QString &version, const QString &architecture) const;

private:
    QHash<QString, QVector<OfferedPackage>> m_packages; ///< by name and version
};
