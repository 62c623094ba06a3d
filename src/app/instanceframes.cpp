// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/instanceframes.h"

#include <QDataStream>
#include <QIODevice>

#include <optional>

namespace
{
/** The text of a message body; nothing when it is not valid UTF-8. */
std::optional<QString> decoded(const QByteArray &body)
{
    const QString text = QString::fromUtf8(body);
    if (text.toUtf8() != body || text.contains(QChar::Null))
        return std::nullopt;
    return text;
}
} // namespace

InstanceFrames::Taken InstanceFrames::take(QIODevice &device)
{
    Taken taken;
    QDataStream stream(&device);
    for (;;) {
        stream.startTransaction();
        quint32 size = 0;
        stream >> size;
        if (size > LongestMessage) {
            stream.rollbackTransaction();
            taken.fault = QStringLiteral("a message of %1 bytes").arg(size);
            return taken;
        }
        // Read only when it is whole: a slow sender must not have its message copied again with every byte.
        QByteArray body;
        if (device.bytesAvailable() >= size)
            body = device.read(size);
        else
            stream.setStatus(QDataStream::ReadPastEnd);
        if (!stream.commitTransaction())
            return taken;
        const std::optional<QString> message = decoded(body);
        if (!message.has_value()) {
            taken.fault = QStringLiteral("a message that is no text");
            return taken;
        }
        taken.messages.append(*message);
    }
}

QByteArray InstanceFrames::frame(const QString &message)
{
    const QByteArray body = message.toUtf8();
    if (body.size() > LongestMessage)
        return {};
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly).writeBytes(body.constData(), static_cast<uint>(body.size()));
    return bytes;
}
