// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debcontrol.h"

#include "engine/archive/memberstream.h"
#include "engine/archive/tarheader.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <vector>

#include <zlib.h>

namespace
{
// The largest real control archives contain checksums of some ten thousand files.
constexpr qint64 LargestMember = 4 << 20; ///< packed
constexpr int LargestArchive = 8 << 20; ///< unpacked
constexpr int LargestControl = 1 << 20;
constexpr int MostFiles = 100;
constexpr int BufferSize = 1 << 15;

// Where the fields of a tar header lie, see tar(5).
constexpr int ModeOffset = 100;
constexpr int ModeLength = 8;
constexpr int TypeOffset = 156;

/** The member with the control files. It must follow the member with the version of the format. */
std::optional<DebMember> controlMember(RegularFile *file)
{
    // Two headers of an ar archive, as dpkg-deb writes them, with the version between them.
    constexpr int HeaderSize = 60;
    constexpr int NameLength = 16;
    constexpr int SizeOffset = 48;
    constexpr int SizeLength = 10;
    constexpr int Second = 8 + HeaderSize + 4;
    const QByteArray begin = file->read(Second + HeaderSize);
    if (begin.size() != Second + HeaderSize || !begin.startsWith("!<arch>\ndebian-binary   ")
        || begin.mid(8 + SizeOffset, SizeLength) != "4         "
        || begin.mid(8 + HeaderSize - 2, 6) != "`\n2.0\n" || !begin.endsWith("`\n"))
        return std::nullopt;
    const QByteArray header = begin.mid(Second);
    DebMember member{header.left(NameLength).trimmed(), begin.size(), 0};
    if (member.name.endsWith('/'))
        member.name.chop(1);
    const QByteArray size = header.mid(SizeOffset, SizeLength).trimmed();
    const bool isNumber = !size.isEmpty() && std::all_of(size.cbegin(), size.cend(), [](char c) {
        return c >= '0' && c <= '9';
    });
    member.size = size.toLongLong();
    if (!isNumber || member.size <= 0 || member.size > LargestMember)
        return std::nullopt;
    return member;
}

/** The unpacked member; empty when it is damaged or too large. */
QByteArray unpacked(const QString &fileName, const DebMember &member, const std::function<bool()> &stopped)
{
    MemberStream stream(fileName, member);
    if (!stream.isOpen())
        return {};
    QByteArray bytes;
    std::vector<char> buffer(BufferSize);
    while (!stopped || !stopped()) {
        const qint64 read = stream.read(buffer.data(), BufferSize);
        if (read == 0)
            return bytes;
        if (read < 0 || bytes.size() + read > LargestArchive)
            break;
        bytes.append(buffer.data(), static_cast<int>(read));
    }
    return {};
}

/** Checks the end of a gzip stream, because the library accepts a stream without it. */
bool isWholeGzip(const QByteArray &packed, const QByteArray &bytes)
{
    constexpr int TrailerSize = 8;
    const auto *const trailer
        = reinterpret_cast<const uchar *>(packed.constData()) + packed.size() - TrailerSize;
    const auto *const data = reinterpret_cast<const Bytef *>(bytes.constData());
    return packed.size() > TrailerSize
           && qFromLittleEndian<quint32>(trailer) == crc32(0, data, static_cast<uInt>(bytes.size()))
           && qFromLittleEndian<quint32>(trailer + 4) == static_cast<quint32>(bytes.size());
}

/** Whether the bytes are exactly one frame of zstd (RFC 8878, 3.1.1). */
bool isOneFrame(const QByteArray &packed)
{
    constexpr int MagicSize = 4;
    if (packed.size() <= MagicSize)
        return false;
    const auto byteAt = [&packed](int position) { return static_cast<uchar>(packed.at(position)); };
    const unsigned descriptor = byteAt(MagicSize);
    const bool isSingleSegment = (descriptor & 0x20U) != 0;
    const std::array<int, 4> contentSizes = {isSingleSegment ? 1 : 0, 2, 4, 8};
    const std::array<int, 4> dictionarySizes = {0, 1, 2, 4};
    int position = MagicSize + 1 + (isSingleSegment ? 0 : 1) + dictionarySizes[descriptor & 3U]
                   + contentSizes[descriptor >> 6U];
    constexpr int BlockHeader = 3;
    for (bool isLast = false; !isLast; position += BlockHeader) {
        if (position + BlockHeader > packed.size())
            return false;
        const unsigned header
            = byteAt(position) | unsigned(byteAt(position + 1)) << 8U | unsigned(byteAt(position + 2)) << 16U;
        constexpr unsigned Repeated = 1; // such a block has one byte
        isLast = (header & 1U) != 0;
        position += (header >> 1U & 3U) == Repeated ? 1 : static_cast<int>(header >> 3U);
    }
    return position + ((descriptor & 4U) != 0 ? 4 : 0) == packed.size();
}

/**
 * Whether the bytes have the compression of the name. The library also reads uncompressed data, other compressions and
 * several streams, but dpkg does not.
 */
bool isPackedAsNamed(const QByteArray &name, const QByteArray &packed)
{
    static const QByteArray xzMagic = QByteArray::fromHex("fd377a585a00");
    if (name == "control.tar.gz")
        return packed.startsWith("\x1f\x8b");
    if (name == "control.tar.xz")
        return packed.startsWith(xzMagic) && packed.endsWith("YZ");
    if (name == "control.tar.zst")
        return packed.startsWith("\x28\xb5\x2f\xfd") && isOneFrame(packed);
    return name == "control.tar";
}

bool isPlainName(const QByteArray &name)
{
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+'
               || c == '-' || c == '.' || c == '_';
    };
    return !name.isEmpty() && name != "." && name != ".." && std::all_of(name.cbegin(), name.cend(), isPlain);
}

