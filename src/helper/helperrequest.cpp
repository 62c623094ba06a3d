// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/helperrequest.h"

#include "helper/journal.h"
#include "server/sourceline.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cstring>

namespace
{
/** Names of a method; in the order of HelperRequest::Method. */
struct Names
{
    const char *method;
    const char *action;
};
constexpr std::array<Names, 5> allNames{{
    {"AddLocalSource", "org.corvana.velt.repo.add-local-source"},
    {"RemoveLocalSource", "org.corvana.velt.repo.remove-local-source"},
    {"PublishRepo", "org.corvana.velt.repo.publish"},
    {"UnpublishRepo", "org.corvana.velt.repo.unpublish"},
    {"AddSignedLocalSource", "org.corvana.velt.repo.add-local-source"}, // the entry names the key
}};
} // namespace

HelperRequest::Method HelperRequest::methodOf(const char *name)
{
    const auto found = std::find_if(allNames.cbegin(), allNames.cend(), [name](const Names &names) {
        return std::strcmp(names.method, name) == 0;
    });
    return Method(found - allNames.cbegin());
}

QString HelperRequest::action() const
{
    return QString::fromLatin1(allNames.at(method).action);
}

QMap<QString, QString> HelperRequest::arguments() const
{
    QMap<QString, QString> named;
    if (method == AddLocalSource || method == AddSignedLocalSource || method == RemoveLocalSource) {
        named.insert(QStringLiteral("entry"), entry);
        return named;
    }
    if (method == PublishRepo)
        named.insert(QStringLiteral("path"), path);
    named.insert(QStringLiteral("port"), QString::number(port));
    named.insert(QStringLiteral("protocol"), QString::number(protocol));
    // Rules use the number, people read the name.
    if (protocol == HttpProtocol || protocol == FtpProtocol)
        named.insert(QStringLiteral("server"),
                     protocol == HttpProtocol ? QStringLiteral("HTTP") : QStringLiteral("FTP"));
    return named;
}

QString HelperRequest::describe() const
{
    QStringList words{QString::fromLatin1(allNames.at(method).method)};
    const QMap<QString, QString> named = arguments();
    for (auto argument = named.cbegin(); argument != named.cend(); ++argument)
        words += argument.key() + QLatin1Char('=') + Journal::quoted(argument.value());
    return words.join(QLatin1Char(' '));
}
