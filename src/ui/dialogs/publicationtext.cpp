// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/publicationtext.h"

#include "server/sourceline.h"

#include <QCoreApplication>

namespace
{
class Word
{
    Q_DECLARE_TR_FUNCTIONS(PublicationText)
};
} // namespace

QString PublicationText::serverType(int protocol)
{
    switch (protocol) {
    case HttpProtocol:
        return QStringLiteral("HTTP");
    case FtpProtocol:
        return QStringLiteral("FTP");
    default:
        return {};
    }
}

QString PublicationText::address(int protocol, const QString &host, int port)
{
    return QStringLiteral("%1://%2:%3/").arg(serverType(protocol).toLower(), host, QString::number(port));
}

QString PublicationText::state(const QString &serviceState)
{
    if (serviceState == QLatin1String("active"))
        return Word::tr("Published");
    if (serviceState == QLatin1String("activating") || serviceState == QLatin1String("reloading"))
        return Word::tr("Being started");
    if (serviceState == QLatin1String("deactivating"))
        return Word::tr("Being stopped");
    if (serviceState == QLatin1String("inactive"))
        return Word::tr("Not running");
    if (serviceState == QLatin1String("failed"))
        return Word::tr("Failed");
    return Word::tr("Unknown");
}
