// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/requestrules.h"

#include "server/portrange.h"
#include "server/publicationpath.h"
#include "server/sourceline.h"

#include <QRegularExpression>

namespace
{
const QRegularExpression &entryForm()
{
    // No "%" and no quotes anywhere: apt gives a meaning to them. A suite that ends in "/" takes no components.
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("deb "
                       "(\\[(arch=[a-z0-9][a-z0-9-]*(,[a-z0-9][a-z0-9-]*)*( trusted=yes)?|trusted=yes)\\] )?"
                       "((http|ftp)://[A-Za-z0-9]([A-Za-z0-9.-]*[A-Za-z0-9])?:(?<port>[1-9][0-9]{0,4})|file:/"
                       "/(?<path>/[^ ]*))/"
                       " [A-Za-z0-9]([A-Za-z0-9.~+_/-]*[A-Za-z0-9.~+_-])?"
                       "( +[A-Za-z0-9][A-Za-z0-9.~+_/-]*)+")));
    return form;
}
} // namespace

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
    const QString path = match.captured(QStringLiteral("path"));
    if (!path.isEmpty() && !PublicationPath::isWellFormed(path))
        return QStringLiteral("The directory of the source line cannot be used.");
    return {};
}

QString RequestRules::problem(const HelperRequest &request)
{
    if (request.method == HelperRequest::AddLocalSource || request.method == HelperRequest::RemoveLocalSource)
        return entryProblem(request.entry);
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
