// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/reposerver.h"

/** The service that serves one directory over HTTP: its names and the text of its unit file. */
namespace PublicationUnit
{
/** What the names of all such unit files match, whichever their port. */
inline const QString FileNamePattern = QStringLiteral("public-repo*.service");

QString serviceName(int port);
QString fileName(int port);

/** The template with the directory in the place of each "%1" and the port in that of each "%2". */
QString text(const QString &unitTemplate, const QString &path, int port);
/** What a unit serves; the port is 0 where its command does not end in one. */
PublishedRepo read(const QString &unit);
} // namespace PublicationUnit