/** Whether the owner of the unpacked file may read it. */
bool isReadable(const char *block)
{
    bool isNumber = false;
    const QByteArray mode(block + ModeOffset, static_cast<int>(qstrnlen(block + ModeOffset, ModeLength)));
    return (mode.trimmed().toUInt(&isNumber, 8) & 0400U) != 0 && isNumber;
}

/** The file "control" of a complete tar archive that contains only plain files. */
std::optional<QByteArray> controlFile(const QByteArray &archive)
{
    constexpr int Block = TarHeader::BlockSize;
    std::optional<QByteArray> control;
    int files = 0;
    for (int position = 0; position + Block <= archive.size();) {
        const char *block = archive.constData() + position;
        const TarHeader header = TarHeader::parse(block);
        position += Block;
        if (header.kind == TarHeader::Kind::End) {
            const bool isBlank = std::all_of(
                archive.cbegin() + position, archive.cend(), [](char byte) { return byte == '\0'; });
            return isBlank ? control : std::nullopt;
        }
        if (block[TypeOffset] == '5' && header.name == "./" && header.kind == TarHeader::Kind::Other)
            continue;
        const QByteArray name = header.name.startsWith("./") ? header.name.mid(2) : header.name;
        if (header.kind != TarHeader::Kind::File || !isPlainName(name) || !isReadable(block)
            || ++files > MostFiles || header.size > archive.size() - position)
            return std::nullopt;
        const int size = static_cast<int>(header.size);
        if (name == "control") {
            if (control || size > LargestControl)
                return std::nullopt;
            control = archive.mid(position, size);
            // Programs do not agree where a text with a NUL ends.
            if (control->contains('\0'))
                return std::nullopt;
        }
        position += (size + Block - 1) / Block * Block;
    }
    return std::nullopt;
}
} // namespace

std::optional<QByteArray> debControl(const QString &fileName, const std::function<bool()> &stopped)
{
    RegularFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const auto member = controlMember(&file);
    const QByteArray packed = member ? file.read(member->size) : QByteArray();
    if (!member || packed.size() != member->size || !isPackedAsNamed(member->name, packed))
        return std::nullopt;
    file.close();
    const QByteArray bytes = unpacked(fileName, *member, stopped);
    if (member->name == "control.tar.gz" && !isWholeGzip(packed, bytes))
        return std::nullopt;
    return controlFile(bytes);
}
