// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationrules.h"

#include "server/portrange.h"
#include "server/publicationpath.h"

namespace
{
/** Whether both use the same server: the service of a port, or the only FTP server. */
bool isSamePlace(const Publication &publication, const PublicationRequest &request)
{
    return publication.protocol == request.protocol
           && (request.protocol == FtpProtocol || publication.port() == request.port);
}

/** Whether the publication serves the former directory of a repository that has moved. */
bool isLeftBehind(const Publication &publication, const PublicationRequest &request)
{
    // Another user may have published on a port that was ours once. The directory of that publication still exists.
    return !publication.isThere && publication.port() == request.port
           && request.registeredPath == request.path;
}
} // namespace

int PublicationRules::proposedPort(int protocol, int port, const QSet<int> &listening)
{
    if (protocol == FtpProtocol && port == PortRange::Http && !listening.contains(PortRange::Ftp))
        return PortRange::Ftp;
    return protocol == HttpProtocol && port == PortRange::Ftp ? PortRange::Http : port;
}

PublicationRules PublicationRules::judge(const PublicationRequest &request,
                                         const QVector<Publication> &publications,
                                         const QSet<int> &listening)
{
    PublicationRules rules;
    rules.sort(request, publications);
    const QString badness = badRequest(request);
    if (badness.isEmpty())
        rules.findConflict(request, publications, listening);
    else
        rules.refuse(Obstacle::BadRequest, badness);
    if (!rules.mayPublish()) {
        rules.replaced.reset();
        rules.stopsFirst = false;
    }
    return rules;
}

void PublicationRules::refuse(Obstacle what, const QString &why)
{
    obstacle = what;
    reason = why;
}

void PublicationRules::sort(const PublicationRequest &request, const QVector<Publication> &publications)
{
    for (const Publication &publication : publications) {
        const bool isOwn = !request.path.isEmpty() && publication.repo.path == request.path;
        if (!isSamePlace(publication, request)) {
            if (isOwn)
                elsewhere += publication;
        } else if (isOwn || isLeftBehind(publication, request)) {
            own = publication;
            // Publishing restarts the FTP server in any case.
            stopsFirst = !isOwn && publication.protocol == HttpProtocol && publication.isRunning();
        } else if (!publication.repo.path.isEmpty()) {
            replaced = publication;
        }
    }
}

QString PublicationRules::badRequest(const PublicationRequest &request)
{
    if (request.path.isEmpty())
        return tr("There is no repository");
    if (request.protocol != HttpProtocol && request.protocol != FtpProtocol)
        return tr("Choose a server type");
    if (!PortRange::contains(request.port))
        return tr("There is no port %1").arg(request.port);
    if (!PublicationPath::isWellFormed(request.path))
        return tr("The path %1 cannot be served. It may consist of letters, digits, blanks inside names and "
                  "the "
                  "characters %2.")
            .arg(request.path, QStringLiteral(". _ + ~ @ : -"));
    if (PublicationPath::isTemporary(request.path))
        return tr("What lies below /tmp or /var/tmp cannot be published: services have these folders for "
                  "themselves. Move the repository to another place.");
    return {};
}

void PublicationRules::findConflict(const PublicationRequest &request,
                                    const QVector<Publication> &publications,
                                    const QSet<int> &listening)
{
    bool isOurPort = false;
    for (const Publication &publication : publications) {
        if (!publication.isRunning() || publication.port() != request.port)
            continue;
        if (publication.protocol == request.protocol) {
            if (publication.repo.path == request.path)
                return refuse(Obstacle::OwnPublication, tr("The repository is published already"));
            if (publication.repo.path.isEmpty() || (own && *own == publication))
                isOurPort = true;
            else
                return refuse(Obstacle::OtherRepository, tr("Another repository is published"));
        } else if (publication.repo.path == request.path) {
            return refuse(Obstacle::OwnPublication,
                          tr("The repository is published on this port over %1. Unpublish it first.")
                              .arg(publication.repo.type));
        } else if (!publication.repo.path.isEmpty()) {
            return refuse(Obstacle::OtherRepository, tr("Another repository is published"));
        }
    }
    if (!isOurPort && listening.contains(request.port))
        refuse(Obstacle::OtherProgram, tr("Another program uses the port %1").arg(request.port));
}
