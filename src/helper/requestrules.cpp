// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/requestrules.h"

#include "server/portrange.h"
#include "server/publicationpath.h"
#include "server/sourcekey.h"
#include "server/sourceline.h"

#include <QRegularExpression>

namespace
{
const QRegularExpression &entryForm()
{
    // No quotes, and "%" only in "%20": apt gives these characters a meaning. A suite that ends in "/" cannot have
    // components.
    static const QString architectures = QStringLiteral("arch=[a-z0-9][a-z0-9-]*(,[a-z0-9][a-z0-9-]*)*");
    static const QString check
        = QStringLiteral("(trusted=yes|signed-by=")
          + SourceKey::file(QStringLiteral("[0-9A-F]{40}")).replace(QLatin1Char('.'), QLatin1String("\\."))
          + QLatin1Char(')');
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("deb (\\[(") + architectures + QStringLiteral("( ") + check + QStringLiteral(")?|")
        + check
        + QStringLiteral(")\\] )?"
                         "((http|ftp)://[A-Za-z0-9]([A-Za-z0-9.-]*[A-Za-z0-9])?:(?<port>[1-9][0-9]{0,4})"
                         "|(file|copy)://(?<path>/([^ %]|%20)*))/"
                         " [A-Za-z0-9]([A-Za-z0-9.~+_/-]*[A-Za-z0-9.~+_-])?"
                         "( +[A-Za-z0-9][A-Za-z0-9.~+_/-]*)+")));
    return form;
}

QString keyProblem(const HelperRequest &request)
{
    const QString file = RequestRules::keyFile(request.entry);
    if (request.method == HelperRequest::AddLocalSource && !file.isEmpty())
        return QStringLiteral("The key that the source line names has to come with it.");
    if (request.method != HelperRequest::AddSignedLocalSource)
        return {};
    if (file.isEmpty())
        return QStringLiteral("The source line names no key.");
    if (request.key.size() > SourceKey::MostBytes
        || SourceKey::fingerprint(request.key.toUtf8()) != SourceKey::fingerprintIn(file))
        return QStringLiteral("The key is not the one, and the only one, that the source line names.");
    return {};
}
} // namespace

QString RequestRules::keyFile(const QString &entry)
{
    static const QRegularExpression option(QStringLiteral("^deb \\[[^]]*\\bsigned-by=([^] ]+)"));
    return option.match(entry).captured(1);
}

QString RequestRules::entryProblem(const QString &entry)
{
    if (entry.size() > LongestEntry)
        return QStringLiteral("The source line is too long.");
    const QRegularExpressionMatch match = entryForm().match(entry);
    if (!match.hasMatch())
        return QStringLiteral("This is not a source line of a repository that this program publishes.");
    const QString port = match.captured(QStringLiteral("port"));
    if (!port.isEmpty() && !PortRange::contains(port.toInt()))
        return QStringLiteral("The port of the source line is not one from 1 to 65535.");
    const QString path
        = match.captured(QStringLiteral("path")).replace(QLatin1String("%20"), QLatin1String(" "));
    if (!path.isEmpty() && !PublicationPath::isWellFormed(path))
        return QStringLiteral("The directory of the source line cannot be used.");
    return {};
}

QString RequestRules::problem(const HelperRequest &request)
{
    switch (request.method) {
    case HelperRequest::AddLocalSource:
    case HelperRequest::AddSignedLocalSource:
    case HelperRequest::RemoveLocalSource: {
        const QString entry = entryProblem(request.entry);
        return entry.isEmpty() ? keyProblem(request) : entry;
    }
    case HelperRequest::PublishRepo:
    case HelperRequest::UnpublishRepo:
        break;
    }
    if (request.protocol != HttpProtocol && request.protocol != FtpProtocol)
        return QStringLiteral("The protocol is neither 0 (HTTP) nor 1 (FTP).");
    if (!PortRange::contains(request.port))
        return QStringLiteral("The port is not one from 1 to 65535.");
    if (request.method == HelperRequest::PublishRepo && !PublicationPath::isWellFormed(request.path)) {
        return QStringLiteral(
            "The directory is not an absolute path of letters, digits, blanks inside names and the "
            "characters . _ + ~ @ : -");
    }
    return {};
}
