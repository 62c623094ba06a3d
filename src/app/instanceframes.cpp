// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/instanceframes.h"

#include <QIODevice>
#include <QtEndian>

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
    for (;;) {
        const QByteArray header = device.peek(HeaderSize);
        if (header.size() < HeaderSize)
            return taken;
        const auto size = qFromBigEndian<quint32>(header.constData());
        if (size > LongestMessage) {
            taken.fault = QStringLiteral("a message of %1 bytes").arg(size);
            return taken;
        }
        if (device.bytesAvailable() < HeaderSize + qint64(size))
            return taken;
        device.skip(HeaderSize);
        const std::optional<QString> message = decoded(device.read(size));
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
    QByteArray header(HeaderSize, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(body.size()), header.data());
    return header + body;
}
