// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

/** The service that serves one directory over HTTP: its names and the text of its unit file. */
namespace PublicationUnit
{
/** Pattern that matches the unit files of all ports. */
inline const QString FileNamePattern = QStringLiteral("public-repo*.service");

QString serviceName(int port);
QString fileName(int port);

/** The template with the directory in place of each "%1" and the port in place of each "%2". */
QString text(const QString &unitTemplate, const QString &path, int port);
/** The repository that a unit serves; the port is 0 when the command does not end in a number. */
PublishedRepo read(const QString &unit);
} // namespace PublicationUnit
