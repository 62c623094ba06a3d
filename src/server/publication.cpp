// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publication.h"

#include "server/portrange.h"

#include <QDir>
#include <QFileInfo>

bool Publication::isRunning() const
{
    return state != QLatin1String("inactive") && state != QLatin1String("failed");
}

int Publication::port() const
{
    return protocol == FtpProtocol && repo.port == 0 ? PortRange::Ftp : repo.port;
}

bool Publication::operator==(const Publication &other) const
{
    return repo.port == other.repo.port && repo.type == other.repo.type && repo.path == other.repo.path
           && protocol == other.protocol && state == other.state && isThere == other.isThere
           && isForeign == other.isForeign;
}

QString Publication::canonicalPathOf(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() && !path.isEmpty() ? QDir::cleanPath(path) : canonical;
}
