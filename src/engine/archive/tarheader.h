// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtGlobal>

/** One header block of a tar archive, see tar(5). */
struct TarHeader
{
    static constexpr int BlockSize = 512;

    enum class Kind {
        End, ///< an empty block
        File,
        LongName, ///< the contents are the name of the next member
        Extended, ///< the contents are records that override the next member's header
        Remark, ///< information about the next members that is not needed here, such as the target of a link
        Other, ///< links, folders, devices and other members that are not needed here
        Invalid ///< not a header
    };

    Kind kind = Kind::Invalid;
    QByteArray name; ///< as in the header, with folders
    qint64 size = 0; ///< size of the contents; they fill whole blocks

    /** `block` has BlockSize bytes. */
    static TarHeader parse(const char *block);
    /** Applies the records of an Extended member; false when they are malformed. */
    bool overrule(const QByteArray &records);
};
