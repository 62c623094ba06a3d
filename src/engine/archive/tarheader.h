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
        Extended, ///< the contents are records that overrule the next member's header
        Remark, ///< says of the next members what does not matter here, such as where a link leads
        Other, ///< links, folders, devices and what this program has no use for
        Invalid ///< no header at all
    };

    Kind kind = Kind::Invalid;
    QByteArray name; ///< as the header has it, folders included
    qint64 size = 0; ///< of the contents, which fill whole blocks

    /** `block` has BlockSize bytes. */
    static TarHeader parse(const char *block);
    /** Applies the records of an Extended member; false when they are malformed. */
    bool overrule(const QByteArray &records);
};
