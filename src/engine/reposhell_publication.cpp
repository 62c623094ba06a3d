// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"
#include "publication/helperclient.h"
#include "server/localsources.h"
#include "server/reposervers.h"
#include "server/sourceline.h"

#include <QPointer>

namespace
{
/** Lets the engine tell what there is to tell, then hands the answer on. */
HelperClient::Answer toldBy(RepoShell *shell, const RepoShell::HelperAnswer &answer)
{
    return [shell = QPointer<RepoShell>(shell), answer](const HelperClient::Result &result) {
        if (!result.errorText.isEmpty())
            Q_EMIT shell->critical(result.errorText, result.details);
        // While a message box was shown, the engine may have gone.
        if (shell)
            answer(result.done);
    };
}
} // namespace

QString RepoShell::sourceLine(
    bool trusted, const QString &architectures, int port, int protocol, const QString &host) const
{
    const RepoInfo info = repoInfo();
    return SourceLine{trusted, architectures, protocol, host, port, path(), info.codename, info.components}
        .text();
}

bool RepoShell::isInLocalSources(const QString &entry)
{
    return LocalSources::fileContains(entry);
}

void RepoShell::addLocalSource(const QString &entry, const HelperAnswer &answer, const QByteArray &key)
{
    m_helper->addLocalSource(entry, key, toldBy(this, answer));
}

void RepoShell::removeLocalSource(const QString &entry, const HelperAnswer &answer)
{
    m_helper->removeLocalSource(entry, toldBy(this, answer));
}

void RepoShell::publishRepo(int port, int protocol, const HelperAnswer &answer)
{
    m_helper->publishRepo(path(), port, protocol, toldBy(this, answer));
}

void RepoShell::unpublishRepo(int port, int protocol, const HelperAnswer &answer)
{
    m_helper->unpublishRepo(port, protocol, toldBy(this, answer));
}

QList<PublishedRepo> RepoShell::publishedRepos() const
{
    return m_servers->publishedRepos();
}

bool RepoShell::isPublished(int port, int protocol) const
{
    return m_servers->isPublished(port, protocol);
}
