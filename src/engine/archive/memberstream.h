// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/debarchive.h"
#include "files/regularfile.h"

#include <memory>

/**
 * Unpacks a member of a package file. The name of the member tells its compression. The caller must limit how much it
 * reads, because a member of a hostile file can unpack to any size.
 */
class MemberStream
{
public:
    MemberStream(const QString &fileName, const DebMember &member);
    ~MemberStream();
    MemberStream(const MemberStream &) = delete;
    MemberStream &operator=(const MemberStream &) = delete;

    /** False when the file cannot be read or the compression is unknown. */
    bool isOpen() const { return m_stream != nullptr; }
    /** Reads up to `size` bytes. Returns 0 at the end and -1 on an error. */
    qint64 read(char *data, qint64 size);

private:
    class FilePart;
    struct Stream;

    RegularFile m_file;
    std::unique_ptr<FilePart> m_part;
    std::unique_ptr<Stream> m_stream;
};
