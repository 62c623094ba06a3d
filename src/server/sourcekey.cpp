// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/sourcekey.h"

#include <QCryptographicHash>
#include <QList>
#include <QRegularExpression>

#include <optional>

namespace
{
/** Packet tags, RFC 4880, 4.3. */
enum PacketTag { Signature = 2, PublicKey = 6, UserId = 13, PublicSubkey = 14, UserAttribute = 17 };

struct Packet
{
    int tag = 0;
    QByteArray body;
};

quint32 number(const QByteArray &bytes)
{
    quint32 value = 0;
    for (const char byte : bytes)
        value = value << 8U | static_cast<quint8>(byte);
    return value;
}

/** Takes bytes from the front; nothing when there are too few. */
std::optional<QByteArray> taken(QByteArray &data, quint32 count)
{
    if (count > static_cast<quint32>(data.size()))
        return std::nullopt;
    const QByteArray front = data.left(static_cast<int>(count));
    data.remove(0, static_cast<int>(count));
    return front;
}

/** The number in the next bytes, increased by `more`. */
std::optional<quint32> takenNumber(QByteArray &data, quint32 count, quint32 more = 0)
{
    const std::optional<QByteArray> bytes = taken(data, count);
    return bytes ? std::optional<quint32>(number(*bytes) + more) : std::nullopt;
}

/**
 * The length of a packet's body, RFC 4880, 4.2. Partial lengths are not read: they are for data packets, not for keys.
 */
std::optional<quint32> takenLength(QByteArray &data, quint8 header)
{
    constexpr quint8 NewFormat = 0x40;
    if ((header & NewFormat) == 0) {
        constexpr quint8 Indeterminate = 3;
        const quint8 type = header & 3U;
        return type == Indeterminate ? std::nullopt : takenNumber(data, 1U << type);
    }
    const std::optional<quint32> first = takenNumber(data, 1);
    if (!first || *first < 192)
        return first;
    if (*first < 224)
        return takenNumber(data, 1, ((*first - 192) << 8U) + 192);
    return *first == 255 ? takenNumber(data, 4) : std::nullopt;
}

std::optional<Packet> takenPacket(QByteArray &data)
{
    const std::optional<quint32> header = takenNumber(data, 1);
    if (!header || (*header & 0x80U) == 0)
        return std::nullopt;
    const bool isNew = (*header & 0x40U) != 0;
    const std::optional<quint32> length = takenLength(data, static_cast<quint8>(*header));
    const std::optional<QByteArray> body = length ? taken(data, *length) : std::nullopt;
    if (!body)
        return std::nullopt;
    return Packet{static_cast<int>(isNew ? *header & 0x3FU : (*header & 0x3CU) >> 2U), *body};
}

/** The checksum of an armor, RFC 4880, 6.1. */
quint32 checksum(const QByteArray &data)
{
    quint32 crc = 0xB704CE;
    for (const char byte : data) {
        crc ^= static_cast<quint32>(static_cast<quint8>(byte)) << 16U;
        for (int bit = 0; bit < 8; ++bit) {
            crc <<= 1U;
            if ((crc & 0x1000000U) != 0)
                crc ^= 0x1864CFBU;
        }
    }
    return crc & 0xFFFFFFU;
}

std::optional<QByteArray> decoded(const QByteArray &base64)
{
    const auto result = QByteArray::fromBase64Encoding(
        base64, QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    // Unused bits after the last whole byte must be 0, so that only one text gives this data.
    if (!result || (*result).toBase64() != base64)
        return std::nullopt;
    return *result;
}

/** The data in the armor, RFC 4880, 6.2; nothing when the armor does not have exactly this form or is damaged. */
std::optional<QByteArray> dearmored(const QByteArray &armor)
{
    if (armor.size() > SourceKey::MostBytes)
        return std::nullopt;
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("-----BEGIN PGP PUBLIC KEY BLOCK-----\\n\\n"
                       "(?<data>([A-Za-z0-9+/]{4,76}\\n)*[A-Za-z0-9+/]{2,76}={0,2}\\n)"
                       "=(?<sum>[A-Za-z0-9+/]{4})\\n"
                       "-----END PGP PUBLIC KEY BLOCK-----\\n")));
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(armor));
    if (!match.hasMatch())
        return std::nullopt;
    std::optional<QByteArray> data
        = decoded(match.captured(QStringLiteral("data")).toLatin1().replace('\n', QByteArray()));
    const std::optional<QByteArray> sum = decoded(match.captured(QStringLiteral("sum")).toLatin1());
    if (!data || !sum || number(*sum) != checksum(*data))
        return std::nullopt;
    return data;
}

/** The fingerprint of a version 4 key, RFC 4880, 12.2. */
QString fingerprintOfVersion4(const QByteArray &body)
{
    constexpr int MostBytes = 0xFFFF;
    constexpr char Version4 = 4;
    if (body.isEmpty() || body.at(0) != Version4 || body.size() > MostBytes)
        return {};
    QByteArray hashed("\x99");
    hashed += static_cast<char>(body.size() >> 8);
    hashed += static_cast<char>(body.size() & 0xFF);
    hashed += body;
    return QString::fromLatin1(QCryptographicHash::hash(hashed, QCryptographicHash::Sha1).toHex().toUpper());
}
} // namespace

namespace SourceKey
{
bool isFingerprint(const QString &text)
{
    return !fingerprintIn(file(text)).isEmpty();
}

QString file(const QString &fingerprint)
{
    return QStringLiteral("%1/velt-admin-repo-%2.asc").arg(Folder, fingerprint);
}

QString fingerprintIn(const QString &path)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        file(QStringLiteral("([0-9A-F]{40})")).replace(QLatin1Char('.'), QLatin1String("\\."))));
    return form.match(path).captured(1);
}

QString fingerprint(const QByteArray &armor)
{
    std::optional<QByteArray> data = dearmored(armor);
    if (!data)
        return {};
    const std::optional<Packet> key = takenPacket(*data);
    if (!key || key->tag != PublicKey)
        return {};
    while (!data->isEmpty()) {
        const std::optional<Packet> packet = takenPacket(*data);
        // apt would also trust a second primary key, and the user was not asked about its fingerprint.
        if (!packet
            || (packet->tag != Signature && packet->tag != UserId && packet->tag != PublicSubkey
                && packet->tag != UserAttribute))
            return {};
    }
    return fingerprintOfVersion4(key->body);
}
} // namespace SourceKey
