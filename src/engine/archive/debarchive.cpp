// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debarchive.h"

#include "files/regularfile.h"

namespace
{
constexpr int MagicSize = 8;
constexpr int HeaderSize = 60;
constexpr int NameLength = 16;
constexpr int SizeOffset = 48;
constexpr int SizeLength = 10;
} // namespace

DebArchiveState debArchiveState(const QString &fileName, DebMember *data, DebMember *control)
{
    RegularFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.read(MagicSize) != "!<arch>\n")
        return DebArchiveState::NoArchive;
    bool hasData = false;
    qint64 position = MagicSize;
    while (position < file.size()) {
        if (!file.seek(position))
            return DebArchiveState::Truncated;
        const QByteArray header = file.read(HeaderSize);
        // Some tools add a newline at the end of an archive. Blanks before more data are damage.
        if (header.size() < HeaderSize && header.trimmed().isEmpty())
            break;
        if (header.size() < HeaderSize)
            return DebArchiveState::Truncated;
        if (!header.endsWith("`\n"))
            return DebArchiveState::NoArchive;
        bool isNumber = false;
        const qint64 size = header.mid(SizeOffset, SizeLength).trimmed().toLongLong(&isNumber);
        if (!isNumber || size < 0)
            return DebArchiveState::NoArchive;
        // Some tools add a slash to the end of names.
        QByteArray name = header.left(NameLength).trimmed();
        if (name.endsWith('/'))
            name.chop(1);
        if (!hasData && name.startsWith("data.tar")) {
            hasData = true;
            if (data != nullptr)
                *data = {name, position + HeaderSize, size};
        } else if (control != nullptr && control->name.isEmpty() && name.startsWith("control.tar")) {
            *control = {name, position + HeaderSize, size};
        }
        const qint64 end = position + HeaderSize + size;
        if (end > file.size())
            return DebArchiveState::Truncated;
        position = end + (size % 2); // members begin at even offsets
    }
    return hasData ? DebArchiveState::Whole : DebArchiveState::Truncated;
}
