// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/publicationconsent.h"

#include "core/countof.h"

#include <QStringList>

PublicationConsent PublicationConsent::access(const QString &path, const PublicationAccess &finding)
{
    QStringList closed = finding.unreadable;
    if (!finding.isEntered)
        closed.prepend(path);
    const int further = finding.unreadableCount - countOf(finding.unreadable);
    if (further > 0)
        closed << tr("and %n further file(s)", nullptr, further);
    return {tr("Access rights"),
            tr("The server cannot read everything in the repository. Do you want to let all "
               "users of this machine read it?"),
            closed.join(QLatin1Char('\n'))};
}

PublicationConsent PublicationConsent::emptyRepository()
{
    return {tr("Publication confirmation"), tr("Do you want to publish an empty repository?"), {}};
}

std::optional<PublicationConsent> PublicationConsent::replacement(const PublicationRequest &request,
                                                                  const PublicationRules &rules)
{
    const std::optional<Publication> &replaced = rules.replaced;
    if (request.protocol == FtpProtocol) {
        const QString about
            = replaced && replaced->isRunning()
                  ? tr("The repository %1 is published over FTP now and will not be any more.")
                        .arg(replaced->repo.path)
                  : tr("The first file that is not the program's own is kept beside it.");
        return PublicationConsent{tr("Rewrite confirmation"),
                                  tr("File /etc/vsftpd.conf will be rewrite. Do you want to continue?"),
                                  about};
    }
    if (!replaced)
        return std::nullopt;
    return PublicationConsent{tr("Publication confirmation"),
                              tr("The port %1 belongs to the service of the repository %2, which does "
                                 "not run. Do you want to replace it?")
                                  .arg(QString::number(request.port), replaced->repo.path),
                              {}};
}

QString ServerText::package(int protocol)
{
    return protocol == FtpProtocol ? QStringLiteral("vsftpd") : QStringLiteral("lighttpd");
}

QString ServerText::service(int protocol, int port)
{
    return protocol == FtpProtocol ? QStringLiteral("vsftpd") : QStringLiteral("public-repo-%1").arg(port);
}

QString ServerText::unservable(const QString &path)
{
    return tr("The path %1 cannot be served. It must be the directory of a repository, and its name may "
              "consist of letters, digits, blanks between them and the characters %2.")
        .arg(path, QStringLiteral(". _ + ~ @ : -"));
}

QString ServerText::whyNotStarted(int protocol, int port)
{
    return tr("The service did not start, or ended at once. The administrator finds the reason in "
              "the system's journal: journalctl -u %1 -u velt-admin-repo-helper")
        .arg(service(protocol, port));
}

QString ServerText::whyNotStopped(int protocol, int port)
{
    return tr("The service %1 could not be stopped. \"systemctl status %1\" tells more.")
        .arg(service(protocol, port));
}

QString ServerText::whyRefused()
{
    return tr("The system refused. The administrator finds the reason in its journal: "
              "journalctl -u velt-admin-repo-helper");
}
