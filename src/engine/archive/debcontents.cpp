// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debcontents.h"

#include "engine/archive/memberstream.h"
#include "engine/archive/tarheader.h"

#include <vector>

namespace
{
constexpr int BufferSize = 1 << 16;
/** Most bytes of the records that override a header. */
constexpr qint64 LargestExtension = 1 << 20;

/** Reads the members of a tar archive that arrives in pieces. */
class TarWalk
{
public:
    /** False when the data is not a valid archive. */
    bool take(const char *data, qint64 size)
    {
        while (size > 0 && !m_isAtEnd) {
            const qint64 part = m_left > 0 ? qMin(size, m_left) : qMin(size, missing());
            if (m_left > 0) {
                if (m_isExtended)
                    m_records.append(data, static_cast<int>(part));
                m_left -= part;
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
    /** Whether the archive may end here. */
    bool isComplete() const { return m_isAtEnd || (m_left == 0 && m_block.isEmpty()); }

private:
    qint64 missing() const { return TarHeader::BlockSize - m_block.size(); }

    bool begin()
    {
        TarHeader header = TarHeader::parse(m_block.constData());
        m_block.clear();
        m_isAtEnd = header.kind == TarHeader::Kind::End;
        const bool isMember = header.kind == TarHeader::Kind::File || header.kind == TarHeader::Kind::Other;
        if (header.kind == TarHeader::Kind::Invalid
            || (isMember && !header.overrule(m_records.left(m_recordsSize))))
            return false;
        m_isExtended = header.kind == TarHeader::Kind::Extended;
        if (isMember || m_isExtended)
            m_records.clear();
        if (m_isExtended && header.size > LargestExtension)
            return false;
        if (isMember || m_isExtended)
            m_recordsSize = m_isExtended ? static_cast<int>(header.size) : 0;
        constexpr qint64 Block = TarHeader::BlockSize;
        m_left = (header.size + Block - 1) / Block * Block;
        return true;
    }

    QByteArray m_block; ///< the part of a header that has arrived
    QByteArray m_records; ///< records that override the next header
    int m_recordsSize = 0; ///< size of the records in bytes; the rest of m_records is padding
    qint64 m_left = 0; ///< bytes left of a member's contents, including the padding
    bool m_isExtended = false; ///< the contents are records that override a header
    bool m_isAtEnd = false;
};

DebContentsState unpack(MemberStream *stream, const std::function<bool()> &stopped)
{
    std::vector<char> buffer(BufferSize);
    TarWalk walk;
    for (;;) {
        if (stopped && stopped())
            return DebContentsState::Unknown;
        const qint64 read = stream->read(buffer.data(), BufferSize);
        if (read < 0 || !walk.take(buffer.data(), read))
            return DebContentsState::Damaged;
        if (read == 0)
            return walk.isComplete() ? DebContentsState::Whole : DebContentsState::Damaged;
    }
}
} // namespace

DebContentsState
debContentsState(const QString &fileName, const DebMember &data, const std::function<bool()> &stopped)
{
    MemberStream stream(fileName, data);
    return stream.isOpen() ? unpack(&stream, stopped) : DebContentsState::Unknown;
}
