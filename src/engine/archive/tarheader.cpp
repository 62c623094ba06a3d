// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/tarheader.h"

#include <algorithm>
#include <cstring>

namespace
{
// Positions of the fields, see tar(5).
constexpr int NameLength = 100;
constexpr int SizeOffset = 124;
constexpr int SizeLength = 12;
constexpr int SumOffset = 148;
constexpr int SumLength = 8;
constexpr int TypeOffset = 156;
constexpr int MagicOffset = 257;
constexpr int PrefixOffset = 345;
constexpr int PrefixLength = 155;

QByteArray text(const char *field, int length)
{
    return {field, static_cast<int>(qstrnlen(field, static_cast<uint>(length)))};
}

/** An octal number; -1 when the text is none. */
qint64 octal(const char *field, int length)
{
    bool isNumber = false;
    const QByteArray digits = text(field, length).trimmed();
    const qint64 value = digits.toLongLong(&isNumber, 8);
    return isNumber && value >= 0 ? value : -1;
}

/** A size that is too large for the octal digits is binary; then the highest bit is set. */
qint64 sizeOf(const char *field)
{
    if ((static_cast<uchar>(*field) & 0x80U) == 0)
        return octal(field, SizeLength);
    quint64 value = 0;
    for (int i = 1; i < SizeLength; ++i) {
        if ((value >> 54U) != 0)
            return -1;
        value = (value << 8U) | static_cast<uchar>(field[i]);
    }
    return static_cast<qint64>(value);
}

bool sumIsRight(const char *block)
{
    qint64 sum = 0;
    for (int i = 0; i < TarHeader::BlockSize; ++i) {
        const bool isSum = i >= SumOffset && i < SumOffset + SumLength;
        sum += isSum ? ' ' : static_cast<uchar>(block[i]);
    }
    return sum == octal(block + SumOffset, SumLength);
}

TarHeader::Kind kindOf(char type)
{
    switch (type) {
    case '0':
    case '7':
    case '\0':
        return TarHeader::Kind::File;
    case 'L':
        return TarHeader::Kind::LongName;
    case 'x':
        return TarHeader::Kind::Extended;
    case 'K':
    case 'g':
        return TarHeader::Kind::Remark;
    default:
        return TarHeader::Kind::Other;
    }
}
} // namespace

TarHeader TarHeader::parse(const char *block)
{
    TarHeader header;
    if (std::all_of(block, block + BlockSize, [](char byte) { return byte == '\0'; })) {
        header.kind = Kind::End;
        return header;
    }
    header.size = sizeOf(block + SizeOffset);
    if (!sumIsRight(block) || header.size < 0)
        return header;
    header.kind = kindOf(block[TypeOffset]);
    header.name = text(block, NameLength);
    // The GNU format uses the bytes of the prefix for other fields.
    if (std::memcmp(block + MagicOffset, "ustar\0", 6) == 0) {
        const QByteArray prefix = text(block + PrefixOffset, PrefixLength);
        if (!prefix.isEmpty())
            header.name.prepend('/').prepend(prefix);
    }
    // Links and devices have no contents, even if their size is not 0.
    if (block[TypeOffset] >= '1' && block[TypeOffset] <= '6')
        header.size = 0;
    return header;
}

bool TarHeader::overrule(const QByteArray &records)
{
    // The form is "length key=value\n", with the length of the whole record.
    int position = 0;
    while (position < records.size()) {
        const auto blank = records.indexOf(' ', position);
        bool isNumber = false;
        const int length = blank < 0 ? 0 : records.mid(position, blank - position).toInt(&isNumber);
        const int end = position + length;
        if (!isNumber || length <= 0 || end > records.size() || end <= blank + 1)
            return false;
        const QByteArray record = records.mid(blank + 1, end - blank - 2);
        const auto equals = record.indexOf('=');
        const QByteArray key = record.left(equals);
        const QByteArray value = record.mid(equals + 1);
        if (equals < 0)
            return false;
        if (key == "path") {
            name = value;
        } else if (key == "size") {
            size = value.toLongLong(&isNumber);
            if (!isNumber || size < 0)
                return false;
        }
        position = end;
    }
    return true;
}
