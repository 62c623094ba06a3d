// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/helperrequest.h"

#include "helper/journal.h"
#include "server/sourceline.h"

#include <QStringList>

namespace
{
QString methodName(HelperRequest::Method method)
{
    switch (method) {
    case HelperRequest::AddLocalSource:
        return QStringLiteral("AddLocalSource");
    case HelperRequest::RemoveLocalSource:
        return QStringLiteral("RemoveLocalSource");
    case HelperRequest::PublishRepo:
        return QStringLiteral("PublishRepo");
    case HelperRequest::UnpublishRepo:
        break;
    }
    return QStringLiteral("UnpublishRepo");
}
} // namespace

QString HelperRequest::action() const
{
    switch (method) {
    case AddLocalSource:
        return QStringLiteral("org.corvana.velt.repo.add-local-source");
    case RemoveLocalSource:
        return QStringLiteral("org.corvana.velt.repo.remove-local-source");
    case PublishRepo:
        return QStringLiteral("org.corvana.velt.repo.publish");
    case UnpublishRepo:
        break;
    }
    return QStringLiteral("org.corvana.velt.repo.unpublish");
}

QMap<QString, QString> HelperRequest::arguments() const
{
    QMap<QString, QString> named;
    if (method == AddLocalSource || method == RemoveLocalSource) {
        named.insert(QStringLiteral("entry"), entry);
        return named;
    }
    if (method == PublishRepo)
        named.insert(QStringLiteral("path"), path);
    named.insert(QStringLiteral("port"), QString::number(port));
    named.insert(QStringLiteral("protocol"), QString::number(protocol));
    // The number for rules, the name for people.
    if (protocol == HttpProtocol || protocol == FtpProtocol)
        named.insert(QStringLiteral("server"),
                     protocol == HttpProtocol ? QStringLiteral("HTTP") : QStringLiteral("FTP"));
    return named;
}

QString HelperRequest::describe() const
{
    QStringList words{methodName(method)};
    const QMap<QString, QString> named = arguments();
    for (auto argument = named.cbegin(); argument != named.cend(); ++argument)
        words += argument.key() + QLatin1Char('=') + Journal::quoted(argument.value());
    return words.join(QLatin1Char(' '));
}
