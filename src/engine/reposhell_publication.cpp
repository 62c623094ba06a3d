// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"
#include "server/localsources.h"
#include "server/sourceline.h"

QString RepoShell::sourceLine(
    bool trusted, const QString &architectures, int port, int protocol, const QString &host) const
{
    const QMutexLocker lock(&m_mutex);
    return SourceLine{
        trusted, architectures, protocol, host, port, m_path, m_repoInfo.codename, m_repoInfo.components}
        .text();
}

bool RepoShell::isInLocalSources(const QString &entry)
{
    return LocalSources::fileContains(entry);
}
