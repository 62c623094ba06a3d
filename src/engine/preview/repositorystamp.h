// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QByteArray>
#include <QList>
#include <QString>

/** Tells whether a repository is still in the state in which it was looked at. */
namespace RepositoryStamp
{
/**
 * Of the database, the description and the signatures of the repository at `path`, and of the packages that are known
 * of it. Another value after each change. Reads files: not for the interface thread.
 */
QByteArray of(const QString &path, const QList<PackageInfoPtr> &packages);
} // namespace RepositoryStamp
