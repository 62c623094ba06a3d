// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/tarwalk.h"

namespace
{
/** Most bytes of the records or of the name that override a header. */
constexpr qint64 LargestExtension = 1 << 20;

bool isMember(TarHeader::Kind kind)
{
    return kind == TarHeader::Kind::File || kind == TarHeader::Kind::Other;
}
} // namespace

bool TarWalk::take(const char *data, qint64 size)
{
    while (size > 0 && !m_isAtEnd) {
        const qint64 part = m_left > 0 ? qMin(size, m_left) : qMin(size, missing());
        if (m_left > 0) {
            takeContents(data, part);
        } else {
            m_block.append(data, static_cast<int>(part));
            if (missing() == 0 && !begin())
                return false;
        }
        data += part;
        size -= part;
    }
    return true;
}

void TarWalk::takeContents(const char *data, qint64 size)
{
    m_left -= size;
    const qint64 part = qMin(size, m_contentsLeft);
    if (m_kind == TarHeader::Kind::Extended)
        m_records.append(data, static_cast<int>(size));
    else if (m_kind == TarHeader::Kind::LongName)
        m_longName.append(data, static_cast<int>(part));
    else if (isMember(m_kind) && part > 0)
        contents(data, part);
    m_contentsLeft -= part;
    if (m_left == 0 && isMember(m_kind))
        ended();
}

bool TarWalk::begin()
{
    TarHeader header = TarHeader::parse(m_block.constData());
    const QByteArray block = m_block;
    m_block.clear();
    m_kind = header.kind;
    m_isAtEnd = header.kind == TarHeader::Kind::End;
    const bool isExtension
        = header.kind == TarHeader::Kind::Extended || header.kind == TarHeader::Kind::LongName;
    if (header.kind == TarHeader::Kind::Invalid || (isExtension && header.size > LargestExtension))
        return false;
    if (isMember(header.kind)) {
        // A NUL ends the name in its own member.
        if (!m_longName.isEmpty())
            header.name = QByteArray(m_longName.constData());
        if (!header.overrule(m_records.left(m_recordsSize)))
            return false;
        m_longName.clear();
    }
    if (header.kind == TarHeader::Kind::LongName)
        m_longName.clear();
    if (isMember(header.kind) || header.kind == TarHeader::Kind::Extended) {
        m_records.clear();
        m_recordsSize = isMember(header.kind) ? 0 : static_cast<int>(header.size);
    }
    constexpr qint64 Block = TarHeader::BlockSize;
    m_contentsLeft = header.size;
    m_left = (header.size + Block - 1) / Block * Block;
    if (isMember(header.kind)) {
        begun(header, block.constData());
        if (m_left == 0)
            ended();
    }
    return true;
}
