// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/tarheader.h"

#include <QByteArray>

/** Reads the members of a tar archive that arrives in pieces. A subclass learns of the members and their contents. */
class TarWalk
{
public:
    TarWalk() = default;
    virtual ~TarWalk() = default;
    TarWalk(const TarWalk &) = delete;
    TarWalk &operator=(const TarWalk &) = delete;

    /** False when the data is not a valid archive. */
    bool take(const char *data, qint64 size);
    /** Whether the archive may end here. */
    bool isComplete() const { return m_isAtEnd || (m_left == 0 && m_block.isEmpty()); }

protected:
    /** A member begins, with its final name and size. `block` is its header, of TarHeader::BlockSize bytes. */
    virtual void begun(const TarHeader & /*header*/, const char * /*block*/) { }
    /** A part of the member's contents. */
    virtual void contents(const char * /*data*/, qint64 /*size*/) { }
    /** All contents of the member have come. */
    virtual void ended() { }

private:
    qint64 missing() const { return TarHeader::BlockSize - m_block.size(); }
    bool begin();
    void takeContents(const char *data, qint64 size);

    QByteArray m_block; ///< the part of a header that has arrived
    QByteArray m_records; ///< records that override the next header
    QByteArray m_longName; ///< name of the next member; empty: that of its header
    int m_recordsSize = 0; ///< size of the records in bytes; the rest of m_records is padding
    qint64 m_left = 0; ///< bytes left of a member's contents, including the padding
    qint64 m_contentsLeft = 0; ///< the same without the padding
    TarHeader::Kind m_kind = TarHeader::Kind::End; ///< of the member
    bool m_isAtEnd = false;
};
