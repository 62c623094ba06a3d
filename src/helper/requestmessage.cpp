// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/requestmessage.h"

#include "helper/requestrules.h"
#include "server/sourcekey.h"

#include <climits>
#include <cstdint>
#include <cstring>

namespace
{
/** Most bytes of one character in UTF-8. */
constexpr std::size_t LargestCharacter = 4;

QString readText(sd_bus_message *call, std::size_t longest, const char *name, QString *text)
{
    const char *raw = nullptr;
    if (sd_bus_message_read_basic(call, SD_BUS_TYPE_STRING, &raw) <= 0)
        return QStringLiteral("The %1 cannot be read.").arg(QLatin1String(name));
    const std::size_t length = ::strnlen(raw, longest + 1);
    if (length > longest)
        return QStringLiteral("The %1 is too long.").arg(QLatin1String(name));
    *text = QString::fromUtf8(raw, static_cast<int>(length));
    return {};
}

QString readEntry(sd_bus_message *call, HelperRequest *request)
{
    return readText(call, LargestCharacter * RequestRules::LongestEntry, "source line", &request->entry);
}

QString readNumbers(sd_bus_message *call, HelperRequest *request)
{
    int32_t port = 0;
    int32_t protocol = 0;
    if (sd_bus_message_read(call, "ii", &port, &protocol) <= 0)
        return QStringLiteral("The port and the protocol cannot be read.");
    request->port = port;
    request->protocol = protocol;
    return {};
}
} // namespace

namespace RequestMessage
{
QString read(sd_bus_message *call, HelperRequest *request)
{
    request->method = HelperRequest::methodOf(sd_bus_message_get_member(call));
    switch (request->method) {
    case HelperRequest::AddLocalSource:
    case HelperRequest::RemoveLocalSource:
        return readEntry(call, request);
    case HelperRequest::AddSignedLocalSource: {
        const QString problem = readEntry(call, request);
        return problem.isEmpty() ? readText(call, SourceKey::MostBytes, "key", &request->key) : problem;
    }
    case HelperRequest::PublishRepo: {
        const QString problem = readText(call, PATH_MAX, "directory", &request->path);
        return problem.isEmpty() ? readNumbers(call, request) : problem;
    }
    case HelperRequest::UnpublishRepo:
        return readNumbers(call, request);
    }
    return QStringLiteral("There is no such request.");
}

std::size_t sizeOf(const HelperRequest &request)
{
    constexpr std::size_t fixed = 1024;
    return fixed
           + sizeof(QChar)
                 * static_cast<std::size_t>(request.entry.size() + request.path.size() + request.key.size());
}
} // namespace RequestMessage
